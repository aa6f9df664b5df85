# stagewright_add_test(NAME SOURCES... LIBS ... [GUI])
# One test program per area; GUI tests run on the offscreen platform.
function(stagewright_add_test name)
  cmake_parse_arguments(T "GUI" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock)
  if(NOT T_GUI)
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;STAGEWRIGHT_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
