#pragma once

#include <cstdint>
#include <deque>
#include <map>

#include "platform/window_messages.h"

namespace kestrava {

/// What window messages have in common on every desktop: the program's handles and addresses are
/// numbers of 32 bits, each of which stands here for a form, whose windows it outlives, or for a
/// procedure. An icon's handle is that of its window. A window's procedure gets the messages of its
/// icon only.
class NumberedWindows : public WindowMessages {
 public:
  std::int32_t WindowHandle(const Form& form) const final;
  std::int32_t IconHandle(const Form& form) const final { return WindowHandle(form); }
  std::int32_t AddressOf(WindowProc procedure) final;
  std::int32_t SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) final;
  std::int32_t CallWindowProcA(std::int32_t address, std::int32_t hWnd, std::int32_t uMsg,
                               std::int32_t wParam, std::int32_t lParam) final;

  /// Runs the procedure that the window was given; one without, or that isn't loaded, gets nothing.
  void Send(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam, std::int32_t lParam);

 protected:
  /// The form whose window has that handle, or nullptr if none that is loaded has.
  const Form* FormOf(std::int32_t hWnd) const;

 private:
  virtual bool IsLoaded(const Form& form) const = 0;

  /// A form keeps its number for good: the place in this list, from 1.
  mutable std::deque<const Form*> forms_;
  std::map<std::int32_t, std::int32_t> addresses_;  ///< of the procedures that windows were given
  std::deque<WindowProc> procedures_;  ///< an address is the place in this list, from 2
};

}  // namespace kestrava
