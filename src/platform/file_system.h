#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/text_reader.h"

namespace kestrava {

/// A text file that is being written.
class TextStream {
 public:
  /// Closes the file, if `Close` didn't, and reports nothing.
  virtual ~TextStream() = default;

  /// Writes the bytes of `text`, which may be many lines, and CR LF after them. They wait in
  /// memory until `Close`.
  virtual void WriteLine(std::string text) = 0;

  /// Returns when the file is complete on disk.
  /// @throws RuntimeError with the system's number.
  virtual void Close() = 0;
};

enum class ReadOnlyFile { Refuse, Delete };

/// The files and folders of the system. Names are paths in the system's own bytes. An error carries
/// the system's number and its text for people.
class FileSystemObject {
 public:
  virtual ~FileSystemObject() = default;

  /// True if there is a file of that name. A folder, a device or a pipe is none.
  virtual bool FileExists(const std::string& name) = 0;

  /// True if there is a folder of that name.
  virtual bool FolderExists(const std::string& name) = 0;

  /// Finds out whether a file of `bytes` bytes can take the place of the file of that name, or of
  /// none, once that is deleted: whether the folder can be written to and the disk has the room, as
  /// far as the system tells. Nothing is changed.
  /// @throws RuntimeError if it can't.
  virtual void EnsureRoom(const std::string& name, std::size_t bytes) = 0;

  /// The file is gone afterwards. Of a symbolic link that is the file that it leads to.
  /// @throws RuntimeError if it can't be deleted; a folder can't.
  virtual void DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) = 0;

  /// Opens a file for writing 8-bit text from its start, and creates it if it is missing. If it is
  /// the one that was deleted last, it stands where that stood, links followed, and has its
  /// permissions, and its owner and group as far as the system lets it.
  /// @throws RuntimeError if that can't be done, or if the name is that of something else than a
  ///   file.
  virtual std::unique_ptr<TextStream> OpenTextFile(const std::string& name) = 0;

  /// Reads a whole file and closes it.
  /// @throws RuntimeError as `OpenTextFile`, or if it has more than `mostBytes` bytes, of which no
  ///   more than these are read.
  virtual TextReader OpenForReading(const std::string& name, std::size_t mostBytes) = 0;
};

}  // namespace kestrava
