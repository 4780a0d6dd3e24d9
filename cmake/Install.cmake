# Installation layout. The shell loads its tool plug-in from its own folder
# (applicationDirPath()/toolapps), so the executable, the tool library and the
# plug-in live together in a private folder under the library directory, find
# each other through $ORIGIN-relative run paths, and bin/ gets a link to the
# executable (Qt resolves the application folder through /proc/self/exe).
include(GNUInstallDirs)

set(SE_APP_ID "org.sourceeditor.SourceEditor")
set(SE_PRIVATE_DIR "${CMAKE_INSTALL_LIBDIR}/sourceeditor")

if(TARGET sourceeditor)
    set_target_properties(sourceeditor PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS sourceeditor RUNTIME DESTINATION "${SE_PRIVATE_DIR}")
    file(RELATIVE_PATH SE_LINK_TARGET "/${CMAKE_INSTALL_BINDIR}"
         "/${SE_PRIVATE_DIR}/sourceeditor")
    install(CODE "
        set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/sourceeditor\")
        message(STATUS \"Installing: \${link} -> ${SE_LINK_TARGET}\")
        file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(CREATE_LINK \"${SE_LINK_TARGET}\" \"\${link}\" SYMBOLIC)
    ")
endif()

if(TARGET sedgui)
    # Needs nothing private; the default run path would point outside.
    set_target_properties(sedgui PROPERTIES INSTALL_RPATH "")
    install(TARGETS sedgui LIBRARY DESTINATION "${SE_PRIVATE_DIR}" NAMELINK_SKIP)
endif()

if(TARGET sedapp)
    set_target_properties(sedapp PROPERTIES INSTALL_RPATH "$ORIGIN/..")
    install(TARGETS sedapp LIBRARY DESTINATION "${SE_PRIVATE_DIR}/toolapps")
endif()

set(SE_PACKAGING_DIR "${PROJECT_SOURCE_DIR}/packaging")
install(FILES "${SE_PACKAGING_DIR}/${SE_APP_ID}.desktop"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${SE_PACKAGING_DIR}/${SE_APP_ID}.metainfo.xml"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${SE_PACKAGING_DIR}/${SE_APP_ID}.svg"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

# Debian wants manual pages compressed, without a time stamp in the header.
set(SE_MAN_PAGE "${CMAKE_BINARY_DIR}/packaging/sourceeditor.1.gz")
add_custom_command(OUTPUT "${SE_MAN_PAGE}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_BINARY_DIR}/packaging"
    COMMAND sh -c "gzip -9nc \"$1\" > \"$2\"" sh
            "${SE_PACKAGING_DIR}/sourceeditor.1" "${SE_MAN_PAGE}"
    DEPENDS "${SE_PACKAGING_DIR}/sourceeditor.1"
    VERBATIM)
add_custom_target(man_page ALL DEPENDS "${SE_MAN_PAGE}")
install(FILES "${SE_MAN_PAGE}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
