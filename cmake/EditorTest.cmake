# add_editor_test(<name> SOURCES <files...> [LIBS <targets...>])
#
# Builds a Qt Test executable into <build>/tests/bin and registers it with
# CTest. Each run gets the offscreen platform and a fresh, empty
# XDG_CONFIG_HOME and HOME (tests/isolated.sh), so no test reads or writes
# the real user's settings.
set(SE_TEST_BIN_DIR "${CMAKE_BINARY_DIR}/tests/bin")

function(add_editor_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    qt_add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${SE_TEST_BIN_DIR}")
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBS})
    add_test(NAME ${name}
             COMMAND "${PROJECT_SOURCE_DIR}/tests/isolated.sh" $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;SE_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
        TIMEOUT 60)
endfunction()
