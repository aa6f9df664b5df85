# stagewright_add_test(NAME SOURCES... LIBS ... [GUI])
# One test program per area. Each GoogleTest case is its own CTest entry, so a
# failing run names the case; GUI tests run on the offscreen platform.
include(GoogleTest)

function(stagewright_add_test name)
  cmake_parse_arguments(T "GUI" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock)
  if(NOT T_GUI)
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  # Under the sanitizers the test programs themselves are not optimised: the
  # code under test keeps its -O1, and the sanitized build of the whole tree
  # stays well inside CI's time.
  if(STAGEWRIGHT_SANITIZE)
    target_compile_options(${name} PRIVATE -O0)
  endif()
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
