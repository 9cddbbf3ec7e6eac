#include "settings/frmPreferences.h"

#include "platform/message_box.h"
#include "settings/preferences.h"

namespace kestrava {

namespace {

// clang-format off
constexpr ControlSpec kControls[] = {
    // name          kind                   caption                                            left   top  width height tab
    {"lblCheck",     ControlKind::Label,    "Connection Status Check Interval (mins)",          105,   90,  2955,  255,  0},
    {"txtInterval",  ControlKind::TextBox,  "",                                                3135,   60,   960,  315,  1},
    {"chkBalloon",   ControlKind::CheckBox, "Show Balloon Popup when Running in System Tray",    75,  540,  4080,  255,  2},
    {"chkTray",      ControlKind::CheckBox, "Start Monitor in System Tray",                      75,  885,  4080,  255,  3},
    {"chkStartup",   ControlKind::CheckBox, "Start at Windows Startup",                          75, 1230,  4080,  255,  4},
    {"cmdSave",      ControlKind::Button,   "&Save Changes",                                     90, 1605,  2025,  345,  5},
    {"cmdCancel",    ControlKind::Button,   "&Cancel",                                         2145, 1605,  2025,  345,  6},
};
// clang-format on

constexpr FormSpec kForm = {
    .name = "frmPreferences",
    .caption = "Kestrava Preferences",
    .style = FormStyle::ToolWindowWithoutClose,
    .width = 4245,
    .height = 2040,
    .controls = kControls,
    .menu = {},
    .timers = {},
    .defaultButton = "cmdSave",
    .cancelButton = "cmdCancel",
};

}  // namespace

frmPreferences::frmPreferences(MessageBoxes& messageBoxes)
    : Form(kForm), messageBoxes_(messageBoxes) {
  chkStartup.SetVisible(false);
  cmdSave.Click.Connect([this] { cmdSave_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmPreferences::cmdSave_Click() {
  if (!ToMinutes(txtInterval.Text())) {
    messageBoxes_.MsgBox("The Check Interval must be a Whole Number of Minutes", MessageIcon::Stop);
    return;
  }
  Saving = true;
  SetVisible(false);
}

void frmPreferences::cmdCancel_Click() { SetVisible(false); }

}  // namespace kestrava
