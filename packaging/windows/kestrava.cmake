# The program for Windows, with nothing to install beside it.

enable_language(RC)

kestrava_layer(kestrava_win32 src/platform/win32/*.cpp src/platform/win32/tray/*.cpp)
target_link_libraries(kestrava_win32 PUBLIC kestrava_platform
                      PRIVATE comctl32 comdlg32 gdi32 iphlpapi shell32 shlwapi version ws2_32)

configure_file(${CMAKE_CURRENT_LIST_DIR}/kestrava.rc.in generated/kestrava.rc @ONLY)
set_source_files_properties(
  ${PROJECT_BINARY_DIR}/generated/kestrava.rc PROPERTIES OBJECT_DEPENDS
  "${CMAKE_CURRENT_LIST_DIR}/kestrava.ico;${CMAKE_CURRENT_LIST_DIR}/kestrava.manifest")

add_executable(kestrava WIN32 src/main_windows.cpp ${PROJECT_BINARY_DIR}/generated/kestrava.rc)
target_include_directories(kestrava PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(kestrava PRIVATE kestrava_logic kestrava_win32)
target_link_options(kestrava PRIVATE -static -s -Wl,--dynamicbase,--nxcompat,--high-entropy-va)

# A few lists to begin with, where the file dialogs start, and the manual.
file(COPY resources/Lists web DESTINATION ${PROJECT_BINARY_DIR})
