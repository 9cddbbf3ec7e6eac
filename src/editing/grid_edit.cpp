#include "editing/grid_edit.h"

#include <string>

#include "general/modGeneral.h"
#include "platform/flex_grid.h"
#include "platform/message_box.h"
#include "platform/prompt_box.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

/// A cell as it was when the user was asked about it.
class AskedCell {
 public:
  explicit AskedCell(MSFlexGrid& grid)
      : grid_(grid),
        row_(grid.Bookmark(grid.Row())),
        column_(static_cast<Column>(grid.Col())),
        text_(grid.Text()) {}

  const std::string& Text() const { return text_; }

  /// Writes the user's answer, unless the row has gone or another command has changed the cell
  /// meanwhile: the user has answered for a text that stands there no more.
  void Write(const std::string& answer) const {
    if (MoveToRow(grid_, row_, column_) && grid_.TextView() == text_) grid_.SetText(answer);
  }

 private:
  MSFlexGrid& grid_;
  RowBookmark row_;
  Column column_;
  std::string text_;
};

void EditName(MSFlexGrid& grid, PromptBoxes& promptBoxes) {
  const AskedCell cell(grid);
  const std::string answer =
      promptBoxes.InputBox("Please Enter the New Connection Name", "Connection Name", cell.Text());
  if (!answer.empty()) cell.Write(answer);
}

void EditAddress(MSFlexGrid& grid, PromptBoxes& promptBoxes, MessageBoxes& messageBoxes) {
  const AskedCell cell(grid);
  const std::string answer = promptBoxes.InputBox("Please Enter the New Connection Address",
                                                  "Connection Address", cell.Text());
  if (answer.empty()) return;
  if (!IsDottedAddress(answer)) {
    messageBoxes.MsgBox("Not a Valid Address Format", MessageIcon::Stop);
    return;
  }
  cell.Write(answer);
}

void ToggleChecking(MSFlexGrid& grid) {
  grid.SetText(grid.Text() == kCheckingEnabled ? kCheckingDisabled : kCheckingEnabled);
}

}  // namespace

void EditUserCell(MSFlexGrid& grid, PromptBoxes& promptBoxes, MessageBoxes& messageBoxes) {
  const auto cell = grid.UserCell();
  if (!cell) return;
  grid.SetRow(cell->row);
  grid.SetCol(cell->col);
  switch (cell->col) {
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
