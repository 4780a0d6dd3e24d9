# Finds QScintilla built for Qt 6, which ships no CMake package of its own.
# Defines the imported target QScintilla::QScintilla.

get_target_property(_se_qtcore_includes Qt6::Core INTERFACE_INCLUDE_DIRECTORIES)

find_path(QScintilla_INCLUDE_DIR
    NAMES Qsci/qsciscintilla.h
    HINTS ${_se_qtcore_includes}
    PATH_SUFFIXES qt6 ..)
find_library(QScintilla_LIBRARY NAMES qscintilla2_qt6)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(QScintilla
    REQUIRED_VARS QScintilla_LIBRARY QScintilla_INCLUDE_DIR)

if(QScintilla_FOUND AND NOT TARGET QScintilla::QScintilla)
    add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
    set_target_properties(QScintilla::QScintilla PROPERTIES
        IMPORTED_LOCATION "${QScintilla_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${QScintilla_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
endif()
mark_as_advanced(QScintilla_INCLUDE_DIR QScintilla_LIBRARY)
