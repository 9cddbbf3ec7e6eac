#include "platform/linux/file_place.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/system_error.h"

namespace kestrava {

namespace {

constexpr std::uint64_t kStatusBlock = 512;  // the unit of st_blocks, whatever the file system's is

/// What the deletion gives back: nothing if the file has a further name.
std::uint64_t RoomOf(const struct stat& status) {
  return status.st_nlink == 1 ? static_cast<std::uint64_t>(status.st_blocks) * kStatusBlock : 0;
}

/// The file system has no files without a name (EISDIR is open(2)'s word for it), or can't set room
/// aside.
bool IsUnsupported(int error) {
  return error == EOPNOTSUPP || error == EISDIR || error == EINVAL || error == ENOSYS;
}

enum class Room { There, Unknown };

/// Asks by taking the room for a file without a name, which is gone with its descriptor.
Room TryToTake(std::uint64_t bytes, const std::string& folder) {
  const FileDescriptor unnamed(open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
  if (!unnamed) {
    // One file more may be too many, where one in the place of another isn't.
    if (IsUnsupported(errno) || errno == ENOSPC || errno == EDQUOT) return Room::Unknown;
    RaiseSystemError(errno);
  }
  if (bytes == 0) return Room::There;
  int result = 0;
  do {
    result = fallocate(unnamed.Number(), 0, 0, static_cast<off_t>(bytes));
  } while (result != 0 && errno == EINTR);
  if (result == 0) return Room::There;
  if (IsUnsupported(errno)) return Room::Unknown;
  RaiseSystemError(errno);
}

void CompareWithFreeRoom(std::uint64_t bytes, const std::string& folder) {
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) RaiseSystemError(errno);
  struct statvfs room;
  if (statvfs(folder.c_str(), &room) != 0 || room.f_blocks == 0) return;
  const std::uint64_t blocks = geteuid() == 0 ? room.f_bfree : room.f_bavail;
  if (bytes > blocks * room.f_frsize) RaiseSystemError(ENOSPC);
}

}  // namespace

FilePlace FilePlace::Of(const std::string& name) {
  FilePlace place{name, std::nullopt};
  struct stat status;
  if (stat(name.c_str(), &status) == 0) {
    const std::unique_ptr<char, decltype(&std::free)> path(realpath(name.c_str(), nullptr),
                                                           &std::free);
    if (!path) RaiseSystemError(errno);
    place = {path.get(), status};
  } else if (const int error = errno; error != ENOENT || lstat(name.c_str(), &status) == 0) {
    RaiseSystemError(error);
  }
  return place;
}

void FilePlace::EnsureRoom(std::size_t bytes) const {
  if (status) RequireRegularFile(*status);
  rlimit longest;
  if (getrlimit(RLIMIT_FSIZE, &longest) == 0 && bytes > longest.rlim_cur) RaiseSystemError(EFBIG);
  const std::uint64_t more = bytes - std::min<std::uint64_t>(bytes, status ? RoomOf(*status) : 0);
  const auto parent = std::filesystem::path(path).parent_path();
  const std::string folder = parent.empty() ? "." : parent.string();
  // Taking room costs some milliseconds, which are well spent where there is something to lose.
  if (!status || TryToTake(more, folder) == Room::Unknown) CompareWithFreeRoom(more, folder);
}

void RequireRegularFile(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) RaiseSystemError(EISDIR);
  if (!S_ISREG(status.st_mode)) RaiseSystemError(EOPNOTSUPP);
}

}  // namespace kestrava
