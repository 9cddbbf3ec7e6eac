#pragma once

#include "platform/file_system.h"
#include "platform/linux/file_place.h"

namespace kestrava {

/// The files of this machine. Nothing waits for another process: what is no regular file, a pipe or
/// a device for one, isn't opened (EOPNOTSUPP; EISDIR for a folder).
class LinuxFileSystem final : public FileSystemObject {
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
    FilePlace place;
  };

  Deleted deleted_;  ///< the latest, whose place and permissions a new file of that name gets
};

}  // namespace kestrava
