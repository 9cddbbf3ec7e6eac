#pragma once

namespace kestrava {

class MSFlexGrid;
class WindowSystem;

/// Lets the user mark connections and removes the rows of the marked ones. Of a larger table the
/// first 32767 connections are offered. Returns when the dialog has gone.
void RemoveConnections(MSFlexGrid& grid, WindowSystem& windows);

}  // namespace kestrava
