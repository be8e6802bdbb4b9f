# SPDX-License-Identifier: GPL-3.0-or-later

# Toolchain file: builds for 64-bit Windows on Debian (g++-mingw-w64-x86-64-posix). What is built stands alone, with no
# library of the compiler's beside it, and is run by Wine where the build has to.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_CROSSCOMPILING_EMULATOR env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all wine)

# Programs are this machine's, all else is that of the target.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} /usr/x86_64-w64-mingw32/lib/pkgconfig)
