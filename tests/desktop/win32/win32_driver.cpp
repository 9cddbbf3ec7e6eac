#include <array>
#include <cstring>
#include <map>

#include "desktop/win32/handles.h"
#include "platform/win32/message_pump.h"

namespace kestrava::test {

/// The thread's windows that have a title, the topmost first.
static std::vector<HWND> Windows() {
  std::vector<HWND> windows;
  const auto take = [](HWND window, LPARAM list) -> BOOL {
    if ((GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION) {
      reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&windows));
  return windows;
}
static std::string ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return ToBytes(name.data());
}
void Give(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!IsWindow(window)) return;
  MSG record{window, message, wParam, lParam, GetTickCount(), {}};
  const HWND root = GetAncestor(window, GA_ROOT);
  if (NativeWindow::Of(root) || !IsDialogMessageW(root, &record)) Serve(record);
}
void GiveClick(HWND window, UINT press, POINT place) {
  Give(window, press, MK_LBUTTON, MAKELPARAM(place.x, place.y));
  Give(window, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
}

Part Find(const std::string& name) {
  for (HWND window : Windows()) {
    if (ClassOf(window) == name) return PartOf(window);
  }
  return name == "frmMain" ? nullptr : Find(Find("frmMain"), name);
}
Part Find(Part window, const std::string& name) {
  const NativeWindow* native = NativeWindow::Of(HandleOf(window));
  if (!native) {
    HWND field = nullptr;
    const auto take = [](HWND part, LPARAM found) -> BOOL {
      if (ClassOf(part) != "Edit" || !IsWindowVisible(part)) return TRUE;
      *reinterpret_cast<HWND*>(found) = part;
      return FALSE;
    };
    EnumChildWindows(HandleOf(window), take, reinterpret_cast<LPARAM>(&field));
    return PartOf(field);
  }
  for (const auto& control : native->Controls()) {
    const auto kind = control->Spec().kind;
    if (name.empty() ? kind == ControlKind::TextBox : name == control->Spec().name) {
      return PartOf(control->Handle());
    }
  }
  return nullptr;
}
HWND ListOf(Part window) { return FindWindowExW(HandleOf(window), nullptr, WC_LISTVIEWW, nullptr); }
std::vector<std::string> VisibleWindows() {
  std::vector<std::string> names;
  for (HWND window : Windows()) {
    if (IsWindowVisible(window)) names.push_back(ClassOf(window));
  }
  return names;
}
bool IsUp(Part window) { return IsWindowVisible(HandleOf(window)) && !IsIconic(HandleOf(window)); }
bool IsEnabled(Part part) { return IsWindowEnabled(HandleOf(part)); }
bool IsActive(Part window) { return GetActiveWindow() == HandleOf(window); }
void TakeKeys(Part window) { SetForegroundWindow(HandleOf(window)); }
void Minimize(Part window) { ShowWindow(GetAncestor(HandleOf(window), GA_ROOTOWNER), SW_MINIMIZE); }
void Close(Part window) {
  if (IsEnabled(window)) Give(HandleOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void Click(Part control) {
  RECT place{};
  GetWindowRect(HandleOf(control), &place);
  POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  if (WindowFromPoint(middle) != HandleOf(control)) return;
  ScreenToClient(HandleOf(control), &middle);
  GiveClick(HandleOf(control), WM_LBUTTONDOWN, middle);
}
void Press(Part part, Key key) {
  const HWND focus = GetFocus();
  const HWND window = IsChild(HandleOf(part), focus) ? focus : HandleOf(part);
  for (const UINT message : {WM_KEYDOWN, WM_KEYUP})
    Give(window, message, static_cast<WPARAM>(key), 0);
}
void Fill(Part field, const std::string& text) {
  SetFocus(HandleOf(field));
  SendMessageW(HandleOf(field), EM_SETSEL, 0, -1);
  SendMessageW(HandleOf(field), EM_REPLACESEL, TRUE,
               reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}
std::string TextOf(Part field) {
  std::array<wchar_t, 256> text{};
  GetWindowTextW(HandleOf(field), text.data(), static_cast<int>(text.size()));
  return ToBytes(text.data());
}
std::string FocusIn(Part) {
  // The system takes a field's name from the text ahead of it.
  const bool field = ClassOf(GetFocus()) == "Edit";
  std::string text = TextOf(PartOf(field ? GetWindow(GetFocus(), GW_HWNDPREV) : GetFocus()));
  for (const char* mark : {"&", "<a>", "</a>"}) {
    if (const auto at = text.find(mark); at != text.npos) text.erase(at, std::strlen(mark));
  }
  return text;
}
std::string Read(Part box) {
  std::string text = TextOf(box) + '|' + TextOf(Find(box, "text")) + '|';
  if (const Part field = Find(box, "field")) text += TextOf(field);
  text += '|';
  const auto picture = SendMessageW(HandleOf(Find(box, "picture")), STM_GETICON, 0, 0);
  for (const auto& [icon, letter] :
       {std::pair(IDI_ERROR, 'x'), {IDI_WARNING, '!'}, {IDI_QUESTION, '?'}}) {
    if (picture == reinterpret_cast<LRESULT>(LoadIconW(nullptr, icon))) text += letter;
  }
  return text;
}

bool Until(const std::function<bool()>& condition) {
  const auto end = GetTickCount64() + 60000;
  bool quits = false;
  while (!condition() && GetTickCount64() < end) {
    MSG message{};
    MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
    if (message.message != WM_QUIT) Serve(message);
    quits |= message.message == WM_QUIT;
  }
  // The end of the program is for its own loops.
  if (quits) PostQuitMessage(0);
  return condition();
}
void After(std::chrono::milliseconds time, std::function<void()> call) {
  static std::map<UINT_PTR, std::function<void()>> calls;
  const auto run = [](HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    calls.extract(timer).mapped()();
  };
  calls[SetTimer(nullptr, 0, static_cast<UINT>(time.count()), run)] = std::move(call);
}
Part TopDialog() {
  for (HWND window : Windows()) {
    const bool waits = IsWindowVisible(window) && IsWindowEnabled(window);
    if (waits && GetWindow(window, GW_OWNER)) return PartOf(window);
  }
  return nullptr;
}

}  // namespace kestrava::test
