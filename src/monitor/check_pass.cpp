#include "monitor/check_pass.h"

#include "general/conversion.h"
#include "monitor/connection_table.h"
#include "monitor/general_date.h"
#include "monitor/shared_state.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/flex_grid.h"
#include "platform/form.h"
#include "probes/connection_probe.h"

namespace kestrava {

namespace {

/// Marks a pass as under way for as long as it lives, however the pass ends.
class RunningMark {
 public:
  RunningMark(bool& running, Form& window) : running_(running), window_(window) {
    running_ = true;
    window_.SetPointer(MousePointer::Busy);
  }
  ~RunningMark() {
    running_ = false;
    window_.SetPointer(MousePointer::Default);
  }
  RunningMark(const RunningMark&) = delete;
  RunningMark& operator=(const RunningMark&) = delete;

 private:
  bool& running_;
  Form& window_;
};

}  // namespace

PassResult CheckPass::Run() {
  if (running_) return PassResult::NotRun;
  const RunningMark mark(running_, window_);
  state_.FailedConnections.clear();
  const RowBookmark last = grid_.Bookmark(grid_.Rows() - 1);
  std::int32_t next = kHeadingRow + 1;
  while (next < grid_.Rows()) {
    const RowBookmark row = grid_.Bookmark(next);
    if (row > last) break;
    if (CheckRow(row) == LoopState::Ending) return PassResult::NotRun;
    next = grid_.RowBehind(row);
  }
  return PassResult::Completed;
}

LoopState CheckPass::CheckRow(RowBookmark row) {
  MoveToRow(grid_, row, kAddressColumn);
  if (eventLoop_.PumpEvents() == LoopState::Ending) return LoopState::Ending;
  if (!MoveToRow(grid_, row, kCheckingColumn)) return LoopState::Running;
  if (grid_.TextView() == kCheckingDisabled) return LoopState::Running;
  grid_.SetCol(kAddressColumn);
  const std::string address = grid_.Text();
  const std::string answer = probe_.CheckServerConnection(address);
  if (eventLoop_.PumpEvents() == LoopState::Ending) return LoopState::Ending;
  if (!MoveToRow(grid_, row, kLampColumn)) return LoopState::Running;
  if (ReadsAsNumber(answer)) {
    WriteOnline(answer);
  } else {
    WriteOffline(answer);
  }
  return LoopState::Running;
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
  state_.FailedConnections.push_back(grid_.Text());
}

/// Many rows fall into one second and share its text.
const std::string& CheckPass::NowText() {
  const auto now = clock_.Now();
  if (now != textSecond_ || text_.empty()) {
    textSecond_ = now;
    text_ = GeneralDateText(now);
  }
  return text_;
}

}  // namespace kestrava
