#include "real_program.h"

#include <chrono>
#include <stdexcept>

#include "figure.h"
#include "shared/connection_table.h"
#include "system.h"

namespace kestrava {

RealProgram::RealProgram() {
  desktop_.Windows().Load(window);
  desktop_.Windows().Show(window);
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

PassCost RealProgram::Check(const std::string& status) {
  const double processor = ProcessorSeconds();
  PassCost cost{};
  EventLoop& eventLoop = desktop_.Services().eventLoop;
  cost.clock = SecondsOf([&] {
    window.cmdCheck.Press();
    while (window.Pointer() == MousePointer::Busy) {
      ServeNextEvents(eventLoop);
    }
  });
  cost.processor = ProcessorSeconds() - processor;
  const MSFlexGrid& grid = window.grdServers;
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    const std::string& found = grid.TextAt(row, kStatusColumn);
    if (found != status) throw std::runtime_error("a row shows " + found + ", not " + status);
  }
  Settle();
  return cost;
}

void RealProgram::CatchUp() { CatchUpTable(desktop_, window); }

/// Lets the window finish what it has begun to show.
void RealProgram::Settle() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  while (std::chrono::steady_clock::now() < end) {
    ServeWaitingEvents();
    Rest();
  }
}

}  // namespace kestrava
