#include "platform/qt/qt_window_system.h"

#include <QEventLoop>
#include <QScreen>
#include <utility>

namespace kestrava {

void QtWindowSystem::Load(Form& form) {
  if (WindowOf(form)) return;
  form.CheckWhole();
  auto& window = windows_[&form] = std::make_unique<NativeWindow>(form, waits_.Owner());
  QObject::connect(window.get(), &NativeWindow::CloseRequested, window.get(),
                   [this, &form] { Close(form); });
  if (form.Spec().style == FormStyle::MainWindow) JoinWaits(*window);
  form.Load.Raise();
}

void QtWindowSystem::Show(Form& form) {
  if (WindowOf(form)) form.SetVisible(true);
}

void QtWindowSystem::ShowModal(Form& form) {
  NativeWindow* window = WindowOf(form);
  if (!window || eventLoop_.HasEnded()) return;
  QEventLoop wait;
  QObject::connect(window, &NativeWindow::Hidden, &wait, &QEventLoop::quit);
  QObject::connect(&eventLoop_, &QtEventLoop::Ended, &wait, &QEventLoop::quit);
  const ModalWaits::Wait waiting(waits_, window->Widget());
  form.SetVisible(true);
  if (form.Visible()) wait.exec();
  form.SetVisible(false);
}

void QtWindowSystem::Unload(Form& form) {
  if (!WindowOf(form)) return;
  form.Unload.Raise();
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  std::unique_ptr<NativeWindow> window = std::move(found->second);
  windows_.erase(found);
  window->Detach();
  form.SetVisible(false);
  if (form.Spec().style == FormStyle::MainWindow) {
    endedMainWindow_ = std::move(window);
    eventLoop_.End();
  } else {
    // Handlers of the window's own widgets may be running.
    window.release()->deleteLater();
  }
}

TwipSize QtWindowSystem::ScreenSize(const Form& form) const {
  const NativeWindow* window = WindowOf(form);
  if (!window) return {};
  const QSize size = window->Widget().screen()->size();
  return {window->Scale().ToTwips(size.width()), window->Scale().ToTwips(size.height())};
}

TwipSize QtWindowSystem::OuterSize(const Form& form) const {
  const NativeWindow* window = WindowOf(form);
  if (!window) return {};
  const QSize size = window->OuterSize();
  return {window->Scale().ToTwips(size.width()), window->Scale().ToTwips(size.height())};
}

QWidget* QtWindowSystem::WidgetOf(const Form& form) const {
  const NativeWindow* window = WindowOf(form);
  return window ? &window->Widget() : nullptr;
}

NativeWindow* QtWindowSystem::WindowOf(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

void QtWindowSystem::JoinWaits(NativeWindow& window) {
  waits_.SetMainWindow(window.Widget());
  QObject::connect(&window, &NativeWindow::Shown, &waits_, &ModalWaits::Show);
  QObject::connect(&window, &NativeWindow::Hidden, &waits_, &ModalWaits::Hide);
  QObject::connect(&waits_, &ModalWaits::Minimized, &window, &NativeWindow::Minimize);
  QObject::connect(&waits_, &ModalWaits::Waiting, &window, &NativeWindow::SetBlocked);
}

void QtWindowSystem::Close(Form& form) {
  if (form.Spec().style == FormStyle::MainWindow) {
    Unload(form);
  } else if (form.Spec().style != FormStyle::ToolWindowWithoutClose) {
    form.SetVisible(false);
  }
}

}  // namespace kestrava
