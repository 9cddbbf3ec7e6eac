#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/control.h"
#include "platform/event.h"
#include "platform/menu.h"
#include "platform/timer.h"

namespace kestrava {

enum class FormStyle {
  MainWindow,              ///< fixed size, minimise button, no maximise button, an icon of its own
  ToolWindow,              ///< fixed size, neither minimise nor maximise button
  ToolWindowWithoutClose,  ///< the same without a close box: its buttons are the only ways out
};

/// How a window is shown, apart from being visible at all.
enum class WindowState { Normal, Minimized };

/// The pointer over a window.
enum class MousePointer { Default, Busy };

/// A window as data.
struct FormSpec {
  const char* name;     ///< by which a desktop and its tests find the window
  const char* caption;  ///< UTF-8, of the title bar
  FormStyle style;
  int width;   ///< of the inner area below the menu bar, in twips
  int height;  ///< the same
  std::span<const ControlSpec> controls;
  std::span<const MenuSpec> menu;
  std::span<const TimerSpec> timers;
  const char* defaultButton;  ///< the button that Enter presses, or empty
  const char* cancelButton;   ///< the button that Esc presses, or empty
};

/// What a window shows and holds. Its parts are members of the class that derives from it; each
/// part takes its line of `spec` by name and joins the form as it is made.
class Form : public Observable {
 public:
  explicit Form(const FormSpec& spec) : spec_(spec) {}
  virtual ~Form() = default;

  const FormSpec& Spec() const { return spec_; }
  /// In no order; a desktop goes by their places and their tab order.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// In the order of the table, whatever that of the members is.
  const std::vector<MenuEntry*>& Menu() const { return menu_; }
  const std::vector<Timer*>& Timers() const { return timers_; }

  /// To be called by the window system before it makes the window.
  /// @throws RuntimeError (5) if a line of the tables has no member.
  void CheckWhole() const;

  /// The outer window's place on the screen, in twips. `Placed` is false until both were set; such
  /// a window opens where the window system puts it.
  int Left() const { return left_; }
  int Top() const { return top_; }
  bool Placed() const { return leftSet_ && topSet_; }
  void SetLeft(int left);
  void SetTop(int top);

  /// Hiding a window that was opened modally ends the modal wait.
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Change(visible_, visible); }

  /// The desktop sets it when the user minimises or restores the window, and raises `Resize`.
  enum WindowState WindowState() const { return windowState_; }
  void SetWindowState(enum WindowState state) { Change(windowState_, state); }

  MousePointer Pointer() const { return pointer_; }
  void SetPointer(MousePointer pointer) { Change(pointer_, pointer); }

  /// Raised by the window system when the window has been made and not yet shown.
  Event Load;
  /// Raised by the window system just before the window goes. Nothing can refuse it.
  Event Unload;
  /// Raised by the desktop when the window was minimised or came back from that.
  Event Resize;

 private:
  friend Control::Control(Form&, const char*, ControlKind);
  friend MenuEntry::MenuEntry(Form&, const char*);
  friend Timer::Timer(Form&, const char*);

  const ControlSpec& SpecOfControl(std::string_view name, ControlKind kind) const;
  const MenuSpec& SpecOfMenuEntry(std::string_view name) const;
  const TimerSpec& SpecOfTimer(std::string_view name) const;
  void Join(Control& control) { controls_.push_back(&control); }
  void Join(MenuEntry& entry);
  void Join(Timer& timer) { timers_.push_back(&timer); }

  const FormSpec& spec_;
  std::vector<Control*> controls_;
  std::vector<MenuEntry*> menu_;
  std::vector<Timer*> timers_;
  int left_ = 0;
  int top_ = 0;
  bool leftSet_ = false;
  bool topSet_ = false;
  bool visible_ = false;
  enum WindowState windowState_ = WindowState::Normal;
  MousePointer pointer_ = MousePointer::Default;
};

}  // namespace kestrava
