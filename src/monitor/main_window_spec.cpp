#include "monitor/main_window_spec.h"

#include "platform/program_title.h"

namespace kestrava {

namespace {

using enum ControlKind;
using enum MenuKind;

// clang-format off
constexpr ControlSpec kControls[] = {
    // name        kind           caption                  left   top  width height  tab order
    {"grdServers", Grid,          "",                        30,   30,  9810,  5355,  0},
    {"cmdAdd",     Button,        "Add New Connection",    9900,   75,  1215,   495,  1},
    {"cmdCheck",   Button,        "Check Now !",           9900, 4860,  1215,   495,  2},
    {"Rdp",        RemoteDesktop, "",                        60, 5415,   600,   540,  3},
    {"cmdRemove",  Button,        "Remove Connection(s)",  9900,  585,  1215,   495,  4},
};

constexpr MenuSpec kMenu[] = {
    // name           kind        caption                          shortcut  visible
    {"mnufile",        Menu,      "&File",                          "",   true},
    {"mnuFileNew",     Entry,     "&New Connection List",           "",   true},
    {"mnuFileBrk1",    Separator, "",                               "",   true},
    {"mnuFileLoad",    Entry,     "&Load Connection List",          "",   true},
    {"mnuFileSave",    Entry,     "&Save Connection List",          "",   true},
    {"mnuFileBrk2",    Separator, "",                               "",   true},
    {"mnuFileAuto",    Entry,     "Auto Load Last Connection List", "",   true},
    {"mnuFileRestore", FreeEntry, "Restore Kestrava",               "",   false},
    {"mnuFileBrk3",    Separator, "",                               "",   true},
    {"mnuFileTray",    FreeEntry, "Send to Tray",                   "",   true},
    {"mnuFileBrk4",    Separator, "",                               "",   true},
    {"mnuFileExit",    FreeEntry, "E&xit",                          "",   true},
    {"mnuConn",        Menu,      "&Connections",                   "",   true},
    {"mnuConnCreate",  Entry,     "Create New Connection",          "",   true},
    {"mnuConnBrk1",    Separator, "",                               "",   true},
    {"mnuConnPref",    Entry,     "&Preferences",                   "",   true},
    {"mnuHelp",        Menu,      "&Help",                          "",   true},
    {"mnuHelpCont",    Entry,     "Contents",                       "F1", true},
    {"mnuHelpBrk1",    Separator, "",                               "",   true},
    {"mnuHelpAbout",   Entry,     "&About",                         "F2", true},
};

constexpr TimerSpec kTimers[] = {
    // name       interval enabled
    {"tmrCheck",   60000,  true},
    {"tmrBalloon",  5000,  false},
};
// clang-format on

}  // namespace

constinit const FormSpec kMainWindowSpec = {
    .name = "frmMain",
    .caption = kProgramTitle,
    .style = FormStyle::MainWindow,
    .width = 11190,
    .height = 5445,
    .controls = kControls,
    .menu = kMenu,
    .timers = kTimers,
    .defaultButton = "",
    .cancelButton = "",
};

}  // namespace kestrava
