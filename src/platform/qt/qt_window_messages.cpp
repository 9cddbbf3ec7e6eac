#include "platform/qt/qt_window_messages.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QTimer>
#include <algorithm>

#include "platform/menu.h"
#include "platform/qt/wayland.h"

namespace kestrava {

namespace {

QMenu* FindMenu(const QWidget& window, const char* name) {
  const auto menus = window.findChildren<QMenu*>();
  const auto found = std::ranges::find(
      menus, name, [](const QMenu* menu) { return menu->menuAction()->objectName(); });
  return found == menus.end() ? nullptr : *found;
}

/// The pointer's place. Wayland doesn't tell it while the pointer is over other programs' windows,
/// and a popup stays away if it isn't beside the window that it was asked for in.
QPoint PopupPlace() {
  const QPoint pointer = QCursor::pos();
  const QWidget* asked = OnWayland() ? QApplication::activeWindow() : nullptr;
  return asked && !asked->geometry().contains(pointer) ? asked->geometry().center() : pointer;
}

}  // namespace

void QtWindowMessages::SetForegroundWindow(std::int32_t hWnd) {
  QWidget* window = WindowOf(hWnd);
  if (!window || !window->isVisible()) return;
  window->raise();
  window->activateWindow();
  waits_.BringToFront();
}

void QtWindowMessages::PopupMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) {
  // One that has gone may have left its command behind, which waits in a dialog.
  if (popup_ && popup_->isVisible()) {
    popupAskedAgain_ = true;
    popup_->close();
    return;
  }
  do {
    popupAskedAgain_ = false;
    const std::unique_ptr<QMenu> popup = MakeMenu({&form, &menu, &defaultEntry});
    if (!popup || eventLoop_.HasEnded()) return;
    QObject::connect(&eventLoop_, &QtEventLoop::Ended, popup.get(), &QWidget::close);
    popup_ = popup.get();
    popup->exec(PopupPlace());
  } while (popupAskedAgain_);
}

void QtWindowMessages::SetIconMenu(Form& form, const MenuEntry& menu,
                                   const MenuEntry& defaultEntry) {
  iconMenu_ = {&form, &menu, &defaultEntry};
}

void QtWindowMessages::Post(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam,
                            std::int32_t lParam) {
  QTimer::singleShot(0, &receiver_, [=, this] { Send(hWnd, uMsg, wParam, lParam); });
}

QWidget* QtWindowMessages::WindowOf(std::int32_t hWnd) const {
  const Form* form = FormOf(hWnd);
  return form ? windows_.WidgetOf(*form) : nullptr;
}

QIcon QtWindowMessages::IconOf(std::int32_t hIcon) const {
  const QWidget* window = WindowOf(hIcon);
  return window ? window->windowIcon() : QIcon();
}

std::unique_ptr<QMenu> QtWindowMessages::MakeIconMenu() const {
  return iconMenu_.form ? MakeMenu(iconMenu_) : nullptr;
}

std::unique_ptr<QMenu> QtWindowMessages::MakeMenu(const Popup& popup) const {
  const char* name = popup.menu->Spec().name;
  const QWidget* window = windows_.WidgetOf(*popup.form);
  const QMenu* source = window ? FindMenu(*window, name) : nullptr;
  if (!source) return nullptr;
  auto menu = std::make_unique<QMenu>();
  menu->setObjectName(name);
  for (QAction* action : source->actions()) {
    // The same actions as in the window's menu bar: they follow their entries.
    menu->addAction(action);
    if (action->objectName() == popup.defaultEntry->Spec().name) menu->setDefaultAction(action);
  }
  return menu;
}

}  // namespace kestrava
