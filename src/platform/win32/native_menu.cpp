#include "platform/win32/native_menu.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

/// The number of the first entry's command; controls have lower ones.
constexpr UINT kFirstCommand = 0x1000;

bool IsAvailable(const MenuEntry& entry, Commands commands) {
  return commands == Commands::All || entry.Spec().kind == MenuKind::FreeEntry;
}

/// The virtual key of a shortcut such as "F1"; 0 for none.
WPARAM KeyOf(std::string_view shortcut) {
  unsigned number = 0;
  if (!shortcut.starts_with('F')) return 0;
  std::from_chars(shortcut.data() + 1, shortcut.data() + shortcut.size(), number);
  return number == 0 ? 0 : VK_F1 + number - 1;
}

std::wstring CaptionOf(const MenuSpec& spec) {
  const std::wstring caption = ToWide(spec.caption);
  return *spec.shortcut == '\0' ? caption : caption + L'\t' + ToWide(spec.shortcut);
}

}  // namespace

NativeMenu::NativeMenu(const Form& form, HWND window) : entries_(form.Menu()) {
  HMENU bar = CreateMenu();
  for (const MenuEntry* entry : entries_) {
    if (entry->Spec().kind != MenuKind::Menu) continue;
    menus_.push_back(CreatePopupMenu());
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menus_.back()),
                CaptionOf(entry->Spec()).c_str());
    Fill(menus_.back(), *entry, nullptr, Commands::All);
  }
  SetMenu(window, bar);
}

void NativeMenu::Fill(HMENU menu, Commands commands) const {
  auto known = menus_.begin();
  for (const MenuEntry* entry : entries_) {
    if (entry->Spec().kind != MenuKind::Menu) continue;
    if (*known++ == menu) return Fill(menu, *entry, nullptr, commands);
  }
}

void NativeMenu::Fill(HMENU menu, const MenuEntry& top, const MenuEntry* defaultEntry,
                      Commands commands) const {
  while (RemoveMenu(menu, 0, MF_BYPOSITION)) continue;
  auto entry = std::ranges::find(entries_, &top) + 1;
  for (; entry != entries_.end() && (*entry)->Spec().kind != MenuKind::Menu; ++entry) {
    if (!(*entry)->Visible()) continue;
    if ((*entry)->Spec().kind == MenuKind::Separator) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    UINT look = (*entry)->Checked() ? MF_CHECKED : MF_UNCHECKED;
    if (!IsAvailable(**entry, commands)) look |= MF_GRAYED;
    const UINT command = kFirstCommand + static_cast<UINT>(entry - entries_.begin());
    AppendMenuW(menu, look, command, CaptionOf((*entry)->Spec()).c_str());
    if (*entry == defaultEntry) SetMenuDefaultItem(menu, command, FALSE);
  }
}

void NativeMenu::Run(UINT command, Commands commands) const {
  if (command < kFirstCommand || command - kFirstCommand >= entries_.size()) return;
  const MenuEntry& entry = *entries_[command - kFirstCommand];
  if (entry.Visible() && IsAvailable(entry, commands)) entry.Click.Raise();
}

bool NativeMenu::RunShortcut(WPARAM key, Commands commands) const {
  const auto found = std::ranges::find_if(
      entries_, [&](const MenuEntry* entry) { return KeyOf(entry->Spec().shortcut) == key; });
  if (key == 0 || found == entries_.end()) return false;
  Run(kFirstCommand + static_cast<UINT>(found - entries_.begin()), commands);
  return true;
}

}  // namespace kestrava
