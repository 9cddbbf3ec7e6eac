#include "platform/win32/win32_window_system.h"

#include <utility>

#include "platform/win32/message_pump.h"
#include "platform/win32/native_window.h"
#include "platform/win32/window_frame.h"

namespace kestrava {

namespace {

bool IsMain(const Form& form) { return form.Spec().style == FormStyle::MainWindow; }

}  // namespace

Win32WindowSystem::~Win32WindowSystem() = default;

void Win32WindowSystem::Load(Form& form, HICON picture) {
  if (Find(form)) return;
  form.CheckWhole();
  const bool isMain = IsMain(form);
  NativeWindow::Observer observer;
  observer.closeRequested = [this, &form] { Close(form); };
  observer.hidden = [this, &form] { TakeHidden(form); };
  observer.commands = [this] { return waits_.Any() ? Commands::FreeOnly : Commands::All; };
  if (isMain) observer.shown = [this] { waits_.Show(); };
  observer.hiding = [this, &form, isMain] {
    if (isMain) return waits_.Hide();
    waits_.Remove(WindowOf(form));
  };
  const auto window = NativeWindow::Build(form, waits_.Owner(), picture, std::move(observer));
  windows_.emplace(&form, Loaded{window, {}});
  if (isMain) waits_.SetMainWindow(window->Handle());
  form.Load.Raise();
}

void Win32WindowSystem::Show(Form& form) {
  if (Find(form)) form.SetVisible(true);
}

void Win32WindowSystem::ShowModal(Form& form) {
  if (!Find(form) || HasEnded()) return;
  waits_.Add(WindowOf(form));
  form.SetVisible(true);
  while (form.Visible() && ServeNextMessage(eventLoop_)) continue;
  form.SetVisible(false);
}

void Win32WindowSystem::Open(Form& form, std::function<void()> answered) {
  Loaded* loaded = Find(form);
  if (!loaded || HasEnded()) return;
  loaded->answered = std::move(answered);
  waits_.Add(loaded->window->Handle());
  form.SetVisible(true);
}

void Win32WindowSystem::Unload(Form& form) {
  if (!Find(form)) return;
  form.Unload.Raise();
  Loaded* loaded = Find(form);
  if (!loaded) return;
  const auto window = loaded->window;
  if (IsMain(form)) {
    waits_.SetMainWindow(nullptr);
    waits_.Cancel();
    eventLoop_.End();
  }
  window->Detach();
  windows_.erase(&form);
  form.SetVisible(false);
}

TwipSize Win32WindowSystem::ScreenSize(const Form& form) const {
  const Loaded* loaded = Find(form);
  if (!loaded) return {};
  const RECT screen = ScreenOf(loaded->window->Handle());
  const TwipScale& scale = loaded->window->Scale();
  return {scale.ToTwips(static_cast<int>(screen.right - screen.left)),
          scale.ToTwips(static_cast<int>(screen.bottom - screen.top))};
}

TwipSize Win32WindowSystem::OuterSize(const Form& form) const {
  const Loaded* loaded = Find(form);
  if (!loaded) return {};
  RECT outer{};
  GetWindowRect(loaded->window->Handle(), &outer);
  const TwipScale& scale = loaded->window->Scale();
  return {scale.ToTwips(static_cast<int>(outer.right - outer.left)),
          scale.ToTwips(static_cast<int>(outer.bottom - outer.top))};
}

HWND Win32WindowSystem::WindowOf(const Form& form) const {
  const Loaded* loaded = Find(form);
  return loaded ? loaded->window->Handle() : nullptr;
}

const NativeMenu* Win32WindowSystem::MenuOf(const Form& form) const {
  const Loaded* loaded = Find(form);
  return loaded ? loaded->window->Menu() : nullptr;
}

Win32WindowSystem::Loaded* Win32WindowSystem::Find(const Form& form) {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : &found->second;
}

const Win32WindowSystem::Loaded* Win32WindowSystem::Find(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : &found->second;
}

void Win32WindowSystem::Close(Form& form) {
  if (IsMain(form)) {
    Unload(form);
  } else if (form.Spec().style != FormStyle::ToolWindowWithoutClose) {
    form.SetVisible(false);
  }
}

void Win32WindowSystem::TakeHidden(const Form& form) {
  Loaded* loaded = Find(form);
  if (!loaded || !loaded->answered) return;
  const auto answered = std::exchange(loaded->answered, {});
  answered();
}

}  // namespace kestrava
