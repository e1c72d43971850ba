# Toolchain file: builds for Windows on Debian. What is built runs under Wine (wine64).
# TOLVAN_WINDOWS_QT, of the environment or the cache, is where the static Qt for Windows is installed, if there is one.
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

if(NOT TOLVAN_WINDOWS_QT)
  set(TOLVAN_WINDOWS_QT "$ENV{TOLVAN_WINDOWS_QT}")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TOLVAN_WINDOWS_QT)
list(APPEND CMAKE_FIND_ROOT_PATH ${TOLVAN_WINDOWS_QT})
set(CMAKE_PREFIX_PATH ${TOLVAN_WINDOWS_QT})

# Programs that need nothing but what every Windows has, from Windows 10 on.
add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00 NTDDI_VERSION=0x0A000000 UNICODE _UNICODE NOMINMAX
                        WIN32_LEAN_AND_MEAN)
# As much stack as on Linux: the depth of what programs nest is measured for that.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,16777216")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
