#pragma once

namespace kestrava {

class MessageBoxes;
class MSFlexGrid;
class WindowSystem;

/// Asks the user for a new connection and, unless the user cancels, adds it as the last row of the
/// table. Returns when the dialog has gone.
void AddConnection(MSFlexGrid& grid, WindowSystem& windows, MessageBoxes& messageBoxes);

}  // namespace kestrava
