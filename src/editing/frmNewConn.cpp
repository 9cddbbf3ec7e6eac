#include "editing/frmNewConn.h"

#include "general/modGeneral.h"
#include "platform/message_box.h"

namespace kestrava {

namespace {

using enum ControlKind;

// clang-format off
constexpr ControlSpec kControls[] = {
    // name         kind     caption                  left   top  width height  tab order
    {"lblName",     Label,   "Connection Name",         75,   90,  1680,   210,  0},
    {"txtName",     TextBox, "",                        75,  360,  4545,   285,  1},
    {"lblAddress",  Label,   "Connection IP Address",   75,  675,  1680,   210,  2},
    {"txtAddress",  TextBox, "",                        75,  945,  4545,   285,  3},
    {"cmdSave",     Button,  "&Save",                   75, 1335,  2205,   345,  4},
    {"cmdCancel",   Button,  "&Cancel",               2415, 1335,  2205,   345,  5},
};
// clang-format on

constexpr FormSpec kForm = {
    .name = "frmNewConn",
    .caption = "Add New Connection",
    .style = FormStyle::ToolWindow,
    .width = 4680,
    .height = 1770,
    .controls = kControls,
    .menu = {},
    .timers = {},
    .defaultButton = "cmdSave",
    .cancelButton = "cmdCancel",
};

}  // namespace

frmNewConn::frmNewConn(const WindowSystem& windows, MessageBoxes& messageBoxes)
    : Form(kForm), windows_(windows), messageBoxes_(messageBoxes) {
  Load.Connect([this] { Form_Load(); });
  cmdSave.Click.Connect([this] { cmdSave_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmNewConn::Form_Load() { CenterForm(*this, windows_); }

void frmNewConn::cmdSave_Click() {
  if (txtName.Text().empty()) return Refuse("Connection Name Cannot be Left Blank");
  if (txtAddress.Text().empty()) return Refuse("Connection Address Cannot be Left Blank");
  if (!IsDottedAddress(txtAddress.Text())) return Refuse("The Address format is not recognised");
  SavingConn = true;
  SetVisible(false);
}

void frmNewConn::cmdCancel_Click() {
  SavingConn = false;
  SetVisible(false);
}

void frmNewConn::Refuse(const char* message) { messageBoxes_.MsgBox(message, MessageIcon::Stop); }

}  // namespace kestrava
