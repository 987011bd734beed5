# One call makes a test program and tells ctest about every case in it.
find_package(GTest REQUIRED)
include(GoogleTest)

# vx_add_test(name sources... [LIBS libraries...])
function(vx_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LIBS")
  add_executable(${name} ${test_UNPARSED_ARGUMENTS})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vxBuild ${test_LIBS} GTest::gtest_main)
  # GCC 12 takes "text" + std::string for an overlapping copy once it is inlined.
  target_compile_options(${name} PRIVATE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
  gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60)
endfunction()
