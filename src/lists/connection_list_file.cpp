#include "lists/connection_list_file.h"

#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "monitor/connection_table.h"
#include "platform/file_system.h"
#include "platform/flex_grid.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr std::string_view kMagicLine = "ZR_Kestrava_ConnectionList";
constexpr std::string_view kLineEnd = "\r\n";
constexpr char kSeparator = ',';

// No list comes near these, and a file that does costs neither memory nor time beyond them. A line
// has room for five texts as long as a text box takes (32767 characters of four bytes each).
constexpr std::size_t kMostBytes = 256 * 1024 * 1024;
constexpr std::int32_t kMostLines = 2 * 1024 * 1024;
constexpr std::size_t kLongestLine = 1024 * 1024;

std::string FailureText(int number, const std::string& description) {
  return std::to_string(number) + " - " + description;
}

/// Runs one operation and turns an error into its result.
template <typename Operation>
std::string ResultOf(Operation operation) {
  try {
    return operation();
  } catch (const RuntimeError& error) {
    return FailureText(error.Number(), error.what());
  } catch (const std::bad_alloc&) {
    return FailureText(kErrorOutOfMemory, "out of memory");
  }
}

/// The whole list. Its last line has no line end yet.
std::string ListText(MSFlexGrid& grid) {
  std::string text(kMagicLine);
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    grid.SetRow(row);
    text += kLineEnd;
    for (std::int32_t col = kNameColumn; col < grid.Cols(); ++col) {
      grid.SetCol(col);
      text += grid.TextView();
      if (col < grid.Cols() - 1) text += kSeparator;
    }
  }
  return text;
}

void AppendConnection(MSFlexGrid& grid, std::string_view line) {
  AppendConnectionRow(grid);
  if (line.size() > kLongestLine) {
    throw RuntimeError(kErrorOverflow, "a line of the list is too long");
  }
  for (const Column column : {kNameColumn, kAddressColumn, kStatusColumn, kCheckingColumn}) {
    const std::size_t comma = line.find(kSeparator);
    if (comma == std::string_view::npos) {
      throw RuntimeError(kErrorInvalidCall, "a line of the list has fewer than four commas");
    }
    WriteCell(grid, column, line.substr(0, comma));
    line.remove_prefix(comma + 1);
  }
  WriteCell(grid, kLastCheckedColumn, line);
}

}  // namespace

std::string SaveConnectionList(const std::string& fileName, MSFlexGrid& grid,
                               ConfirmOverwrite confirmOverwrite, FileSystemObject& fileSystem,
                               MessageBoxes& messageBoxes) {
  return ResultOf([&]() -> std::string {
    if (grid.Rows() == kHeadingRow + 1) return {};
    const bool exists = fileSystem.FileExists(fileName);
    if (exists && confirmOverwrite == ConfirmOverwrite::Yes &&
        messageBoxes.AskYesNo("Are you sure you want to overwrite the existing file ?",
                              "Overwrite File ?") == YesNo::No) {
      return kReselect;
    }
    // What can go wrong should do so while the older file is still there.
    std::string text = ListText(grid);
    fileSystem.EnsureRoom(fileName, text.size() + kLineEnd.size());
    if (exists) fileSystem.DeleteFile(fileName, ReadOnlyFile::Delete);
    const std::unique_ptr<TextStream> stream = fileSystem.OpenTextFile(fileName);
    stream->WriteLine(std::move(text));
    stream->Close();
    return {};
  });
}

std::string LoadConnectionList(const std::string& fileName, MSFlexGrid& grid,
                               FileSystemObject& fileSystem) {
  return ResultOf([&]() -> std::string {
    grid.SetRows(kHeadingRow + 1);
    TextReader reader = fileSystem.OpenForReading(fileName, kMostBytes);
    bool magicLineSeen = false;
    for (std::int32_t lines = 0; !reader.AtEnd(); ++lines) {
      if (lines == kMostLines) throw RuntimeError(kErrorOverflow, "the list has too many lines");
      const std::string_view line = reader.ReadLine();
      if (line == kMagicLine) {
        magicLineSeen = true;
      } else if (magicLineSeen) {
        AppendConnection(grid, line);
      }
    }
    return magicLineSeen ? "" : kReselect;
  });
}

}  // namespace kestrava
