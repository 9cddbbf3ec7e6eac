#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/task.h"

namespace kestrava {

class CommonDialog;
class FileWorker;
class MessageBoxes;
class MSFlexGrid;

/// The commands of the File menu that empty the table, fill it from a list file, or write it to
/// one. While one of them waits for a file that doesn't answer, a further one is refused.
class ListCommands {
 public:
  /// @param lastListFile the shared text that names the list loaded or saved last.
  /// @param programFolder the folder in which the program's file lies. A folder "Lists" below it is
  ///   where the dialogs start, if it is there.
  /// @param applyButtonRule enables the buttons that depend on the table having connections.
  ListCommands(MSFlexGrid& grid, FileWorker& files, CommonDialog& commonDialog,
               MessageBoxes& messageBoxes, std::string& lastListFile,
               const std::string& programFolder, std::function<void()> applyButtonRule)
      : grid_(grid),
        files_(files),
        commonDialog_(commonDialog),
        messageBoxes_(messageBoxes),
        lastListFile_(lastListFile),
        listFolder_(programFolder + "/Lists"),
        applyButtonRule_(std::move(applyButtonRule)) {}

  /// Empties the table, without a question. The file that a list came from is left alone.
  void NewList();

  /// Loads the shared text's list, without a word about failure.
  void LoadLastList();

  /// Asks for files until one is a list, fails, or the user chooses nothing.
  void LoadList();

  /// Asks for files until one was written, fails, or the user chooses nothing.
  void SaveList();

 private:
  Task<> LoadLast();
  Task<> Load();
  Task<> Save();
  Task<> PrepareDialog();
  void Start(Task<> command);

  MSFlexGrid& grid_;
  FileWorker& files_;
  CommonDialog& commonDialog_;
  MessageBoxes& messageBoxes_;
  std::string& lastListFile_;
  const std::string listFolder_;
  const std::function<void()> applyButtonRule_;
  Task<> command_;  ///< the latest; it ends by itself, as it may be what unloads the window
};

}  // namespace kestrava
