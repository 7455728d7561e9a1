# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# ovo_library_directory(PUBLIC_HEADERS header... [SOURCES source...])
#
# Adds what lies in a directory of shared/ to the library. Public headers are installed below
# include/OvoSharedBase/shared/<directory>/.
function(ovo_library_directory)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "PUBLIC_HEADERS;SOURCES")
    target_sources(OvoSharedBase PRIVATE ${arg_PUBLIC_HEADERS} ${arg_SOURCES})
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME directory)
    install(FILES ${arg_PUBLIC_HEADERS}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/OvoSharedBase/shared/${directory}
        COMPONENT Development)
endfunction()
