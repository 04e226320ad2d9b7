# Cross-builds for 64-bit Windows with Debian's mingw-w64 and runs what it built under Wine.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(target x86_64-w64-mingw32)

# The variant with POSIX threads is the one that has std::thread and std::mutex.
set(CMAKE_C_COMPILER ${target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)

# The compiler's run-time libraries become part of each file, which then needs nothing that Windows does not bring.
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT -static)
endforeach()

# Programs are those of the build system; libraries and headers never are. Packages may lie wherever CMAKE_PREFIX_PATH
# says. What Debian has for the build system alone but is nothing but text, is found by the modules beside this file:
# header-only libraries and GoogleTest's sources.
set(CMAKE_FIND_ROOT_PATH /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
list(APPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}")

get_filename_component(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/run_under_wine" ABSOLUTE)
