#include "lists/list_commands.h"

#include "lists/connection_list_file.h"
#include "monitor/connection_table.h"
#include "platform/common_dialog.h"
#include "platform/file_system.h"
#include "platform/message_box.h"

namespace kestrava {

void ListCommands::NewList() {
  ConnectionGridSetup(grid_);
  applyButtonRule_();
}

void ListCommands::LoadList() {
  std::string fileName;
  std::string result;
  do {
    PrepareDialog();
    commonDialog_.ShowOpen();
    fileName = commonDialog_.FileName;
    if (fileName.empty()) return;
    result = LoadConnectionList(fileName, grid_, fileSystem_);
  } while (result == kReselect);
  if (!result.empty()) {
    messageBoxes_.MsgBox("Connection List Load Failed", MessageIcon::None);
    return;
  }
  lastListFile_ = fileName;
  applyButtonRule_();
}

void ListCommands::SaveList() {
  std::string fileName;
  std::string result;
  do {
    PrepareDialog();
    commonDialog_.ShowSave();
    fileName = commonDialog_.FileName;
    if (fileName.empty()) return;
    result = SaveConnectionList(fileName, grid_, ConfirmOverwrite::Yes, fileSystem_, messageBoxes_);
  } while (result == kReselect);
  if (!result.empty()) {
    messageBoxes_.MsgBox("Connection List Save Failed", MessageIcon::None);
    return;
  }
  messageBoxes_.MsgBox("Connection List Successfully Saved", MessageIcon::None);
  lastListFile_ = fileName;
}

void ListCommands::PrepareDialog() {
  commonDialog_.Filter = "Kestrava List Files (*.kvl)|*.kvl";
  if (fileSystem_.FolderExists(listFolder_)) commonDialog_.InitDir = listFolder_;
}

}  // namespace kestrava
