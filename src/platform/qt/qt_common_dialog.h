#pragma once

#include "platform/common_dialog.h"
#include "platform/qt/modal_waits.h"

class QFileDialog;

namespace kestrava {

/// Qt's own file dialogs: one of the desktop's would neither go to the tray with the other windows
/// nor tell that it was minimised, and knows no names but those in UTF-8.
class QtCommonDialog final : public CommonDialog {
 public:
  explicit QtCommonDialog(ModalWaits& waits) : waits_(waits) {}

  void ShowOpen() override;
  void ShowSave() override;

 private:
  void Ask(QFileDialog& dialog);

  ModalWaits& waits_;
};

}  // namespace kestrava
