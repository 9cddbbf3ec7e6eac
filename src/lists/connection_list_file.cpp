#include "lists/connection_list_file.h"

#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "monitor/connection_table.h"
#include "platform/file_system.h"
#include "platform/file_worker.h"
#include "platform/flex_grid.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr std::string_view kMagicLine = "ZR_Kestrava_ConnectionList";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSeparator = ",";

// No list comes near these, and a file that does costs neither memory nor time beyond them. A line
// has room for five texts as long as a text box takes (32767 characters of four bytes each).
constexpr std::size_t kMostBytes = 256 * 1024 * 1024;
constexpr std::int32_t kMostLines = 2 * 1024 * 1024;
constexpr std::size_t kLongestLine = 1024 * 1024;

std::string FailureText(int number, const std::string& description) {
  return std::to_string(number) + " - " + description;
}

/// Awaits one operation and turns an error into its result.
Task<std::string> ResultOf(Task<std::string> operation) {
  try {
    co_return co_await operation;
  } catch (const RuntimeError& error) {
    co_return FailureText(error.Number(), error.what());
  } catch (const std::bad_alloc&) {
    co_return FailureText(kErrorOutOfMemory, "out of memory");
  }
}

/// The whole list. Its last line has no line end yet.
std::string ListText(MSFlexGrid& grid) {
  // A long text that grows is copied again and again.
  std::size_t bytes = kMagicLine.size();
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    bytes += kLineEnd.size() + grid.TextSizeAt(row) + kColumnCount * kSeparator.size();
  }
  std::string text;
  text.reserve(bytes);
  text += kMagicLine;
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    grid.SetRow(row);
    for (std::int32_t col = kNameColumn; col < grid.Cols(); ++col) {
      grid.SetCol(col);
      text.append(col == kNameColumn ? kLineEnd : kSeparator).append(grid.TextView());
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
    line.remove_prefix(comma + kSeparator.size());
  }
  WriteCell(grid, kLastCheckedColumn, line);
}

Task<std::string> Save(const std::string& fileName, MSFlexGrid& grid,
                       ConfirmOverwrite confirmOverwrite, FileWorker& files,
                       MessageBoxes& messageBoxes) {
  if (grid.Rows() == kHeadingRow + 1) co_return "";
  const auto look = [fileName](FileSystemObject& system) { return system.FileExists(fileName); };
  const bool exists = co_await files.Get(fileName, look);
  if (exists && confirmOverwrite == ConfirmOverwrite::Yes &&
      messageBoxes.AskYesNo("Are you sure you want to overwrite the existing file ?",
                            "Overwrite File ?") == YesNo::No) {
    co_return kReselect;
  }
  // What can go wrong should do so while the older file is still there.
  std::string text = ListText(grid);
  FileWorker::Job ensureRoom = [fileName, bytes = text.size() + kLineEnd.size()](auto& system) {
    system.EnsureRoom(fileName, bytes);
  };
  co_await files.Run(fileName, AtEnd::Drop, std::move(ensureRoom));
  // In one job: once the older file is deleted, the new one follows, whoever still waits for it.
  FileWorker::Job write = [fileName, exists, text = std::move(text)](auto& system) mutable {
    if (exists) system.DeleteFile(fileName, ReadOnlyFile::Delete);
    const std::unique_ptr<TextStream> stream = system.OpenTextFile(fileName);
    stream->WriteLine(std::move(text));
    stream->Close();
  };
  co_await files.Run(fileName, AtEnd::Finish, std::move(write));
  co_return "";
}

Task<std::string> Fetch(const std::string& fileName, FileWorker& files, TextReader& list) {
  const auto look = [fileName](FileSystemObject& system) {
    return system.OpenForReading(fileName, kMostBytes);
  };
  list = co_await files.Get(fileName, look);
  co_return "";
}

Task<std::string> Read(TextReader& list, MSFlexGrid& grid) {
  bool magicLineSeen = false;
  for (std::int32_t lines = 0; !list.AtEnd(); ++lines) {
    if (lines == kMostLines) throw RuntimeError(kErrorOverflow, "the list has too many lines");
    const std::string_view line = list.ReadLine();
    if (line == kMagicLine) {
      magicLineSeen = true;
    } else if (magicLineSeen) {
      AppendConnection(grid, line);
    }
  }
  co_return magicLineSeen ? "" : kReselect;
}

}  // namespace

Task<std::string> SaveConnectionList(std::string fileName, MSFlexGrid& grid,
                                     ConfirmOverwrite confirmOverwrite, FileWorker& files,
                                     MessageBoxes& messageBoxes) {
  co_return co_await ResultOf(Save(fileName, grid, confirmOverwrite, files, messageBoxes));
}

Task<std::string> LoadConnectionList(std::string fileName, MSFlexGrid& grid, FileWorker& files) {
  TextReader list("");
  std::string result = co_await ResultOf(Fetch(fileName, files, list));
  grid.SetRows(kHeadingRow + 1);
  if (result.empty()) result = co_await ResultOf(Read(list, grid));
  co_return result;
}

}  // namespace kestrava
