#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <memory>

#include "platform/numbered_windows.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_window_system.h"

namespace kestrava {

/// Window messages for the windows of a `QtWindowSystem`.
class QtWindowMessages final : public NumberedWindows {
 public:
  QtWindowMessages(QtWindowSystem& windows, ModalWaits& waits, QtEventLoop& eventLoop)
      : windows_(windows), waits_(waits), eventLoop_(eventLoop) {}

  /// Brings those that wait above it to the front, too.
  void SetForegroundWindow(std::int32_t hWnd) override;
  /// While another popup is open, that one is opened afresh instead: what the user asks for twice
  /// doesn't answer, for want of the pointer, say.
  void PopupMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) override;
  void SetIconMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) override;

  /// `Send` in a later turn of the event loop.
  void Post(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam, std::int32_t lParam);

  /// The widget of a loaded window, or nullptr.
  QWidget* WindowOf(std::int32_t hWnd) const;
  QIcon IconOf(std::int32_t hIcon) const;

  /// The menu of `SetIconMenu`, or nullptr where there is none, or its form isn't loaded.
  std::unique_ptr<QMenu> MakeIconMenu() const;

 private:
  bool IsLoaded(const Form& form) const override { return windows_.WidgetOf(form); }

  /// A menu of a form, and the entry that is marked as its default.
  struct Popup {
    const Form* form = nullptr;
    const MenuEntry* menu = nullptr;
    const MenuEntry* defaultEntry = nullptr;
  };

  /// The menu as a widget, or nullptr where its form isn't loaded.
  std::unique_ptr<QMenu> MakeMenu(const Popup& popup) const;

  QtWindowSystem& windows_;
  ModalWaits& waits_;
  QtEventLoop& eventLoop_;
  QObject receiver_;  ///< messages that are under way go with it
  Popup iconMenu_;
  QPointer<QMenu> popup_;
  bool popupAskedAgain_ = false;
};

}  // namespace kestrava
