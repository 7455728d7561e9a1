# ovo_library_folder(PUBLIC_HEADERS header... [SOURCES source...])
#
# Adds what lies in a folder of shared/ to the library. Public headers are installed below
# include/OvoSharedBase/shared/<folder>/.
function(ovo_library_folder)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "PUBLIC_HEADERS;SOURCES")
    target_sources(OvoSharedBase PRIVATE ${arg_PUBLIC_HEADERS} ${arg_SOURCES})
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    install(FILES ${arg_PUBLIC_HEADERS}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/OvoSharedBase/shared/${folder}
        COMPONENT Development)
endfunction()
