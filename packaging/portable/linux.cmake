# Included after project() by the preset "portable": libraries of X11 that a desktop may lack become part of the programs.
foreach(name icccm image keysyms render-util)
  string(TOUPPER ${name} variable)
  string(REPLACE - "" variable ${variable})
  find_library(XCB_${variable}_LIBRARY NAMES libxcb-${name}.a REQUIRED)
endforeach()
find_library(TOLVAN_XCB_UTIL NAMES libxcb-util.a REQUIRED)
set(CMAKE_CXX_STANDARD_LIBRARIES ${TOLVAN_XCB_UTIL}) # which libxcb-image needs, so it comes last
