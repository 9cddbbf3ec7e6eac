#include "real_program.h"

#include <QCoreApplication>
#include <chrono>
#include <ctime>
#include <stdexcept>
#include <thread>

#include "figure.h"
#include "platform/qt/grid_view.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace

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
  cost.clock = SecondsOf([this] {
    window.cmdCheck.Press();
    while (window.Pointer() == MousePointer::Busy) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
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

void RealProgram::CatchUp() {
  auto* view = desktop_.Windows().WidgetOf(window)->findChild<GridView*>();
  static_cast<GridModel*>(view->model())->CatchUp();
  // What has to be painted again waits as an event.
  QCoreApplication::processEvents();
}

/// Lets the window finish what it has begun to show.
void RealProgram::Settle() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  while (std::chrono::steady_clock::now() < end) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace kestrava
