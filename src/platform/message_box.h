#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace kestrava {

enum class MessageIcon { None, Stop, Exclamation };

enum class YesNo { Yes, No };

/// A message box that is up. It goes with the object, answered or not.
class OpenMsgBox {
 public:
  virtual ~OpenMsgBox() = default;
};

/// Boxes that tell or ask one thing. The text is plain text whatever it holds. `MsgBox` and
/// `AskYesNo` return when the user has answered or the program ends; events are delivered
/// meanwhile.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// A message with an OK button under the title "Kestrava".
  virtual void MsgBox(const std::string& text, MessageIcon icon) = 0;

  /// The same without waiting for the answer. `answered` is called once, when the user has
  /// answered.
  virtual std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                                 std::function<void()> answered) = 0;

  /// A question with the buttons Yes and No and the question mark icon under a title of its own.
  /// Closing the box, or the end of the program, is a No.
  virtual YesNo AskYesNo(const std::string& text, const std::string& title) = 0;
};

/// `co_await AwaitedMsgBox(...)` shows a message and lets the work wait for its answer, while the
/// event loop goes on.
class AwaitedMsgBox {
 public:
  AwaitedMsgBox(MessageBoxes& messageBoxes, std::string text, MessageIcon icon)
      : messageBoxes_(messageBoxes), text_(std::move(text)), icon_(icon) {}

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> work) {
    box_ = messageBoxes_.ShowMsgBox(text_, icon_, [work] { work.resume(); });
  }
  void await_resume() const noexcept {}

 private:
  MessageBoxes& messageBoxes_;
  std::string text_;
  MessageIcon icon_;
  std::unique_ptr<OpenMsgBox> box_;
};

}  // namespace kestrava
