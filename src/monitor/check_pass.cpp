#include "monitor/check_pass.h"

#include "general/conversion.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/flex_grid.h"
#include "platform/form.h"
#include "probes/connection_probe.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

/// The busy pointer over a window for as long as this lives, however the pass ends.
class BusyPointer {
 public:
  explicit BusyPointer(Form& window) : window_(window) { window_.SetPointer(MousePointer::Busy); }
  ~BusyPointer() { window_.SetPointer(MousePointer::Default); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Form& window_;
};

}  // namespace

Task<> CheckPass::Run() {
  const BusyPointer busy(window_);
  failedConnections_.clear();
  const RowBookmark last = grid_.Bookmark(grid_.Rows() - 1);
  std::int32_t next = kHeadingRow + 1;
  while (next < grid_.Rows()) {
    const RowBookmark row = grid_.Bookmark(next);
    if (row > last) break;
    co_await CheckRow(row);
    next = grid_.RowAfter(row);
  }
}

Task<> CheckPass::CheckRow(RowBookmark row) {
  MoveToRow(grid_, row, kAddressColumn);
  co_await eventLoop_.PumpEvents();
  if (!MoveToRow(grid_, row, kCheckingColumn)) co_return;
  if (grid_.TextView() == kCheckingDisabled) co_return;
  grid_.SetCol(kAddressColumn);
  const std::string address = grid_.Text();
  const std::string answer = co_await probe_.CheckServerConnection(address);
  co_await eventLoop_.PumpEvents();
  if (!MoveToRow(grid_, row, kLampColumn)) co_return;
  if (ReadsAsNumber(answer)) {
    WriteOnline(answer);
  } else {
    WriteOffline(answer);
  }
}

void CheckPass::WriteOnline(const std::string& answer) {
  grid_.SetCellBackColor(kGreen);
  WriteCell(grid_, kStatusColumn,
            answer == "3389" ? "Online (RDP Response)" : "Online (Ping Response)");
  WriteCell(grid_, kLastCheckedColumn, NowText());
}

void CheckPass::WriteOffline(const std::string& answer) {
  grid_.SetCellBackColor(kRed);
  WriteCell(grid_, kStatusColumn, "Offline (" + answer + ")");
  WriteCell(grid_, kLastCheckedColumn, NowText());
  grid_.SetCol(kNameColumn);
  failedConnections_.push_back(grid_.Text());
}

/// Many rows fall into one second and share its text.
const std::string& CheckPass::NowText() {
  const auto now = clock_.Now();
  if (now != textSecond_ || text_.empty()) {
    textSecond_ = now;
    text_ = clock_.GeneralDateText(now);
  }
  return text_;
}

}  // namespace kestrava
