# Toolchain file: builds for Windows on Debian, with g++-mingw-w64-x86-64-posix. What is built runs under Wine (wine64).
# TOLVAN_WINDOWS_QT, of the environment or the cache, is where the static Qt for Windows is installed, if there is one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT TOLVAN_WINDOWS_QT)
  set(TOLVAN_WINDOWS_QT "$ENV{TOLVAN_WINDOWS_QT}")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TOLVAN_WINDOWS_QT)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${TOLVAN_WINDOWS_QT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs that need nothing but what every Windows has, from Windows 10 on.
add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00 NTDDI_VERSION=0x0A000000 UNICODE _UNICODE NOMINMAX
                        WIN32_LEAN_AND_MEAN)
# As much stack as on Linux: the depth of what programs nest is measured for that.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,16777216")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
