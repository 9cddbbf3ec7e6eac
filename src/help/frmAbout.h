#pragma once

#include "platform/form.h"

namespace kestrava {

class RegAPI;
class WindowSystem;

/// The about box: the program's picture, name and version, and a link to its web site. The title
/// bar's close box is the way out.
class frmAbout : public Form {
 public:
  frmAbout(const WindowSystem& windows, RegAPI& browser);

  Picture Image1{*this, "Image1"};
  Label lblTitle{*this, "lblTitle"};
  Label lblWeb{*this, "lblWeb"};

 private:
  void Form_Load();
  void lblWeb_Click();

  const WindowSystem& windows_;
  RegAPI& browser_;
};

}  // namespace kestrava
