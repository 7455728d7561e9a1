# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# Compiles for Debian's 32-bit ARM, armhf, on another Debian.
#
#   OVO_SYSROOT   what tests/device/make-root has made, as a cache or an environment variable;
#                 by default where scripts/device keeps it
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)

if(NOT OVO_SYSROOT)
    if(DEFINED ENV{OVO_SYSROOT})
        set(OVO_SYSROOT "$ENV{OVO_SYSROOT}")
    elseif(DEFINED ENV{XDG_CACHE_HOME})
        set(OVO_SYSROOT "$ENV{XDG_CACHE_HOME}/ovo-device/root")
    else()
        set(OVO_SYSROOT "$ENV{HOME}/.cache/ovo-device/root")
    endif()
endif()
if(NOT IS_DIRECTORY "${OVO_SYSROOT}")
    message(FATAL_ERROR "There is no sysroot in ${OVO_SYSROOT}: run scripts/device build")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES OVO_SYSROOT)

set(triplet arm-linux-gnueabihf)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_SYSROOT "${OVO_SYSROOT}")
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi) # tells of what GCC before 7.1 did, which compiled nothing here

# programs are this machine's, everything else is the tablet's
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_DIR} "")
set(ENV{PKG_CONFIG_LIBDIR}
    "${OVO_SYSROOT}/usr/lib/${triplet}/pkgconfig:${OVO_SYSROOT}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${OVO_SYSROOT}")
