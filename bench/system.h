#pragma once

#include <string>

#include "native_desktop.h"

namespace kestrava {

// What the figures need of the system, done for each of them in its folder.

/// Processor time that this process has taken, in seconds.
double ProcessorSeconds();

/// Serves the events that wait in this thread, in one turn of the system's own loop.
void ServeWaitingEvents();
/// The same, after waiting for one.
void ServeNextEvents(EventLoop& eventLoop);

/// Does nothing for a millisecond.
void Rest();

/// Has the view of the main window's table show its latest state at once.
void CatchUpTable(NativeDesktop& desktop, const frmMain& window);

/// Writes a file anew, and returns when it is on the disk.
/// @throws std::system_error if that fails.
void WriteFileBarely(const std::string& name, const std::string& bytes);

/// Runs a program without arguments to its end.
/// @throws std::runtime_error or std::system_error unless it ends with status 0.
void RunProgram(const std::string& file);

/// The longest time in seconds for which an event of this thread's waits in the midst of `work`:
/// another thread posts one each millisecond.
double LongestStallOf(void (*work)(void* context), void* context);

}  // namespace kestrava
