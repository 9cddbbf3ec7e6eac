#include "help/frmAbout.h"

#include <string>

#include "general/modGeneral.h"
#include "help/RegAPI.h"
#include "help/program_info.h"
#include "help/web_pages.h"

namespace kestrava {

namespace {

// clang-format off
constexpr ControlSpec kControls[] = {
    // name       kind                  caption   left  top  width height  tab order
    {"Image1",    ControlKind::Picture, "",         45,  30,   720,   720,  0},
    {"lblTitle",  ControlKind::Label,   "",        915,  75,  3705,   255,  1},
    {"lblWeb",    ControlKind::Label,   kWebHost,  930, 690,  3765,   240,  2},
};
// clang-format on

constexpr FormSpec kForm = {
    .name = "frmAbout",
    .caption = "About Kestrava",
    .style = FormStyle::ToolWindow,
    .width = 4680,
    .height = 960,
    .controls = kControls,
    .menu = {},
    .timers = {},
    .defaultButton = "",
    .cancelButton = "",
};

constexpr LabelLook kTitleLook = {.family = "Verdana", .points = 9.75, .bold = true};
constexpr LabelLook kLinkLook = {.family = "Verdana", .points = 8.25, .link = true};

}  // namespace

frmAbout::frmAbout(const WindowSystem& windows, RegAPI& browser)
    : Form(kForm), windows_(windows), browser_(browser) {
  lblTitle.SetLook(kTitleLook);
  lblWeb.SetLook(kLinkLook);
  Load.Connect([this] { Form_Load(); });
  lblWeb.Click.Connect([this] { lblWeb_Click(); });
}

void frmAbout::Form_Load() {
  CenterForm(*this, windows_);
  lblTitle.SetCaption(std::string(kProgramTitle) + " Version " + kProgramVersion);
}

void frmAbout::lblWeb_Click() { browser_.OpenUrlInBrowser(WebSiteUrl()); }

}  // namespace kestrava
