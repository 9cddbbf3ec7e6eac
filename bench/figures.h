#pragma once

#include <string>

namespace kestrava {

/// Each measures what its name says and prints its figure, or its figures. They need a display.

/// One row of a pass over answering machines, over the bare echo: `pass_row`.
void MeasurePassRow(int rounds);

/// The same for short and long tables, on standard error alone: `pass_growth`.
void MeasurePassGrowth();

/// A pass over answering machines, against one `ping` process for each: `pass_vs_ping`.
void MeasurePassAgainstPing();

/// The same against one `fping` over all of them, which sends an echo each millisecond:
/// `pass_vs_fping`.
void MeasurePassAgainstFping();

/// A row of a machine that answers nothing: its time over that of the two time-outs, and the share
/// of one processor core that it takes: `silent_row_time`, `silent_row_cpu`.
/// @param address such a machine, in a network that this process may send to; so below.
void MeasureSilentMachine(const std::string& address);

/// Processor milliseconds of a row whose machine is silent to the echo and refuses TCP:
/// `refused_row_cpu`.
void MeasureRefusingMachine(const std::string& address);

/// Milliseconds for which an event waits at most during a pass over ten silent machines, with the
/// echoes sent by socket and by `ping`: `longest_stall`.
void MeasureLongestStall(const std::string& address);

/// A turn of the program's event loop with nothing to do, over the system's own: `pump_idle`.
void MeasureIdlePump(double target);

/// Start to first painted window, over the least that a window with a table can be: `startup`.
/// @param folder where the two programs are.
void MeasureStartup(const std::string& folder, double target);

/// Loading a long list into the table, with the view of it, over reading its lines and splitting
/// them into strings: `load_100k`.
/// @param folder where a list file may be put for a while; so below.
void MeasureLoad(const std::string& folder);

/// Saving a long list, over writing its bytes in one go: `save_100k`.
void MeasureSave(const std::string& folder);

/// Resident bytes for each row of a long list in the window: `memory_row`.
void MeasureMemory(const std::string& folder);

/// Removing half of the rows that a removal may offer, over copying the table once: `remove_half`.
void MeasureRemoval();

/// Wake-ups a minute of the program when nothing happens: `idle_wakeups`.
/// @param program its file.
/// @param bareWindow that of the least Qt program with a window and a table; so below.
void MeasureIdleWakeups(const std::string& program, const std::string& bareWindow);

/// Resident memory some seconds after the start, over the bare window's: `startup_memory`.
void MeasureStartupMemory(const std::string& program, const std::string& bareWindow);

/// The program's file without what only a debugger reads, in KiB: `binary_size`.
void MeasureBinarySize(const std::string& program, const std::string& bareWindow);

}  // namespace kestrava
