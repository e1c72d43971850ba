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
endif()
if(TOLVAN_FUZZ)
  target_compile_options(tolvan_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Reads headers that most sources of a target include once for all of them, where it has more than two: reading Qt's or
# GoogleTest's takes longer than most of our own sources. A source that forgets an include is found by clang-tidy, which
# reads no precompiled headers.
function(tolvan_precompile name)
  get_target_property(sources ${name} SOURCES)
  list(LENGTH sources count)
  if(count GREATER 2)
    target_precompile_headers(${name} PRIVATE ${ARGN})
  endif()
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
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  target_compile_definitions(${name} PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
  tolvan_precompile(${name} <QAccessible> <QApplication> <QMainWindow> <QPainter> <QPlainTextEdit> <QTextBlock>)
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

# tolvan_test(NAME SOURCES file... [LINKS target...])
#
# A GoogleTest program of one folder; windows are drawn off-screen. Each of its tests is a test of its own in ctest.
function(tolvan_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tolvan_options ${arg_LINKS} tolvan_folders tolvan_files GTest::gmock)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE -O1)  # tests are compiled more often than they run
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-stringop-overflow)  # as -Wno-restrict above
  endif()
  tolvan_precompile(${name} <gmock/gmock.h>)
  if(arg_SOURCES MATCHES "support/(Look|Window)Main" AND TARGET Qt6::QOffscreenIntegrationPlugin) # of a static Qt
    qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)
    tolvan_link_plugins(${name})
  endif()
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
