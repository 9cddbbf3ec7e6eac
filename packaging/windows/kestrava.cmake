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
target_link_libraries(kestrava PRIVATE kestrava_logic kestrava_win32)
target_link_options(kestrava PRIVATE -static -s -Wl,--dynamicbase,--nxcompat,--high-entropy-va
                    -Wl,--no-insert-timestamp)

# A few lists to begin with, where the file dialogs start, and the manual.
file(COPY resources/Lists web DESTINATION ${PROJECT_BINARY_DIR})

# The setup program, made on demand: cmake --build --preset windows --target setup
find_program(MAKENSIS makensis)
if(MAKENSIS)
  set(program ${PROJECT_BINARY_DIR}/kestrava.exe)
  set(setup_program ${PROJECT_BINARY_DIR}/kestrava-${PROJECT_VERSION}-setup.exe)
  set(setup_script ${PROJECT_BINARY_DIR}/generated/setup.nsi)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/setup.nsi.in ${setup_script} @ONLY)
  file(GLOB documents CONFIGURE_DEPENDS resources/Lists/*.kvl web/*.html web/KVManual/*.png)
  add_custom_command(
    OUTPUT ${setup_program}
    COMMAND ${MAKENSIS} -V2 -WX ${setup_script}
    DEPENDS kestrava ${setup_script} ${documents} ${CMAKE_CURRENT_LIST_DIR}/kestrava.ico LICENSE
    VERBATIM)
  add_custom_target(setup DEPENDS ${setup_program})
endif()
