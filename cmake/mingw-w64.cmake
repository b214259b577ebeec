# SPDX-License-Identifier: MIT
# Builds 64-bit Windows programs on Linux. The compiler's runtime is linked statically, so that the library and
# the tool need nothing beside them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
foreach(kind IN ITEMS EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Packages of the host that come as sources or headers are found by the modules there.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/mingw-w64)

# Programs of the build run in a Windows environment of their own, inside the build folder.
find_program(KM_WINE NAMES wine64 wine PATHS /usr/lib/wine)
find_program(KM_WINESERVER NAMES wineserver PATHS /usr/lib/wine)
if(KM_WINE AND KM_WINESERVER)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        ${CMAKE_CURRENT_LIST_DIR}/mingw-w64/wine ${CMAKE_BINARY_DIR}/wine ${KM_WINE} ${KM_WINESERVER})
endif()
