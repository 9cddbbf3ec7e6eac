#pragma once

#include <cstdint>
#include <string_view>

namespace kestrava {

class NotificationArea;
class modPopup;
class VersionInfo;
struct NOTIFYICONDATA;

/// True if the shell's major version, from the version block of shell32.dll, is `major` or more.
/// False also where it can't be read.
bool ShellVersionAtLeast(VersionInfo& versions, std::int32_t major);

/// The one icon that the main window has in the notification area, with its balloon, and the hook
/// by which its messages come: both come and go together. No failure of these is ever reported.
class NotificationIcon {
 public:
  NotificationIcon(NotificationArea& area, VersionInfo& versions, modPopup& popup)
      : area_(area), versions_(versions), popup_(popup) {}

  /// Adds the icon and, if that went well, hooks its messages.
  void TrayIconAdd();
  /// Takes the icon away, with its balloon, and then the hook, where there is one.
  void TrayIconRemove();

  /// `infoFlags` chooses the balloon's picture, such as `NIIF_USER`. The title is cut at 64 bytes
  /// and the text at 256.
  void TrayBalloonShow(std::int32_t infoFlags, std::string_view title, std::string_view text);

  /// Closes the balloon of the icon of that window, and clears the icon's tip with it.
  void TrayBalloonHide(std::int32_t hWnd);

 private:
  NOTIFYICONDATA NewRecord(std::int32_t hWnd);
  void TrayRecordSize();

  NotificationArea& area_;
  VersionInfo& versions_;
  modPopup& popup_;
  std::int32_t trayRecordByteSize_ = 0;  ///< 0 until the first record is made
};

}  // namespace kestrava
