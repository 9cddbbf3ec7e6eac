#include "platform/linux/linux_file_system.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <span>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/linux/file_descriptor.h"
#include "platform/runtime_error.h"

namespace kestrava {
namespace {

constexpr std::size_t kReadSize = 64 * 1024;
constexpr std::size_t kWriteSize = 1024 * 1024;
constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kAnyWriteBit = 0222;

[[noreturn]] void Raise(int error) {
  throw RuntimeError(error, std::generic_category().message(error));
}

/// The kind and permission bits of what stands under a name, or nothing if that can't be told.
std::optional<mode_t> ModeOf(const std::string& name) {
  struct stat status;
  if (stat(name.c_str(), &status) != 0) return std::nullopt;
  return status.st_mode;
}

FileDescriptor OpenRegularFile(const std::string& name, int flags) {
  // O_NONBLOCK keeps the opening of a pipe from waiting for the other end.
  FileDescriptor file(open(name.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kNewFileMode));
  struct stat status;
  if (!file || fstat(file.Number(), &status) != 0) Raise(errno);
  if (S_ISDIR(status.st_mode)) Raise(EISDIR);
  if (!S_ISREG(status.st_mode)) Raise(EOPNOTSUPP);
  return file;
}

/// @return 0 at the end of the file.
std::size_t ReadSome(const FileDescriptor& file, std::span<char> buffer) {
  for (;;) {
    const ssize_t count = read(file.Number(), buffer.data(), buffer.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) Raise(errno);
  }
}

/// A file may tell no size, or grow meanwhile, so its size is where the reading starts from, no
/// more.
std::string ReadAll(const FileDescriptor& file, std::size_t mostBytes) {
  struct stat status;
  if (fstat(file.Number(), &status) != 0) Raise(errno);
  const auto told = static_cast<std::size_t>(status.st_size);
  if (told > mostBytes) Raise(EFBIG);
  std::string bytes(std::min(std::max(told + 1, kReadSize), mostBytes + 1), '\0');
  std::size_t size = 0;
  while (const std::size_t count = ReadSome(file, std::span(bytes).subspan(size))) {
    size += count;
    if (size > mostBytes) Raise(EFBIG);
    if (size == bytes.size()) bytes.resize(std::min(2 * size, mostBytes + 1));
  }
  bytes.resize(size);
  return bytes;
}

class LinuxTextStream final : public TextStream {
 public:
  explicit LinuxTextStream(FileDescriptor file) : file_(std::move(file)) {}

  void WriteLine(std::string_view text) override {
    waiting_.append(text).append("\r\n");
    if (waiting_.size() >= kWriteSize) Flush();
  }

  void Close() override {
    Flush();
    if (fsync(file_.Number()) != 0 || file_.Close() != 0) Raise(errno);
  }

 private:
  void Flush() {
    for (std::string_view rest = waiting_; !rest.empty();) {
      const ssize_t count = write(file_.Number(), rest.data(), rest.size());
      if (count >= 0) {
        rest.remove_prefix(static_cast<std::size_t>(count));
      } else if (errno != EINTR) {
        Raise(errno);
      }
    }
    waiting_.clear();
  }

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

void LinuxFileSystem::DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) {
  // The system itself asks for the folder's permissions alone.
  if (readOnlyFile == ReadOnlyFile::Refuse && !(ModeOf(name).value_or(0) & kAnyWriteBit)) {
    Raise(EACCES);
  }
  if (unlink(name.c_str()) != 0) Raise(errno);
}

std::unique_ptr<TextStream> LinuxFileSystem::OpenTextFile(const std::string& name) {
  return std::make_unique<LinuxTextStream>(OpenRegularFile(name, O_WRONLY | O_CREAT | O_TRUNC));
}

TextReader LinuxFileSystem::OpenForReading(const std::string& name, std::size_t mostBytes) {
  return TextReader(ReadAll(OpenRegularFile(name, O_RDONLY), mostBytes));
}

}  // namespace kestrava
