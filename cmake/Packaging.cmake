# The Debian package, built by CPack from the install rules (scripts/package
# makes it from a release build).
include(Install)

set(SE_DEB_DOC_DIR "${CMAKE_INSTALL_DATADIR}/doc/sourceeditor")
install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright" DESTINATION "${SE_DEB_DOC_DIR}")
set(SE_CHANGELOG "${CMAKE_BINARY_DIR}/packaging/changelog.Debian.gz")
add_custom_command(OUTPUT "${SE_CHANGELOG}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_BINARY_DIR}/packaging"
    COMMAND sh -c "gzip -9nc \"$1\" > \"$2\"" sh
            "${PROJECT_SOURCE_DIR}/packaging/changelog.Debian" "${SE_CHANGELOG}"
    DEPENDS "${PROJECT_SOURCE_DIR}/packaging/changelog.Debian"
    VERBATIM)
add_custom_target(debian_changelog ALL DEPENDS "${SE_CHANGELOG}")
install(FILES "${SE_CHANGELOG}" DESTINATION "${SE_DEB_DOC_DIR}")

set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "sourceeditor")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
# A Debian revision: the package is made from its own source, not Debian's.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PACKAGE_VENDOR "The Source Editor developers")
set(CPACK_PACKAGE_CONTACT "The Source Editor developers <sourceeditor@sourceeditor.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "fast, careful source-code editor")
set(CPACK_PACKAGE_DESCRIPTION
    "A desktop editor for source code and text files: documents in tabs of one\n"
    "window, syntax colouring for dozens of languages, find and replace, find in\n"
    "files and printing. Opening and saving a file without an edit gives back the\n"
    "identical bytes, whatever its encoding and line endings, and a failed save\n"
    "leaves the old file intact.")
string(JOIN "" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "editors")
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://sourceeditor.org/")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
# Linked libraries are found by dpkg-shlibdeps; the private folder (relative
# to the package root) holds our own library, not to be looked for elsewhere.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "usr/${SE_PRIVATE_DIR}")
# Loaded at run time, so no scan finds them: the X11 platform plug-in, the SVG
# icon engine that draws the tool bar icons, libgit2 (opened by Find in Files)
# and a font.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6, libgit2-${SE_GIT2_SOVERSION}, fonts-dejavu-core | fonts-freefont-ttf")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, libqscintilla2-qt6-l10n, hicolor-icon-theme")

include(CPack)
