#include "editing/frmRemoveconn.h"

namespace kestrava {

namespace {

// clang-format off
constexpr ControlSpec kControls[] = {
    // name             kind                    caption     left   top  width height  tab order
    {"lstConnections",  ControlKind::CheckList, "",           30,   75,  4065,  3435,  0},
    {"cmdDelete",       ControlKind::Button,    "&Delete",    60, 3585,  1965,   405,  1},
    {"cmdCancel",       ControlKind::Button,    "&Cancel",  2100, 3585,  1965,   405,  2},
};
// clang-format on

constexpr FormSpec kForm = {
    .name = "frmRemoveconn",
    .caption = "Remove Connections",
    .style = FormStyle::ToolWindowWithoutClose,
    .width = 4140,
    .height = 4050,
    .controls = kControls,
    .menu = {},
    .timers = {},
    .defaultButton = "cmdDelete",
    .cancelButton = "cmdCancel",
};

}  // namespace

frmRemoveconn::frmRemoveconn() : Form(kForm) {
  cmdDelete.Click.Connect([this] { cmdDelete_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmRemoveconn::cmdDelete_Click() {
  colIndexes.clear();
  for (std::int32_t entry = 0; entry < lstConnections.ListCount(); ++entry) {
    if (lstConnections.Selected(entry)) colIndexes.push_back(entry + 1);
  }
  SetVisible(false);
}

void frmRemoveconn::cmdCancel_Click() {
  colIndexes.clear();
  SetVisible(false);
}

}  // namespace kestrava
