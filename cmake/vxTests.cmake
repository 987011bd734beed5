# One call makes a test executable and tells ctest of every case in it.
find_package(GTest REQUIRED)
include(GoogleTest)

# vx_add_test(name sources... [LIBS libraries...])
function(vx_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LIBS")
  add_executable(${name} ${test_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE vxBuild ${test_LIBS} GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
