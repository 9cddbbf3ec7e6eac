#pragma once

namespace kestrava {

class CheckSchedule;
class MessageBoxes;
class SettingsStore;
class WindowSystem;

/// Shows the user the stored preferences and, unless the user cancels, stores what the user made of
/// them. The check interval counts at once, from now on; the tray options count from the next start
/// of the program. Returns when the dialog has gone.
void EditPreferences(WindowSystem& windows, MessageBoxes& messageBoxes, SettingsStore& store,
                     CheckSchedule& schedule);

}  // namespace kestrava
