#include "editing/grid_edit.h"

#include <string>

#include "general/modGeneral.h"
#include "monitor/connection_table.h"
#include "platform/flex_grid.h"
#include "platform/message_box.h"
#include "platform/prompt_box.h"

namespace kestrava {

namespace {

void EditName(MSFlexGrid& grid, PromptBoxes& promptBoxes) {
  const RowBookmark row = grid.Bookmark(grid.Row());
  const std::string answer =
      promptBoxes.InputBox("Please Enter the New Connection Name", "Connection Name", grid.Text());
  if (!answer.empty() && MoveToRow(grid, row, kNameColumn)) grid.SetText(answer);
}

void EditAddress(MSFlexGrid& grid, PromptBoxes& promptBoxes, MessageBoxes& messageBoxes) {
  const RowBookmark row = grid.Bookmark(grid.Row());
  const std::string answer = promptBoxes.InputBox("Please Enter the New Connection Address",
                                                  "Connection Address", grid.Text());
  if (answer.empty()) return;
  if (!IsDottedAddress(answer)) {
    messageBoxes.MsgBox("Not a Valid Address Format", MessageIcon::Stop);
    return;
  }
  if (MoveToRow(grid, row, kAddressColumn)) grid.SetText(answer);
}

void ToggleChecking(MSFlexGrid& grid) {
  grid.SetText(grid.Text() == kCheckingEnabled ? kCheckingDisabled : kCheckingEnabled);
}

}  // namespace

void EditCurrentCell(MSFlexGrid& grid, PromptBoxes& promptBoxes, MessageBoxes& messageBoxes) {
  if (grid.Row() == kHeadingRow) return;
  switch (grid.Col()) {
    case kNameColumn:
      return EditName(grid, promptBoxes);
    case kAddressColumn:
      return EditAddress(grid, promptBoxes, messageBoxes);
    case kCheckingColumn:
      return ToggleChecking(grid);
    default:
      return;
  }
}

}  // namespace kestrava
