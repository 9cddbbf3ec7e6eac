#pragma once

#include "platform/common_dialog.h"
#include "platform/win32/win32_window_system.h"

namespace kestrava {

/// The system's own file dialogs.
class Win32CommonDialog final : public CommonDialog {
 public:
  explicit Win32CommonDialog(Win32WindowSystem& windows) : windows_(windows) {}

  void ShowOpen() override;
  void ShowSave() override;

 private:
  enum class Purpose { Open, Save };
  void Ask(Purpose purpose);

  Win32WindowSystem& windows_;
};

}  // namespace kestrava
