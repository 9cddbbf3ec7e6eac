#pragma once

#include <vector>

#include "platform/win32/handles.h"

namespace kestrava {

/// The windows that wait for the user's answer: dialogs, boxes and the system's file dialogs. Each
/// stands above the one that was there before it and blocks that and all below, down to the main
/// window, but nothing else: the icon in the tray works on. They come and go with the main window,
/// out of sight and back, without an end to their waits.
class ModalWaits {
 public:
  /// `window` is the one below all that wait; nullptr once there is none any more.
  void SetMainWindow(HWND__* window) { mainWindow_ = window; }
  HWND__* MainWindow() const { return mainWindow_; }

  /// The window that the next one is to belong to; nullptr where there is no main window.
  HWND__* Owner() const;
  bool Any() const { return !open_.empty(); }

  /// `window` waits from now on, above all others, until it is removed. nullptr stands for a window
  /// of the system's own, which blocks its owner by itself.
  void Add(HWND__* window);
  /// To be called before the window leaves the screen: else the system would hand the keys to
  /// another program.
  void Remove(HWND__* window);

  /// Takes the windows off the screen; they go on waiting.
  void Hide();
  /// Brings them back, the topmost in front and in use.
  void Show();
  /// The topmost of all windows is put in front and in use.
  void BringToFront() const;

  /// Ends the waits that are the system's own: its file dialogs and its menus.
  void Cancel() const;

 private:
  /// Only the topmost window takes input.
  void Block() const;

  HWND__* mainWindow_ = nullptr;
  std::vector<HWND__*> open_;    ///< from the lowest to the topmost
  std::vector<HWND__*> hidden_;  ///< by `Hide`, the topmost first
};

/// A window of the system's own waits for as long as this lives.
class SystemWait {
 public:
  explicit SystemWait(ModalWaits& waits) : waits_(waits) { waits_.Add(nullptr); }
  ~SystemWait() { waits_.Remove(nullptr); }
  SystemWait(const SystemWait&) = delete;
  SystemWait& operator=(const SystemWait&) = delete;

 private:
  ModalWaits& waits_;
};

}  // namespace kestrava
