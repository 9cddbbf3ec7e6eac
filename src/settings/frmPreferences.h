#pragma once

#include "platform/form.h"

namespace kestrava {

class MessageBoxes;

/// The dialog of the check interval and the tray options. The caller loads it, fills the controls,
/// opens it modally and reads `Saving` and the controls before it unloads it.
class frmPreferences : public Form {
 public:
  explicit frmPreferences(MessageBoxes& messageBoxes);

  /// True once the user pressed `cmdSave` with an interval that is a whole number of minutes.
  bool Saving = false;

  Label lblCheck{*this, "lblCheck"};
  TextBox txtInterval{*this, "txtInterval"};
  CheckBox chkBalloon{*this, "chkBalloon"};
  CheckBox chkTray{*this, "chkTray"};
  CheckBox chkStartup{*this, "chkStartup"};  ///< stored and given back, never shown
  Button cmdSave{*this, "cmdSave"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void cmdSave_Click();
  void cmdCancel_Click();

  MessageBoxes& messageBoxes_;
};

}  // namespace kestrava
