#include "lists/list_commands.h"

#include <tuple>

#include "lists/connection_list_file.h"
#include "platform/common_dialog.h"
#include "platform/file_system.h"
#include "platform/file_worker.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

constexpr const char* kLoadFailed = "Connection List Load Failed";
constexpr const char* kSaveFailed = "Connection List Save Failed";

}  // namespace

void ListCommands::NewList() {
  if (command_.UnderWay()) return;
  ConnectionGridSetup(grid_);
  applyButtonRule_();
}

void ListCommands::LoadLastList() { Start(LoadLast()); }

void ListCommands::LoadList() {
  if (command_.UnderWay()) return messageBoxes_.MsgBox(kLoadFailed, MessageIcon::None);
  Start(Load());
}

void ListCommands::SaveList() {
  if (command_.UnderWay()) return messageBoxes_.MsgBox(kSaveFailed, MessageIcon::None);
  Start(Save());
}

void ListCommands::Start(Task<> command) {
  command_ = std::move(command);
  command_.Start();
}

Task<> ListCommands::LoadLast() {
  // However it ends: nobody has asked for it, and the table shows what was there.
  std::ignore = co_await LoadConnectionList(lastListFile_, grid_, files_);
  applyButtonRule_();
}

Task<> ListCommands::Load() {
  std::string fileName;
  std::string result;
  do {
    co_await PrepareDialog();
    commonDialog_.ShowOpen();
    fileName = commonDialog_.FileName;
    if (fileName.empty()) co_return;
    result = co_await LoadConnectionList(fileName, grid_, files_);
  } while (result == kReselect);
  if (!result.empty()) {
    messageBoxes_.MsgBox(kLoadFailed, MessageIcon::None);
    co_return;
  }
  lastListFile_ = fileName;
  applyButtonRule_();
}

Task<> ListCommands::Save() {
  std::string fileName;
  std::string result;
  do {
    co_await PrepareDialog();
    commonDialog_.ShowSave();
    fileName = commonDialog_.FileName;
    if (fileName.empty()) co_return;
    result =
        co_await SaveConnectionList(fileName, grid_, ConfirmOverwrite::Yes, files_, messageBoxes_);
  } while (result == kReselect);
  if (!result.empty()) {
    messageBoxes_.MsgBox(kSaveFailed, MessageIcon::None);
    co_return;
  }
  messageBoxes_.MsgBox("Connection List Successfully Saved", MessageIcon::None);
  lastListFile_ = fileName;
}

Task<> ListCommands::PrepareDialog() {
  commonDialog_.Filter = "Kestrava List Files (*.kvl)|*.kvl";
  const auto look = [folder = listFolder_](FileSystemObject& system) {
    return system.FolderExists(folder);
  };
  try {
    if (co_await files_.Get(listFolder_, look)) commonDialog_.InitDir = listFolder_;
  } catch (const RuntimeError&) {
    // It can't be told, so the dialog starts elsewhere.
  }
}

}  // namespace kestrava
