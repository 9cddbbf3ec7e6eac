#pragma once

#include <functional>
#include <map>
#include <memory>

#include "platform/win32/handles.h"
#include "platform/win32/modal_waits.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/window_system.h"

namespace kestrava {

class NativeMenu;
class NativeWindow;

/// Windows of the system itself. The main window owns those of the dialogs, and they go and come
/// with it.
class Win32WindowSystem final : public WindowSystem {
 public:
  explicit Win32WindowSystem(Win32EventLoop& eventLoop) : eventLoop_(eventLoop) {}
  ~Win32WindowSystem() override;

  void Load(Form& form) override { Load(form, nullptr); }
  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Unload(Form& form) override;
  TwipSize ScreenSize(const Form& form) const override;
  TwipSize OuterSize(const Form& form) const override;

  /// `Load` with `picture` in the form's pictures, in place of the program's icon.
  void Load(Form& form, HICON__* picture);
  /// `ShowModal` without waiting: `answered` is called once, by a message of its own, when the form
  /// has been hidden.
  void Open(Form& form, std::function<void()> answered);

  /// The native window of a loaded form, or nullptr.
  HWND__* WindowOf(const Form& form) const;
  /// The menus of a loaded form, or nullptr.
  const NativeMenu* MenuOf(const Form& form) const;
  ModalWaits& Waits() { return waits_; }
  bool HasEnded() const { return eventLoop_.HasEnded(); }

 private:
  /// A loaded form, with what is to happen when it is hidden.
  struct Loaded {
    std::shared_ptr<NativeWindow> window;
    std::function<void()> answered;
  };

  Loaded* Find(const Form& form);
  const Loaded* Find(const Form& form) const;
  void Close(Form& form);
  void TakeHidden(const Form& form);

  Win32EventLoop& eventLoop_;
  ModalWaits waits_;
  std::map<const Form*, Loaded> windows_;
};

}  // namespace kestrava
