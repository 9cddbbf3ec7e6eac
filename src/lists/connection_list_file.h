#pragma once

#include <string>

#include "platform/task.h"

namespace kestrava {

class FileWorker;
class MessageBoxes;
class MSFlexGrid;

// A list file holds the connection table as 8-bit text: the magic line, then one line for each row
// with the texts of columns 1 to 5 and a comma between two of them, without quoting. Lines are
// written with CR LF.
//
// Both operations give how they ended: empty for done, `kReselect`, or the number of an error,
// " - " and its description. They leave the grid's cursor on the last cell that they touched.

/// The result that asks for another file.
inline constexpr const char* kReselect = "RESELECT";

/// Whether the user is asked before a file is replaced.
enum class ConfirmOverwrite { No, Yes };

/// Writes the table, as it is once the user has agreed, to a file that replaces an older one of
/// that name, with or without asking the user first. A table without connections touches no file
/// and counts as done.
/// @return `kReselect` if the user refused to overwrite the file.
Task<std::string> SaveConnectionList(std::string fileName, MSFlexGrid& grid,
                                     ConfirmOverwrite confirmOverwrite, FileWorker& files,
                                     MessageBoxes& messageBoxes);

/// Replaces the table's rows by those of a file. A line with too few commas, or longer than 1 MiB,
/// is an error, and so is a line past the first 2097152, whatever they hold; the rows ahead of it
/// stay. Of a file of more than 256 MiB nothing is taken. The old rows stand until the file has
/// been fetched, or can't be; then they give way in one step.
/// @return `kReselect` if the file has no magic line.
Task<std::string> LoadConnectionList(std::string fileName, MSFlexGrid& grid, FileWorker& files);

}  // namespace kestrava
