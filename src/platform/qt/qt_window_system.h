#pragma once

#include <map>
#include <memory>

#include "platform/qt/modal_waits.h"
#include "platform/qt/native_window.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/window_system.h"

namespace kestrava {

/// Windows as Qt widgets. The main window owns those of the dialogs, and they go and come with it.
class QtWindowSystem final : public WindowSystem {
 public:
  QtWindowSystem(QtEventLoop& eventLoop, ModalWaits& waits)
      : eventLoop_(eventLoop), waits_(waits) {}

  void Load(Form& form) override;
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Unload(Form& form) override;
  TwipSize ScreenSize(const Form& form) const override;
  TwipSize OuterSize(const Form& form) const override;

  /// The native window of a loaded form, or nullptr.
  QWidget* WidgetOf(const Form& form) const;

 private:
  NativeWindow* WindowOf(const Form& form) const;
  /// Joins the main window with the windows that wait above it.
  void JoinWaits(NativeWindow& window);
  void Close(Form& form);

  QtEventLoop& eventLoop_;
  ModalWaits& waits_;
  /// The main window, whose widget owns those of the dialogs, stays to the end.
  std::unique_ptr<NativeWindow> endedMainWindow_;
  std::map<const Form*, std::unique_ptr<NativeWindow>> windows_;
};

}  // namespace kestrava
