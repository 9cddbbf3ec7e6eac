#pragma once

#include <string>

namespace kestrava {

/// The file dialogs. One instance serves every command and keeps its values between two showings.
/// Paths are in the system's own bytes.
class CommonDialog {
 public:
  virtual ~CommonDialog() = default;

  /// The one kind of file that is offered: a description, a bar, a pattern.
  std::string Filter;
  /// The folder in which the dialog starts; empty for the desktop's choice.
  std::string InitDir;
  /// The full path that the user chose in the latest showing; empty if the user chose nothing or
  /// the program ended.
  std::string FileName;

  /// Each shows a dialog, sets `FileName` and returns when the user is done, or at once when the
  /// program ends. Events are delivered meanwhile. `ShowSave` adds no extension to a name and asks
  /// nothing about a file that exists.
  virtual void ShowOpen() = 0;
  virtual void ShowSave() = 0;
};

}  // namespace kestrava
