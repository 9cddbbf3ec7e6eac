# What the figures of the program for Windows come from. The two programs of `startup` differ in
# nothing but what they show.
add_executable(kestrava_startup WIN32 ${PROJECT_SOURCE_DIR}/src/main_windows.cpp
               ${PROJECT_BINARY_DIR}/generated/kestrava.rc win32/startup/first_paint.cpp)
target_link_libraries(kestrava_startup PRIVATE kestrava_logic kestrava_win32)

add_executable(bare_startup WIN32 win32/startup/bare_window.cpp win32/startup/first_paint.cpp)
target_link_libraries(bare_startup PRIVATE comctl32)

file(GLOB sources CONFIGURE_DEPENDS *.cpp win32/*.cpp)
add_executable(kestrava_bench ${sources})
target_include_directories(kestrava_bench PRIVATE . win32)
target_link_libraries(kestrava_bench PRIVATE kestrava_logic kestrava_win32 iphlpapi ws2_32)
foreach(program kestrava_startup bare_startup kestrava_bench)
  target_link_options(${program} PRIVATE -static -s)
endforeach()
# What the bench runs as programs of their own.
add_dependencies(kestrava_bench kestrava kestrava_startup bare_startup)
