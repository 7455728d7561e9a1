# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# ovo_add_test(<directory> <Class> [LIBRARIES <target>...] [SOURCES <file>...] [TIMEOUT <seconds>]
#              [ENVIRONMENT <NAME=value>...] [LAUNCHER <command> <argument>...])
#
# Builds tst_<Class>.cpp of the calling directory into the test "<directory>.<Class>", labelled with
# the directory. Every test links the library and the simulated host, and runs in a pinned
# environment: UTF-8, English, UTC, no display. A launcher is what the test is run by, behind the one
# that OVO_TEST_LAUNCHER names for all of them.
set(OVO_TEST_TIMEOUT_FACTOR 1 CACHE STRING "How much longer than on a PC a test may take")

function(ovo_add_test directory class)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "LIBRARIES;SOURCES;ENVIRONMENT;LAUNCHER")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    math(EXPR timeout "${arg_TIMEOUT} * ${OVO_TEST_TIMEOUT_FACTOR}")

    set(target tst_${directory}_${class})
    # moc is called directly: AUTOMOC would start a program for each of so many targets to find that
    # none has another class to read
    set(moc "${CMAKE_CURRENT_BINARY_DIR}/tst_${class}.moc")
    qt5_generate_moc(tst_${class}.cpp "${moc}")
    add_executable(${target} tst_${class}.cpp "${moc}" ${arg_SOURCES})
    ovo_defaults(${target})
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_precompile_headers(${target} REUSE_FROM ovo_test_support)
    target_include_directories(${target} PRIVATE
        "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_BINARY_DIR}")
    target_link_libraries(${target} PRIVATE
        ${arg_LIBRARIES} OvoSharedBase ovo_fieldhost_services Qt5::Qml Qt5::Test)

    add_test(NAME ${directory}.${class} COMMAND
        ${OVO_TEST_LAUNCHER} ${arg_LAUNCHER} $<TARGET_FILE:${target}>)
    set_tests_properties(${directory}.${class} PROPERTIES
        LABELS ${directory}
        TIMEOUT ${timeout}
        ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;QT_QPA_PLATFORM=offscreen;${OVO_TEST_ENVIRONMENT};${arg_ENVIRONMENT}")
endfunction()
