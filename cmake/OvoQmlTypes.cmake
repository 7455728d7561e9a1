# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# ovo_qml_type_list(<target> URI <module> VERSION <major.minor> OUTPUT <file>
#                   HEADERS <header>... [FOREIGN <header>...])
#
# Makes the type list of a QML module, `plugins.qmltypes`, for editors and qmllint, with the target
# <target>_type_list. HEADERS have the classes with QML_ELEMENT and its like, FOREIGN those that
# QML_FOREIGN names; no two have the same file name. <target> is what they are compiled in: moc is
# given its include directories and definitions. Nothing is loaded: a module that needs a host's
# symbols has its list before there is a host.
function(ovo_qml_type_list target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "URI;VERSION;OUTPUT" "HEADERS;FOREIGN")
    string(REPLACE "." ";" version "${arg_VERSION}")
    list(GET version 0 major)
    list(GET version 1 minor)
    set(directory "${CMAKE_CURRENT_BINARY_DIR}/${target}_types")
    file(MAKE_DIRECTORY "${directory}")
    get_target_property(moc Qt5::moc IMPORTED_LOCATION)
    cmake_path(GET moc PARENT_PATH tools)
    find_program(OVO_QMLTYPEREGISTRAR qmltyperegistrar HINTS "${tools}" REQUIRED)

    set(includes "$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>")
    set(definitions "$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>")
    foreach(kind IN ITEMS HEADERS FOREIGN)
        set(lists "")
        foreach(header IN LISTS arg_${kind})
            cmake_path(ABSOLUTE_PATH header)
            cmake_path(GET header STEM name)
            set(output "${directory}/moc_${name}.cpp")
            add_custom_command(
                OUTPUT "${output}.json"
                BYPRODUCTS "${output}"
                COMMAND Qt5::moc --output-json -o "${output}"
                    "$<$<BOOL:${includes}>:-I$<JOIN:${includes},;-I>>"
                    "$<$<BOOL:${definitions}>:-D$<JOIN:${definitions},;-D>>"
                    "${header}"
                DEPENDS "${header}"
                COMMAND_EXPAND_LISTS VERBATIM)
            list(APPEND lists "${output}.json")
        endforeach()
        set(${kind}_list "${directory}/${kind}.json")
        add_custom_command(
            OUTPUT "${${kind}_list}"
            COMMAND Qt5::moc --collect-json -o "${${kind}_list}" ${lists}
            DEPENDS ${lists}
            VERBATIM)
    endforeach()

    # Qt's own have base classes
    get_target_property(core Qt5::Core LOCATION)
    cmake_path(GET core PARENT_PATH library_directory)
    file(GLOB qt_types "${library_directory}/metatypes/qt5*_metatypes.json")
    list(JOIN qt_types "," foreign)
    add_custom_command(
        OUTPUT "${arg_OUTPUT}"
        BYPRODUCTS "${directory}/registrations.cpp"
        COMMAND "${OVO_QMLTYPEREGISTRAR}" --import-name=${arg_URI}
            --major-version=${major} --minor-version=${minor}
            --foreign-types=${foreign},${FOREIGN_list}
            "--generate-qmltypes=${arg_OUTPUT}" -o "${directory}/registrations.cpp"
            "${HEADERS_list}"
        DEPENDS "${HEADERS_list}" "${FOREIGN_list}"
        VERBATIM)
    add_custom_target(${target}_type_list ALL DEPENDS "${arg_OUTPUT}")
    if(NOT TARGET ovo_type_lists)
        add_custom_target(ovo_type_lists) # all of them
    endif()
    add_dependencies(ovo_type_lists ${target}_type_list)
endfunction()
