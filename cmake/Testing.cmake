# stagewright_add_test(NAME [GUI] [HEADERS STD|QT_GUI|QT_WIDGETS] [FIXTURE HEADER]
#                      SOURCES... LIBS...)
# One test program per area. Each GoogleTest case is its own CTest entry, so a
# failing run names the case; GUI tests run on the offscreen platform.
# HEADERS names the precompiled headers the program can use (by default
# QT_WIDGETS for GUI programs, else STD); FIXTURE, the support header that its
# files share, which is precompiled with them.
include(GoogleTest)

# Test code is compiled without optimisation in every build: the code under
# test keeps its own flags, and test programs build in a fraction of the time.
function(stagewright_light_test_target target kind fixture)
  target_compile_options(${target} PRIVATE -O0)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  set(extra)
  if(fixture)
    set(extra HEADERS ${CMAKE_CURRENT_SOURCE_DIR}/${fixture})
  endif()
  if(kind STREQUAL "QT_WIDGETS")
    stagewright_precompile_headers(${target} WIDGETS TEST ${extra})
  elseif(kind STREQUAL "QT_GUI")
    stagewright_precompile_headers(${target} GUI TEST ${extra})
  else()
    stagewright_precompile_headers(${target} TEST ${extra})
  endif()
endfunction()

# stagewright_add_test_library(NAME [HEADERS ...] [FIXTURE HEADER] SOURCES... LIBS...)
# Support code that several test programs share, compiled once.
function(stagewright_add_test_library name)
  cmake_parse_arguments(T "" "HEADERS;FIXTURE" "SOURCES;LIBS" ${ARGN})
  if(NOT T_HEADERS)
    set(T_HEADERS QT_WIDGETS)
  endif()
  add_library(${name} STATIC ${T_SOURCES})
  target_link_libraries(${name} PUBLIC ${T_LIBS} GTest::gtest)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/tests)
  stagewright_light_test_target(${name} ${T_HEADERS} "${T_FIXTURE}")
endfunction()

function(stagewright_add_test name)
  cmake_parse_arguments(T "GUI" "HEADERS;FIXTURE" "SOURCES;LIBS" ${ARGN})
  if(NOT T_HEADERS)
    if(T_GUI)
      set(T_HEADERS QT_WIDGETS)
    else()
      set(T_HEADERS STD)
    endif()
  endif()
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock)
  if(NOT T_GUI)
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  stagewright_light_test_target(${name} ${T_HEADERS} "${T_FIXTURE}")
  # Cases are listed when the tests run, not at build time, so a build never
  # starts a test program. Each property takes one value: a list would be cut
  # at its first item on the way through the discovery script.
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
      ENVIRONMENT_MODIFICATION "STAGEWRIGHT_SOURCE_DIR=set:${PROJECT_SOURCE_DIR}")
endfunction()
