#pragma once

#include <functional>
#include <string>
#include <utility>

namespace kestrava {

class CommonDialog;
class FileSystemObject;
class MessageBoxes;
class MSFlexGrid;

/// The commands of the File menu that empty the table, fill it from a list file, or write it to
/// one.
class ListCommands {
 public:
  /// @param lastListFile the shared text that names the list loaded or saved last.
  /// @param programFolder the folder in which the program's file lies. A folder "Lists" below it is
  ///   where the dialogs start, if it is there.
  /// @param applyButtonRule enables the buttons that depend on the table having connections.
  ListCommands(MSFlexGrid& grid, FileSystemObject& fileSystem, CommonDialog& commonDialog,
               MessageBoxes& messageBoxes, std::string& lastListFile,
               const std::string& programFolder, std::function<void()> applyButtonRule)
      : grid_(grid),
        fileSystem_(fileSystem),
        commonDialog_(commonDialog),
        messageBoxes_(messageBoxes),
        lastListFile_(lastListFile),
        listFolder_(programFolder + "/Lists"),
        applyButtonRule_(std::move(applyButtonRule)) {}

  /// Empties the table, without a question. The file that a list came from is left alone.
  void NewList();

  /// Asks for files until one is a list, fails, or the user chooses nothing.
  void LoadList();

  /// Asks for files until one was written, fails, or the user chooses nothing.
  void SaveList();

 private:
  void PrepareDialog();

  MSFlexGrid& grid_;
  FileSystemObject& fileSystem_;
  CommonDialog& commonDialog_;
  MessageBoxes& messageBoxes_;
  std::string& lastListFile_;
  const std::string listFolder_;
  const std::function<void()> applyButtonRule_;
};

}  // namespace kestrava
