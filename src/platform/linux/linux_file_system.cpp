#include "platform/linux/linux_file_system.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <span>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <utility>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/system_error.h"

namespace kestrava {

namespace {

constexpr std::size_t kReadSize = 64 * 1024;
constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kPermissionBits = 0777;
constexpr mode_t kOwnersAlone = 0600;
constexpr auto kSameUser = static_cast<uid_t>(-1);

/// The kind and permission bits of what stands under a name, or nothing if that can't be told.
std::optional<mode_t> ModeOf(const std::string& name) {
  struct stat status;
  if (stat(name.c_str(), &status) != 0) return std::nullopt;
  return status.st_mode;
}

FileDescriptor OpenRegularFile(const std::string& name, int flags, mode_t newFileMode = 0) {
  // O_NONBLOCK keeps the opening of a pipe from waiting for the other end.
  FileDescriptor file(open(name.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, newFileMode));
  struct stat status;
  if (!file || fstat(file.Number(), &status) != 0) RaiseSystemError(errno);
  RequireRegularFile(status);
  return file;
}

/// Where the system refuses that, the file stays as near to it as it may come.
void TakeOver(const struct stat& replaced, const FileDescriptor& file) {
  if (fchown(file.Number(), replaced.st_uid, replaced.st_gid) != 0) {
    std::ignore = fchown(file.Number(), kSameUser, replaced.st_gid);
  }
  std::ignore = fchmod(file.Number(), replaced.st_mode & kPermissionBits);
}

/// @return 0 at the end of the file.
std::size_t ReadSome(const FileDescriptor& file, std::span<char> buffer) {
  for (;;) {
    const ssize_t count = read(file.Number(), buffer.data(), buffer.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) RaiseSystemError(errno);
  }
}

/// A file may tell no size, or grow meanwhile, so its size is where the reading starts from, no
/// more.
std::string ReadAll(const FileDescriptor& file, std::size_t mostBytes) {
  struct stat status;
  if (fstat(file.Number(), &status) != 0) RaiseSystemError(errno);
  const auto told = static_cast<std::size_t>(status.st_size);
  if (told > mostBytes) RaiseSystemError(EFBIG);
  std::string bytes(std::min(std::max(told + 1, kReadSize), mostBytes + 1), '\0');
  std::size_t size = 0;
  while (const std::size_t count = ReadSome(file, std::span(bytes).subspan(size))) {
    size += count;
    if (size > mostBytes) RaiseSystemError(EFBIG);
    if (size == bytes.size()) bytes.resize(std::min(2 * size, mostBytes + 1));
  }
  bytes.resize(size);
  return bytes;
}

class LinuxTextStream final : public TextStream {
 public:
  explicit LinuxTextStream(FileDescriptor file) : file_(std::move(file)) {}

  void WriteLine(std::string text) override {
    waiting_ = waiting_.empty() ? std::move(text) : waiting_ + text;
    waiting_ += "\r\n";
  }

  void Close() override {
    for (std::string_view rest = waiting_; !rest.empty();) {
      const ssize_t count = write(file_.Number(), rest.data(), rest.size());
      if (count >= 0) {
        rest.remove_prefix(static_cast<std::size_t>(count));
      } else if (errno != EINTR) {
        RaiseSystemError(errno);
      }
    }
    if (fsync(file_.Number()) != 0 || file_.Close() != 0) RaiseSystemError(errno);
  }

 private:
  FileDescriptor file_;
  std::string waiting_;
};

}  // namespace

bool LinuxFileSystem::FileExists(const std::string& name) {
  const auto mode = ModeOf(name);
  return mode && S_ISREG(*mode);
}

bool LinuxFileSystem::FolderExists(const std::string& name) {
  const auto mode = ModeOf(name);
  return mode && S_ISDIR(*mode);
}

void LinuxFileSystem::EnsureRoom(const std::string& name, std::size_t bytes) {
  FilePlace::Of(name).EnsureRoom(bytes);
}

void LinuxFileSystem::DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) {
  FilePlace place = FilePlace::Of(name);
  if (!place.status) RaiseSystemError(ENOENT);
  // The system itself asks for the folder's permissions alone.
  if (readOnlyFile == ReadOnlyFile::Refuse && !(place.status->st_mode & kAnyWriteBit)) {
    RaiseSystemError(EACCES);
  }
  if (unlink(place.path.c_str()) != 0) RaiseSystemError(errno);
  deleted_ = {name, std::move(place)};
}

std::unique_ptr<TextStream> LinuxFileSystem::OpenTextFile(const std::string& name) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC;
  const auto [deletedName, place] = std::exchange(deleted_, {});
  if (deletedName != name || !place.status) {
    return std::make_unique<LinuxTextStream>(OpenRegularFile(name, kFlags, kNewFileMode));
  }
  FileDescriptor file = OpenRegularFile(place.path, kFlags, kOwnersAlone);
  TakeOver(*place.status, file);
  return std::make_unique<LinuxTextStream>(std::move(file));
}

TextReader LinuxFileSystem::OpenForReading(const std::string& name, std::size_t mostBytes) {
  return TextReader(ReadAll(OpenRegularFile(name, O_RDONLY), mostBytes));
}

}  // namespace kestrava
