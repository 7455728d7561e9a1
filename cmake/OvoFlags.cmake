# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# Flags that every target of the project shares, carried by an interface target so that
# nothing leaks into a project that includes this one.

add_library(ovo_flags INTERFACE)
target_compile_features(ovo_flags INTERFACE cxx_std_17)
target_compile_definitions(ovo_flags INTERFACE
    QT_NO_KEYWORDS
    QT_NO_CAST_FROM_ASCII
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00
    # videos grow past 2 GiB, dates of a drive go on to 2107, and the tablet is a 32-bit machine
    _FILE_OFFSET_BITS=64
    _TIME_BITS=64)
target_compile_options(ovo_flags INTERFACE
    -Wall -Wextra -Wpedantic
    $<$<COMPILE_LANGUAGE:CXX>:-Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2>)

# ovo_defaults(<target>): the shared flags, moc, and a build that does not depend on GNU extensions
function(ovo_defaults target)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:ovo_flags>)
    set_target_properties(${target} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF)
endfunction()
