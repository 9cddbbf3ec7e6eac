#include "platform/win32/native_window.h"

#include <algorithm>
#include <string_view>

#include "platform/win32/program_icon.h"
#include "platform/win32/window_frame.h"

namespace kestrava {

namespace {

/// Numbers of controls: the place in the form's table comes on top.
constexpr int kFirstControl = 100;
constexpr UINT_PTR kFirstTimer = 1;

/// Messages that the window sends to itself.
enum OwnMessage : UINT {
  kWindowStateChanged = WM_APP,
  kHidden,
};

bool AnyModifier() {
  return std::ranges::any_of(std::initializer_list<int>{VK_SHIFT, VK_CONTROL, VK_MENU},
                             [](int key) { return GetKeyState(key) < 0; });
}

}  // namespace

std::shared_ptr<NativeWindow> NativeWindow::Build(Form& form, HWND owner, HICON picture,
                                                  Observer observer) {
  std::shared_ptr<NativeWindow> window(new NativeWindow(form, owner, std::move(observer)));
  window->BuildControls(picture ? picture : ProgramIcon(IconSize::Large));
  window->Arrange();
  for (Timer* timer : form.Timers()) {
    window->timers_.push_back(std::make_unique<NativeTimer>(*timer, window->handle_,
                                                            kFirstTimer + window->timers_.size()));
  }
  window->observation_ = form.Observe([native = window.get()] { native->ShowForm(); });
  window->ShowForm();
  return window;
}

NativeWindow::NativeWindow(Form& form, HWND owner, Observer observer)
    : form_(&form),
      observer_(std::move(observer)),
      handle_(MakeWindow(form.Spec(), owner, Procedure)),
      fontFor_(USER_DEFAULT_SCREEN_DPI),
      font_(fontFor_) {
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  if (!form.Spec().menu.empty()) menu_.emplace(form, handle_);
}

NativeWindow::~NativeWindow() {
  if (form_) Detach();
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  controls_.clear();
  DestroyWindow(handle_);
}

NativeWindow* NativeWindow::Of(HWND handle) {
  if (!handle || GetWindowLongPtrW(handle, GWLP_WNDPROC) !=
                     reinterpret_cast<LONG_PTR>(&NativeWindow::Procedure)) {
    return nullptr;
  }
  return reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
}

void NativeWindow::Detach() {
  timers_.clear();
  for (const auto& control : controls_) control->Detach();
  observation_ = {};
  form_ = nullptr;
  if (shown_ && observer_.hiding) observer_.hiding();
  observer_ = {};
  ShowWindow(handle_, SW_HIDE);
}

bool NativeWindow::TakeKey(MSG& message) {
  const auto keep = shared_from_this();
  if (menu_ && message.message == WM_KEYDOWN && IsWindowEnabled(handle_) && !AnyModifier() &&
      menu_->RunShortcut(message.wParam, observer_.commands())) {
    return true;
  }
  return IsDialogMessageW(handle_, &message) != FALSE;
}

LRESULT CALLBACK NativeWindow::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* window = reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (!window) return DefDlgProcW(handle, message, wParam, lParam);
  const auto keep = window->shared_from_this();
  const auto answer =
      window->form_ ? window->Serve(message, wParam, lParam) : std::optional<LRESULT>();
  return answer ? *answer : DefDlgProcW(handle, message, wParam, lParam);
}

std::optional<LRESULT> NativeWindow::Serve(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      observer_.closeRequested();
      return 0;
    case WM_COMMAND:
      TakeCommand(wParam, lParam);
      return 0;
    case WM_NOTIFY: {
      auto& note = *reinterpret_cast<NMHDR*>(lParam);
      NativeControl* control = ControlOf(static_cast<int>(note.idFrom));
      if (!control) break;
      return control->TakeNotification(note);
    }
    case WM_TIMER:
      if (wParam - kFirstTimer < timers_.size()) timers_[wParam - kFirstTimer]->TakeEnd();
      return 0;
    case WM_INITMENUPOPUP:
      if (menu_) menu_->Fill(reinterpret_cast<HMENU>(wParam), observer_.commands());
      break;
    case WM_SIZE:
      // What follows hides the window, which the system is in the midst of minimising.
      PostMessageW(handle_, kWindowStateChanged, 0, 0);
      break;
    case kWindowStateChanged:
      TakeWindowState();
      return 0;
    case kHidden:
      if (const auto hidden = observer_.hidden) hidden();
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT || form_->Pointer() == MousePointer::Default) break;
      ShowPointer(handle_, form_->Pointer());
      return TRUE;
    case WM_DPICHANGED: {
      Arrange();
      const auto& wanted = *reinterpret_cast<const RECT*>(lParam);
      SetWindowPos(handle_, nullptr, wanted.left, wanted.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      return 0;
    }
    case WM_SETTINGCHANGE:
      if (wParam != SPI_SETNONCLIENTMETRICS) break;
      fontFor_ = 0;
      Arrange();
      break;
    case WM_SYSCOLORCHANGE:
      for (const auto& control : controls_) SendMessageW(control->Handle(), message, 0, 0);
      break;
    default:
      break;
  }
  return std::nullopt;
}

void NativeWindow::BuildControls(HICON picture) {
  const auto table = form_->Spec().controls;
  std::vector<Control*> controls = form_->Controls();
  std::ranges::sort(controls, {}, [](const Control* control) { return control->Spec().tabOrder; });
  for (Control* control : controls) {
    const int id = kFirstControl + static_cast<int>(&control->Spec() - table.data());
    auto native = MakeNativeControl(*control, handle_, id, picture);
    if (!native) continue;
    if (std::string_view(control->Spec().name) == form_->Spec().defaultButton) {
      SendMessageW(handle_, DM_SETDEFID, static_cast<WPARAM>(id), 0);
    }
    native->Follow();
    controls_.push_back(std::move(native));
  }
}

