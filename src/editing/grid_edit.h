#pragma once

namespace kestrava {

class MessageBoxes;
class MSFlexGrid;
class PromptBoxes;

/// Edits the grid's user cell in the way of its column: the name and the address through a prompt,
/// the checking word by a flip, the others not at all. Rows may come and go while a prompt is open;
/// the answer goes to the row that was the user's at the start, or nowhere.
void EditUserCell(MSFlexGrid& grid, PromptBoxes& promptBoxes, MessageBoxes& messageBoxes);

}  // namespace kestrava
