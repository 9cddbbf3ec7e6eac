#pragma once

#include <string>
#include <vector>

#include "monitor/frmMain.h"
#include "native_desktop.h"

namespace kestrava {

/// Seconds that a pass took.
struct PassCost {
  double clock;      ///< on the wall
  double processor;  ///< spent by this process
};

/// The program as users run it, with its window on the screen. On Linux it needs a
/// `QApplication`.
class RealProgram {
 public:
  RealProgram();
  ~RealProgram() { desktop_.Windows().Unload(window); }
  RealProgram(const RealProgram&) = delete;
  RealProgram& operator=(const RealProgram&) = delete;

  /// Puts a list of machines into the empty table, and returns when the window shows it.
  void Fill(const std::vector<std::string>& addresses);

  /// Presses "Check Now !" and serves events until the pass is over.
  /// @throws std::runtime_error unless every row then shows `status`.
  PassCost Check(const std::string& status);

  /// Has the view of the table show its latest state at once.
  void CatchUp();

  EventLoop& Loop() { return services_.eventLoop; }
  FileWorker& Files() { return services_.files; }
  MessageBoxes& Boxes() { return services_.messageBoxes; }

 private:
  void Settle();

  NativeDesktop desktop_;
  Platform services_ = desktop_.Services();

 public:
  frmMain window{services_};
};

}  // namespace kestrava
