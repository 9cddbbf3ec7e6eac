#pragma once

#include "platform/common_dialog.h"
#include "platform/qt/qt_event_loop.h"

class QFileDialog;

namespace kestrava {

/// The desktop's own file dialogs where there are any, and Qt's elsewhere.
class QtCommonDialog final : public CommonDialog {
 public:
  explicit QtCommonDialog(QtEventLoop& eventLoop) : eventLoop_(eventLoop) {}

  void ShowOpen() override;
  void ShowSave() override;

 private:
  void Ask(QFileDialog& dialog);

  QtEventLoop& eventLoop_;
};

}  // namespace kestrava
