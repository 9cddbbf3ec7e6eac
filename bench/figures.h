#pragma once

#include <string>

namespace kestrava {

/// Each measures what its name says and prints its figure, or its figures. They need a display, and
/// a `QApplication` in this process.

/// One row of a pass over answering machines, over the bare echo: `pass_row`.
void MeasurePassRow();

/// A pass over answering machines, against one `ping` process for each: `pass_vs_ping`.
void MeasurePassAgainstPing();

/// What waiting for a machine that answers nothing costs: `silent_cpu`.
/// @param address such a machine, in a network that this process may send to.
void MeasureSilentMachine(const std::string& address);

/// An idle turn of the program's event loop, over Qt's own: `pump_idle`.
void MeasureIdlePump();

/// Start to first painted window, over the least that a Qt window with a table can be: `startup`.
/// @param folder where the two programs are.
void MeasureStartup(const std::string& folder);

}  // namespace kestrava
