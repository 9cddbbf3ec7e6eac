#pragma once

#include "platform/form.h"

namespace kestrava {

class MessageBoxes;
class WindowSystem;

/// The dialog that asks for a new connection. The caller loads it, sets `txtName`, opens it modally
/// and reads `SavingConn` and the two texts before it unloads it.
class frmNewConn : public Form {
 public:
  frmNewConn(const WindowSystem& windows, MessageBoxes& messageBoxes);

  /// True when the user left the dialog by Save and both texts were good.
  bool SavingConn = false;

  Label lblName{*this, "lblName"};
  TextBox txtName{*this, "txtName"};
  Label lblAddress{*this, "lblAddress"};
  TextBox txtAddress{*this, "txtAddress"};
  Button cmdSave{*this, "cmdSave"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void Form_Load();
  void cmdSave_Click();
  void cmdCancel_Click();
  void Refuse(const char* message);

  const WindowSystem& windows_;
  MessageBoxes& messageBoxes_;
};

}  // namespace kestrava
