#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/text_reader.h"

namespace kestrava {

/// A text file that is being written.
class TextStream {
 public:
  /// Closes the file, if `Close` didn't, and reports nothing.
  virtual ~TextStream() = default;

  /// Writes the bytes of `text` and CR LF behind them. They may wait in memory until `Close`.
  /// @throws RuntimeError with the system's number.
  virtual void WriteLine(std::string_view text) = 0;

  /// Returns when the file is complete on disk.
  /// @throws RuntimeError with the system's number.
  virtual void Close() = 0;
};

enum class ReadOnlyFile { Refuse, Delete };

/// The files and folders of the system. Names are paths in the system's own bytes. An error carries
/// the system's number (errno) and its text for people.
class FileSystemObject {
 public:
  virtual ~FileSystemObject() = default;

  /// True if there is a file of that name. A folder, a device or a pipe is none.
  virtual bool FileExists(const std::string& name) = 0;

  /// True if there is a folder of that name.
  virtual bool FolderExists(const std::string& name) = 0;

  /// The file is gone afterwards.
  /// @throws RuntimeError if it can't be deleted; a folder can't.
  virtual void DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) = 0;

  /// Opens a file for writing 8-bit text from its start, and creates it if it is missing.
  /// @throws RuntimeError if that can't be done, or if the name is that of something else than a
  ///   file.
  virtual std::unique_ptr<TextStream> OpenTextFile(const std::string& name) = 0;

  /// Reads a whole file and closes it.
  /// @throws RuntimeError as `OpenTextFile`, or if it has more than `mostBytes` bytes, of which no
  ///   more than these are read.
  virtual TextReader OpenForReading(const std::string& name, std::size_t mostBytes) = 0;
};

}  // namespace kestrava
