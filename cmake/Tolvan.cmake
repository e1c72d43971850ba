# What every target of the project shares: warnings, sanitizers, and the two calls by which folders declare
# their library and their tests.

# The folder of the files that every system has in its own form, beside those that all share.
set(TOLVAN_SYSTEM linux)
if(WIN32)
  set(TOLVAN_SYSTEM windows)
endif()

add_library(tolvan_options INTERFACE)
target_include_directories(tolvan_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(
  tolvan_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
                           -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
# GCC 12 sees overlapping copies in the concatenation of texts where there are none. Clang's tools do not know that option.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tolvan_options INTERFACE -Wno-restrict -Wno-unknown-warning-option)
endif()
if(TOLVAN_SANITIZE)
  target_compile_options(tolvan_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
  target_link_options(tolvan_options INTERFACE -fsanitize=address,undefined)
  if(NOT TOLVAN_FUZZ) # checks of every pointer that take a seventh of the compile time; reading through null is found anyway
    target_compile_options(tolvan_options INTERFACE -fno-sanitize=null,alignment)
  endif()
endif()
if(TOLVAN_FUZZ)
  target_compile_options(tolvan_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tolvan_headers(NAME LINKS target... HEADERS header... [OPTIONS option...])
#
# Headers that are read once for all targets which call tolvan_use_headers(target NAME): reading Qt's or GoogleTest's takes
# longer than most of our own sources. Those targets must have the same options. A source that forgets an include is found
# by clang-tidy, which reads no precompiled headers.
function(tolvan_headers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;HEADERS;OPTIONS")
  set(empty ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${empty} CONTENT "")
  add_library(${name} STATIC ${empty})
  target_link_libraries(${name} PRIVATE tolvan_options ${arg_LINKS})
  target_compile_options(${name} PRIVATE ${arg_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

function(tolvan_use_headers target name)
  target_precompile_headers(${target} REUSE_FROM ${name})
endfunction()

# tolvan_library(NAME SOURCES file... [LINKS target...])
#
# A static library of one folder. Headers are included by their path below src/, such as
# "platform/richtext/StyledText.h".
function(tolvan_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC tolvan_options ${arg_LINKS})
endfunction()

# The same for a folder with windows: classes with signals and resource files are found by themselves.
function(tolvan_qt_library name)
  tolvan_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_link_libraries(${name} PUBLIC tolvan_qt)
  tolvan_use_headers(${name} tolvan_qt_headers)
endfunction()

# Where Qt is static, its plugins become part of the program.
function(tolvan_link_plugins name)
  get_target_property(kind Qt6::Gui TYPE)
  if(kind STREQUAL STATIC_LIBRARY)
    qt_finalize_target(${name})
  endif()
endfunction()

# tolvan_program_with_windows(NAME DESCRIPTION)
#
# Declares that program NAME has windows. On Windows it gets no console then, but an icon, a version and what it asks of
# the system.
function(tolvan_program_with_windows name description)
  if(WIN32)
    set(folder ${CMAKE_SOURCE_DIR}/packaging/portable/windows)
    set(own ${CMAKE_CURRENT_BINARY_DIR}/${name})
    set(DESCRIPTION ${description})
    set(MANIFEST ${folder}/program.manifest)
    set(ICON ${CMAKE_BINARY_DIR}/tolbasic.ico)
    string(REPLACE . , VERSION_NUMBERS ${PROJECT_VERSION},0)
    configure_file(${folder}/program.rc.in ${own}.rc @ONLY)
    set_source_files_properties(${own}.rc PROPERTIES OBJECT_DEPENDS "${ICON};${MANIFEST}")
    target_sources(${name} PRIVATE ${own}.rc ${folder}/qt.qrc) # and FreeType draws its letters, as on Linux
    add_dependencies(${name} tolvan_icon)
    set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ON AUTORCC ON)
  endif()
  tolvan_link_plugins(${name})
endfunction()

set(TOLVAN_TEST_OPTIONS -O0)  # tests are compiled more often than they run
if(NOT WIN32)
  list(APPEND TOLVAN_TEST_OPTIONS -fPIC)  # Qt asks for it, and all tests share their headers
endif()

# tolvan_test(NAME SOURCES file... [LINKS target...])
#
# A GoogleTest program of one folder. Each of its tests is a test of its own in ctest.
function(tolvan_test name)
  tolvan_add_test(${name} tolvan_test_headers ${ARGN})
endfunction()

# The same with windows, which are drawn off-screen.
function(tolvan_window_test name)
  tolvan_add_test(${name} tolvan_window_test_headers ${ARGN})
  target_link_libraries(${name} PRIVATE Qt6::Test)
  if(TARGET Qt6::QOffscreenIntegrationPlugin) # of a static Qt
    qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)
    tolvan_link_plugins(${name})
  endif()
endfunction()

function(tolvan_add_test name headers)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tolvan_options ${arg_LINKS} tolvan_folders tolvan_files GTest::gmock)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE ${TOLVAN_TEST_OPTIONS})
  tolvan_use_headers(${name} ${headers})
  if(NOT TARGET GTest::gtest_main)
    message(FATAL_ERROR "GoogleTest without its main")
  endif()
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${name} COMMAND ${name})  # one start a program: starting is slow there
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    return()
  endif()
  gtest_discover_tests(
    ${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# tolvan_fuzzer(NAME SOURCES file... [LINKS target...])
#
# A libFuzzer program of one folder, built by the preset "fuzz" only. A unit that takes long is a fault too: run it with
# -timeout=10.
function(tolvan_fuzzer name)
  if(NOT TOLVAN_FUZZ)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tolvan_options ${arg_LINKS} tolvan_folders)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
