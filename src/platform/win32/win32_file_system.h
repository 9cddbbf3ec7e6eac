#pragma once

#include <cstddef>
#include <vector>

#include "platform/file_system.h"

namespace kestrava {

/// The files of this machine, by their handles. Names are UTF-8, else Windows-1252. What is no file
/// on a disk, a pipe or a device for one, isn't opened.
class Win32FileSystem final : public FileSystemObject {
 public:
  bool FileExists(const std::string& name) override;
  bool FolderExists(const std::string& name) override;
  void EnsureRoom(const std::string& name, std::size_t bytes) override;
  void DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) override;
  std::unique_ptr<TextStream> OpenTextFile(const std::string& name) override;
  TextReader OpenForReading(const std::string& name, std::size_t mostBytes) override;

 private:
  struct Deleted {
    std::string name;
    std::wstring path;                ///< links followed
    std::vector<std::byte> security;  ///< its permissions; none if they can't be told
  };

  Deleted deleted_;  ///< the latest, whose place and permissions a new file of that name gets
};

}  // namespace kestrava
