# The tests that run under Wine. Debian's libgtest is for Linux, so it is built from its source package.
# One program is one test, as Wine's first start takes longer than a discovery may.
function(gtest_discover_tests name)
  add_test(NAME ${name} COMMAND ${name})
endfunction()

set(googletest /usr/src/googletest/googletest)
add_library(windows_gtest STATIC ${googletest}/src/gtest-all.cc ${googletest}/src/gtest_main.cc)
target_include_directories(windows_gtest SYSTEM PUBLIC ${googletest}/include PRIVATE ${googletest})
target_compile_options(windows_gtest PRIVATE -w PUBLIC
  -include ${CMAKE_CURRENT_LIST_DIR}/support/gtest_without_threads.h)
target_link_options(windows_gtest PUBLIC -static)
add_library(GTest::gtest_main ALIAS windows_gtest)

add_subdirectory(logic)
add_subdirectory(lists)
add_subdirectory(network)
add_subdirectory(desktop)