void NativeWindow::TakeCommand(WPARAM wParam, LPARAM lParam) {
  const int id = LOWORD(wParam);
  if (id == IDCANCEL) return LeaveByEscape();
  if (NativeControl* control = ControlOf(id)) return control->TakeCommand(HIWORD(wParam));
  if (menu_ && lParam == 0) menu_->Run(static_cast<UINT>(id), observer_.commands());
}

NativeControl* NativeWindow::ControlOf(int id) const {
  const HWND handle = GetDlgItem(handle_, id);
  const auto found = std::ranges::find(controls_, handle, &NativeControl::Handle);
  return handle && found != controls_.end() ? found->get() : nullptr;
}

void NativeWindow::LeaveByEscape() {
  const FormSpec& spec = form_->Spec();
  const auto cancel = std::ranges::find_if(controls_, [&](const auto& control) {
    return std::string_view(control->Spec().name) == spec.cancelButton;
  });
  if (cancel != controls_.end()) {
    (*cancel)->TakeCommand(BN_CLICKED);
  } else if (spec.style == FormStyle::ToolWindow) {
    observer_.closeRequested();
  }
}

void NativeWindow::Arrange() {
  const UINT dotsPerInch = GetDpiForWindow(handle_);
  std::optional<UiFont> before;
  // The controls let go of the one before ahead of its end.
  if (std::exchange(fontFor_, dotsPerInch) != dotsPerInch) {
    before = std::exchange(font_, UiFont(dotsPerInch));
  }
  scale_ = TwipScale::ForFontHeight(font_.Height());
  for (const auto& control : controls_) control->SetScale(scale_, dotsPerInch, font_);
  // A word without end would have a window without end.
  const int most = 2 * scale_.ToPixels(form_->Spec().width);
  while (!Fits(scale_) && scale_.ToPixels(form_->Spec().width) < most) scale_ = scale_.Larger();
  GiveRoom();
  for (const auto& control : controls_) {
    control->SetScale(scale_, dotsPerInch, font_);
    const PixelPlace place = scale_.PlaceOf(control->Spec());
    SetWindowPos(control->Handle(), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  SizeInner(handle_, {scale_.ToPixels(form_->Spec().width), scale_.ToPixels(form_->Spec().height)});
  InvalidateRect(handle_, nullptr, TRUE);
}

bool NativeWindow::Fits(const TwipScale& scale) const {
  return std::ranges::all_of(controls_, [&](const auto& control) {
    const PixelPlace place = scale.PlaceOf(control->Spec());
    return control->FitsInto({place.width, place.height});
  });
}

void NativeWindow::GiveRoom() {
  const RECT screen = ScreenOf(handle_);
  for (TwipScale scale = scale_; scale.ToPixels(form_->Spec().width) <= screen.right - screen.left;
       scale = scale.Larger()) {
    if (!std::ranges::all_of(controls_,
                             [&](const auto& control) { return control->HasRoom(scale); })) {
      continue;
    }
    scale_ = scale;
    return;
  }
}

void NativeWindow::ShowForm() {
  MoveToPlace();
  ShowPointer(handle_, form_->Pointer());
  ShowWindowState();
  ShowVisibility();
}

void NativeWindow::MoveToPlace() {
  const std::pair place(form_->Left(), form_->Top());
  if (!form_->Placed() || (placed_ && place_ == place)) return;
  // Later changes of other state must not take back a move of the user's.
  place_ = place;
  placed_ = true;
  const RECT screen = ScreenOf(handle_);
  SetWindowPos(handle_, nullptr, static_cast<int>(screen.left) + scale_.ToPixels(place.first),
               static_cast<int>(screen.top) + scale_.ToPixels(place.second), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void NativeWindow::ShowVisibility() {
  // A dialog may be off the screen with its main window and wait all the same.
  if (shown_ == form_->Visible()) return;
  shown_ = form_->Visible();
  if (shown_) return Appear();
  if (observer_.hiding) observer_.hiding();
  ShowWindow(handle_, SW_HIDE);
  PostMessageW(handle_, kHidden, 0, 0);
}

void NativeWindow::Appear() {
  if (!std::exchange(everShown_, true)) AppearFirst();
  if (form_->WindowState() == WindowState::Minimized) {
    ShowWindow(handle_, SW_SHOWMINNOACTIVE);
  } else {
    ShowWindow(handle_, IsIconic(handle_) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(handle_);
  }
  if (observer_.shown) observer_.shown();
}

void NativeWindow::AppearFirst() {
  RECT before{};
  GetWindowRect(handle_, &before);
  Arrange();
  if (!form_->Placed()) return PutOverOwner(handle_);
  KeepCentre(handle_, before);
}

void NativeWindow::ShowWindowState() {
  const bool minimized = form_->WindowState() == WindowState::Minimized;
  // A hidden window takes its state when it appears.
  if (!IsWindowVisible(handle_) || (IsIconic(handle_) != FALSE) == minimized) return;
  ShowWindow(handle_, minimized ? SW_MINIMIZE : SW_RESTORE);
}

void NativeWindow::TakeWindowState() {
  const WindowState state = IsIconic(handle_) ? WindowState::Minimized : WindowState::Normal;
  if (!IsWindowVisible(handle_) || form_->WindowState() == state) return;
  form_->SetWindowState(state);
  form_->Resize.Raise();
}

}  // namespace kestrava
