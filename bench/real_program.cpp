#include "real_program.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "figure.h"
#include "monitor/connection_table.h"
#include "platform/qt/grid_view.h"

namespace kestrava {

RealProgram::RealProgram() {
  eventLoop_.Watch(remoteDesktop_);
  windows_.Load(window);
  windows_.Show(window);
  Settle();
}

void RealProgram::Fill(const std::vector<std::string>& addresses) {
  MSFlexGrid& grid = window.grdServers;
  for (const std::string& address : addresses) {
    AppendConnectionRow(grid);
    grid.SetCol(kNameColumn);
    grid.SetText("Machine " + address);
    grid.SetCol(kAddressColumn);
    grid.SetText(address);
    grid.SetCol(kCheckingColumn);
    grid.SetText(kCheckingEnabled);
  }
  Settle();
}

double RealProgram::Check(const std::string& status) {
  const double seconds = SecondsOf([this] { window.cmdCheck.Press(); });
  const MSFlexGrid& grid = window.grdServers;
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    const std::string& found = grid.TextAt(row, kStatusColumn);
    if (found != status) throw std::runtime_error("a row shows " + found + ", not " + status);
  }
  Settle();
  return seconds;
}

void RealProgram::CatchUp() {
  auto* view = windows_.WidgetOf(window)->findChild<GridView*>();
  static_cast<GridModel*>(view->model())->CatchUp();
  // What has to be painted again waits as an event.
  if (eventLoop_.PumpEvents() == LoopState::Ending) throw std::runtime_error("the program ended");
}

/// Lets the window finish what it has begun to show.
void RealProgram::Settle() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  while (std::chrono::steady_clock::now() < end) {
    if (eventLoop_.PumpEvents() == LoopState::Ending) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace kestrava
