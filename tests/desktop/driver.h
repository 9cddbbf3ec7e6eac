#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "monitor/frmMain.h"
#include "platform/platform.h"

// What the user sees and does in the windows of the program, on whichever desktop it runs. Texts
// are UTF-8, and rows and columns those of the grid.
namespace kestrava::test {

/// A window, or a control in one. nullptr for none.
using Part = struct NativePart*;

/// By the numbers that one of the desktops has for them.
enum class Key { Tab = 0x09, Enter = 0x0D, Escape = 0x1B, Space = 0x20, F1 = 0x70, F2 = 0x71 };

/// What of the desktop the program is composed with.
class System {
 public:
  virtual ~System() = default;
  virtual Platform Services() = 0;
  /// To be called before the main window is loaded.
  virtual void Take(frmMain&) {}
};
std::unique_ptr<System> MakeSystem();

/// Where the program finds and leaves what belongs to its user: a folder that goes with the test.
std::string HomeFolder();
/// Makes a browser the user's own that adds a line "(number of arguments) (arguments)" to `file`.
void UseBrowser(const std::string& file);

/// The window of that form, or the control in the main window.
Part Find(const std::string& name);
/// The control in `window`; its first text field for no name.
Part Find(Part window, const std::string& name);
/// The names of the windows that are up.
std::vector<std::string> VisibleWindows();
/// Whether the window is on the screen, and not as an icon.
bool IsUp(Part window);
bool IsEnabled(Part part);
/// Whether the keys go to that window. Always true where nobody can say.
bool IsActive(Part window);
/// Gives the keys to that window.
void TakeKeys(Part window);
/// Minimises the window by the desktop, with what it belongs to.
void Minimize(Part window);
/// Presses the close box.
void Close(Part window);

/// Clicks the middle of a control by mouse.
void Click(Part control);
/// Presses a key on a control, or on whichever one in the window has the focus.
void Press(Part part, Key key);
/// Puts a text in place of all that a field holds.
void Fill(Part field, const std::string& text);
std::string TextOf(Part field);
/// What a screen reader calls the control in the window that has the focus.
std::string FocusIn(Part window);

/// Picks that entry from the main window's menu, if it is to be had.
void Pick(const std::string& entry);
/// The main window's entries that are to be had, as they read, each with "|" after it; "*" stands
/// ahead of one with a tick.
std::string MenuNow();

/// What a message box or a prompt reads: "title|text|field|picture", the latter as "x" (stop), "!",
/// "?" or nothing.
std::string Read(Part box);

/// The entries of the dialog's list, "*" ahead of those with a tick.
std::vector<std::string> Entries(Part dialog);
/// Ticks that entry, counted from 0: an even one by key, an odd one by mouse.
void Tick(Part dialog, int entry);

// The table of the main window.
int ShownRows();
/// The lamp's is what a screen reader says of it.
std::string ShownText(int row, int column);
/// All colours of a cell as it is painted, red first.
std::set<std::uint32_t> ColorsAt(int row, int column);
/// The text of the chosen cell's row in the first column of texts; "none" for no choice.
std::string ChosenRow();
void ClickCell(int row, int column);
void DoubleClickCell(int row, int column);
int ColumnWidth(int column);
void DragColumn(int column, int width);
void Repaint();
/// Holds the table to what its desktop wants of any, where it can, for as long as it lives.
std::shared_ptr<void> HoldTableToItsRules();

/// Whether the main window's pointer is the busy one.
bool PointerIsBusy();

/// Lets the program go on until then, for a minute at most. @return whether it came to that.
bool Until(const std::function<bool()>& condition);
/// Calls it then, in whichever loop the program waits.
void After(std::chrono::milliseconds time, std::function<void()> call);

/// Lets the view catch up with the grid. Its timer is due ahead of this one, however slow the
/// machine is.
inline void Settle() {
  bool done = false;
  After(std::chrono::milliseconds(40), [&] { done = true; });
  Until([&] { return done; });
}

/// What the user does, one after the other, in the dialogs and menus that come up next.
using Acts = std::deque<std::function<void(Part dialog)>>;
/// The dialog or menu that is topmost.
Part TopDialog();
/// Where the user acts, and so not what comes up next: a slow file dialog is still up meanwhile.
inline Part actingIn = nullptr;
inline void InDialogs(Acts acts) {
  After(std::chrono::milliseconds(20), [acts = std::move(acts)]() mutable {
    const Part dialog = TopDialog();
    if (!dialog || dialog == actingIn) return InDialogs(std::move(acts));
    const auto act = std::move(acts.front());
    acts.pop_front();
    if (!acts.empty()) InDialogs(std::move(acts));
    const Part before = std::exchange(actingIn, dialog);
    act(dialog);
    actingIn = before;
  });
}

}  // namespace kestrava::test
