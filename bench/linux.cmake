# What the figures come from. The two programs of `startup` differ in nothing but what they show.
add_executable(kestrava_startup ${PROJECT_SOURCE_DIR}/src/main.cpp
               ${PROJECT_SOURCE_DIR}/resources/kestrava.qrc linux/startup/first_paint.cpp)
set_target_properties(kestrava_startup PROPERTIES AUTORCC ON OPTIMISED_AS_A_WHOLE ON)
target_include_directories(kestrava_startup PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(kestrava_startup PRIVATE kestrava_logic kestrava_linux_desktop)

add_executable(bare_window linux/startup/bare_window.cpp)
target_link_libraries(bare_window PRIVATE Qt6::Widgets)

add_executable(bare_startup linux/startup/bare_window.cpp linux/startup/first_paint.cpp)
target_link_libraries(bare_startup PRIVATE Qt6::Widgets)

file(GLOB sources CONFIGURE_DEPENDS *.cpp linux/*.cpp)
add_executable(kestrava_bench ${sources})
set_target_properties(kestrava_bench PROPERTIES OPTIMISED_AS_A_WHOLE ON)
target_include_directories(kestrava_bench PRIVATE . linux)
target_link_libraries(kestrava_bench PRIVATE kestrava_logic kestrava_linux_desktop)
# What the bench runs as programs of their own.
add_dependencies(kestrava_bench kestrava kestrava_startup bare_startup bare_window)
