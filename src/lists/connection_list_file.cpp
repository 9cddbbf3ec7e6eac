#include "lists/connection_list_file.h"

#include <memory>
#include <new>
#include <utility>

#include "lists/list_text.h"
#include "platform/file_system.h"
#include "platform/file_worker.h"
#include "platform/flex_grid.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

// No list comes near it, and a file that does costs no memory beyond it.
constexpr std::size_t kMostBytes = 256 * 1024 * 1024;

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
  FileWorker::Job ensureRoom = [fileName, bytes = text.size() + kListLineEnd.size()](auto& system) {
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
  co_return ReadListText(list, grid) == IsList::Yes ? "" : kReselect;
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
