# The program for Linux, over Qt, and what is installed beside it.

find_package(PkgConfig REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
kestrava_layer(kestrava_linux src/platform/linux/*.cpp)
target_link_libraries(kestrava_linux PUBLIC kestrava_platform PRIVATE PkgConfig::GIO)

find_package(Qt6 6.4 REQUIRED COMPONENTS DBus Widgets)
kestrava_layer(kestrava_qt src/platform/qt/*.cpp)
set_target_properties(kestrava_qt PROPERTIES AUTOMOC ON)
target_link_libraries(kestrava_qt PUBLIC kestrava_platform Qt6::Widgets)

pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
kestrava_layer(kestrava_linux_desktop src/platform/linux_desktop/*.cpp
               src/platform/linux_desktop/tray/*.cpp)
set_target_properties(kestrava_linux_desktop PROPERTIES AUTOMOC ON)
target_link_libraries(kestrava_linux_desktop PUBLIC kestrava_linux kestrava_qt Qt6::DBus
                      PRIVATE PkgConfig::XCB)

add_executable(kestrava src/main.cpp resources/kestrava.qrc)
set_target_properties(kestrava PROPERTIES AUTORCC ON OPTIMISED_AS_A_WHOLE ON)
target_link_libraries(kestrava PRIVATE kestrava_logic kestrava_linux_desktop)
# A few lists to begin with, where the file dialogs start.
file(COPY resources/Lists DESTINATION ${PROJECT_BINARY_DIR})
# The manual, where the program that lies here looks for it.
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/web ${PROJECT_BINARY_DIR}/web
     COPY_ON_ERROR SYMBOLIC)
add_subdirectory(packaging)
