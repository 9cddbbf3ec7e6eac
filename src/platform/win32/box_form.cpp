#include "platform/win32/box_form.h"

#include <algorithm>
#include <utility>

#include "platform/twips.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr const char* kPicture = "picture";
constexpr const char* kText = "text";
constexpr const char* kField = "field";
constexpr const char* kFirst = "first";
constexpr const char* kSecond = "second";

// In twips.
constexpr int kMargin = 180;
constexpr int kGap = 120;
constexpr int kPictureSize = 480;
constexpr int kLineWidth = 5400;
constexpr int kWidestLine = 12000;
constexpr int kFieldWidth = 4800;
constexpr int kFieldHeight = 315;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;

struct TwipRoom {
  int width;
  int height;
};

/// The room that the text takes, a little more than measured.
TwipRoom RoomFor(const std::string& text) {
  const UiFont font(GetDpiForSystem());
  const TwipScale scale = TwipScale::ForFontHeight(font.Height());
  const PixelSize size = font.SizeOf(ToWide(text), scale.ToPixels(kLineWidth), Ampersand::Itself);
  return {std::min(scale.ToTwips(size.width + 2), kWidestLine), scale.ToTwips(size.height + 2)};
}

}  // namespace

BoxTables::BoxTables(BoxContent content) : content_(std::move(content)), boxSpec_{} {
  const bool asksTwo = *content_.secondButton != '\0';
  TwipRoom text = RoomFor(content_.text);
  const int left = content_.picture ? kMargin + kPictureSize + kMargin : kMargin;
  if (content_.textField) text.width = std::max(text.width, kFieldWidth);
  const int buttons = asksTwo ? 2 * kButtonWidth + kGap : kButtonWidth;
  const int width = std::max(left + text.width, kMargin + buttons) + kMargin;

  int tab = 0;
  int bottom = kMargin + text.height;
  const auto add = [&](const char* name, ControlKind kind, const char* caption, int x, int y,
                       TwipRoom room) {
    controls_.push_back({name, kind, caption, x, y, room.width, room.height, tab++});
  };
  if (content_.picture) {
    add(kPicture, ControlKind::Picture, "", kMargin, kMargin, {kPictureSize, kPictureSize});
    bottom = std::max(bottom, kMargin + kPictureSize);
  }
  add(kText, ControlKind::Label, content_.text.c_str(), left, kMargin, text);
  if (content_.textField) {
    add(kField, ControlKind::TextBox, "", left, bottom + kGap, {text.width, kFieldHeight});
    bottom += kGap + kFieldHeight;
  }
  const int top = bottom + kMargin;
  int place = width - kMargin - buttons;
  add(kFirst, ControlKind::Button, content_.firstButton, place, top, {kButtonWidth, kButtonHeight});
  place += kButtonWidth + kGap;
  if (asksTwo) {
    add(kSecond, ControlKind::Button, content_.secondButton, place, top,
        {kButtonWidth, kButtonHeight});
  }
  boxSpec_ = {.name = "KestravaBox",
              .caption = content_.title.c_str(),
              .style = FormStyle::ToolWindow,
              .width = width,
              .height = top + kButtonHeight + kMargin,
              .controls = controls_,
              .menu = {},
              .timers = {},
              .defaultButton = kFirst,
              .cancelButton = asksTwo ? kSecond : kFirst};
}

BoxForm::BoxForm(BoxContent content)
    : BoxTables(std::move(content)), Form(boxSpec_), text_(*this, kText) {
  if (content_.picture) picture_.emplace(*this, kPicture);
  if (content_.textField) field_.emplace(*this, kField);
  buttons_.push_back(std::make_unique<Button>(*this, kFirst));
  buttons_.back()->Click.Connect([this] {
    confirmed_ = true;
    SetVisible(false);
  });
  if (*content_.secondButton == '\0') return;
  buttons_.push_back(std::make_unique<Button>(*this, kSecond));
  buttons_.back()->Click.Connect([this] { SetVisible(false); });
}

}  // namespace kestrava
