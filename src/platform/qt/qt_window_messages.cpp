#include "platform/qt/qt_window_messages.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "platform/menu.h"
#include "platform/qt/wayland.h"

namespace kestrava {

namespace {

/// The address of the procedure that every window has at first. It answers nothing: the toolkit
/// sees to its windows by itself.
constexpr std::int32_t kDefaultProcedure = 1;
constexpr std::int32_t kFirstAddress = 2;

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

std::int32_t QtWindowMessages::WindowHandle(const Form& form) const {
  if (!windows_.WidgetOf(form)) return 0;
  const auto found = std::ranges::find(forms_, &form);
  const auto place = found - forms_.begin();
  if (found == forms_.end()) forms_.push_back(&form);
  return static_cast<std::int32_t>(place + 1);
}

std::int32_t QtWindowMessages::AddressOf(WindowProc procedure) {
  procedures_.push_back(std::move(procedure));
  return kFirstAddress + static_cast<std::int32_t>(procedures_.size()) - 1;
}

std::int32_t QtWindowMessages::SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) {
  const bool known =
      address >= kDefaultProcedure && address <= static_cast<std::int32_t>(procedures_.size()) + 1;
  if (index != GWL_WNDPROC || !known || !WindowOf(hWnd)) return 0;
  const auto [place, added] = addresses_.try_emplace(hWnd, kDefaultProcedure);
  return std::exchange(place->second, address);
}

std::int32_t QtWindowMessages::CallWindowProcA(std::int32_t address, std::int32_t hWnd,
                                               std::int32_t uMsg, std::int32_t wParam,
                                               std::int32_t lParam) {
  const auto place = static_cast<std::size_t>(address - kFirstAddress);
  if (address < kFirstAddress || place >= procedures_.size()) return 0;
  return procedures_[place](hWnd, uMsg, wParam, lParam);
}

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
  const auto send = [=, this] {
    const auto found = addresses_.find(hWnd);
    if (found == addresses_.end() || !WindowOf(hWnd)) return;
    CallWindowProcA(found->second, hWnd, uMsg, wParam, lParam);
  };
  QTimer::singleShot(0, &receiver_, send);
}

QWidget* QtWindowMessages::WindowOf(std::int32_t hWnd) const {
  if (hWnd < 1 || hWnd > static_cast<std::int32_t>(forms_.size())) return nullptr;
  return windows_.WidgetOf(*forms_[static_cast<std::size_t>(hWnd - 1)]);
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
