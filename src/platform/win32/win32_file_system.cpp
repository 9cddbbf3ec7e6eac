#include "platform/win32/win32_file_system.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/win32/owned_handle.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr DWORD kFileNotFound = 2;  // ERROR_FILE_NOT_FOUND
constexpr std::size_t kReadSize = 64 * 1024;
/// Of one call, so that its length always has room in what the call takes.
constexpr std::size_t kMostWritten = 16 * 1024 * 1024;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void RaiseLastError() { RaiseSystemError(GetLastError()); }

/// @throws RuntimeError unless it is on a disk.
OwnedHandle Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition,
                 DWORD flags, SECURITY_ATTRIBUTES* security = nullptr) {
  // The other end of a pipe must not act for the user.
  OwnedHandle file =
      OwnedFile(CreateFileW(path.c_str(), access, share, security, disposition,
                            flags | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
  if (!file) RaiseLastError();
  if (GetFileType(file.get()) != FILE_TYPE_DISK) RaiseSystemError(ERROR_NOT_SUPPORTED);
  return file;
}

/// A file or a folder, to be looked at. Links are followed.
OwnedHandle OpenToLook(const std::wstring& path) {
  return Open(path, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
}

BY_HANDLE_FILE_INFORMATION InformationOf(const OwnedHandle& file) {
  BY_HANDLE_FILE_INFORMATION information{};
  if (!GetFileInformationByHandle(file.get(), &information)) RaiseLastError();
  return information;
}

bool IsFolder(const BY_HANDLE_FILE_INFORMATION& information) {
  return (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<bool> IsFolder(const std::string& name) {
  try {
    return IsFolder(InformationOf(OpenToLook(ToWide(name))));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

std::wstring PathOf(const OwnedHandle& file) {
  const DWORD room = GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0);
  std::wstring path(room, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(file.get(), path.data(), room, 0);
  if (length == 0 || length >= room) RaiseLastError();
  path.resize(length);
  return path;
}

std::wstring FolderOf(const std::wstring& path) {
  const auto end = path.find_last_of(L"\\/:");
  return end == path.npos ? L"." : path.substr(0, end + 1);
}

std::vector<std::byte> SecurityOf(const std::wstring& path) {
  DWORD needed = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
  std::vector<std::byte> security(needed);
  if (!GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, security.data(), needed,
                        &needed)) {
    return {};
  }
  return security;
}

class Win32TextStream final : public TextStream {
 public:
  explicit Win32TextStream(OwnedHandle file) : file_(std::move(file)) {}

  void WriteLine(std::string text) override {
    waiting_ = waiting_.empty() ? std::move(text) : waiting_ + text;
    waiting_ += "\r\n";
  }

  void Close() override {
    for (std::string_view rest = waiting_; !rest.empty();) {
      DWORD written = 0;
      const auto size = static_cast<DWORD>(std::min(rest.size(), kMostWritten));
      if (!WriteFile(file_.get(), rest.data(), size, &written, nullptr)) RaiseLastError();
      rest.remove_prefix(written);
    }
    if (!FlushFileBuffers(file_.get()) || !CloseHandle(file_.release())) RaiseLastError();
  }

 private:
  OwnedHandle file_;
  std::string waiting_;
};

}  // namespace

bool Win32FileSystem::FileExists(const std::string& name) { return IsFolder(name) == false; }

bool Win32FileSystem::FolderExists(const std::string& name) { return IsFolder(name) == true; }

void Win32FileSystem::EnsureRoom(const std::string& name, std::size_t bytes) {
  std::wstring path = ToWide(name);
  ULARGE_INTEGER replaced{};
  const OwnedHandle present =
      OwnedFile(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (present) {
    if (GetFileType(present.get()) != FILE_TYPE_DISK) RaiseSystemError(ERROR_NOT_SUPPORTED);
    const auto information = InformationOf(present);
    if (IsFolder(information)) RaiseSystemError(ERROR_ACCESS_DENIED);
    path = PathOf(present);
    // The deletion gives nothing back of a file that has a further name.
    if (information.nNumberOfLinks == 1) {
      replaced.LowPart = information.nFileSizeLow;
      replaced.HighPart = information.nFileSizeHigh;
    }
  } else if (const DWORD error = GetLastError(); error != kFileNotFound) {
    RaiseSystemError(error);
  }
  const std::wstring folder = FolderOf(path);
  // Whether files may be made there.
  Open(folder, FILE_ADD_FILE, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  ULARGE_INTEGER free{};
  if (!GetDiskFreeSpaceExW(folder.c_str(), &free, nullptr, nullptr)) return;
  if (bytes > free.QuadPart + replaced.QuadPart) RaiseSystemError(ERROR_DISK_FULL);
}

void Win32FileSystem::DeleteFile(const std::string& name, ReadOnlyFile readOnlyFile) {
  Deleted deleted{name, {}, {}};
  DWORD attributes = 0;
  {
    const OwnedHandle file = OpenToLook(ToWide(name));
    const auto information = InformationOf(file);
    if (IsFolder(information)) RaiseSystemError(ERROR_ACCESS_DENIED);
    attributes = information.dwFileAttributes;
    deleted.path = PathOf(file);
  }
  deleted.security = SecurityOf(deleted.path);
  const bool isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (isReadOnly && readOnlyFile == ReadOnlyFile::Refuse) RaiseSystemError(ERROR_ACCESS_DENIED);
  if (isReadOnly) {
    SetFileAttributesW(deleted.path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  if (!DeleteFileW(deleted.path.c_str())) {
    const DWORD error = GetLastError();
    if (isReadOnly) SetFileAttributesW(deleted.path.c_str(), attributes);
    RaiseSystemError(error);
  }
  deleted_ = std::move(deleted);
}

std::unique_ptr<TextStream> Win32FileSystem::OpenTextFile(const std::string& name) {
  auto deleted = std::exchange(deleted_, {});
  const bool replaces = deleted.name == name && !deleted.path.empty();
  SECURITY_ATTRIBUTES security{sizeof(security), deleted.security.data(), FALSE};
  OwnedHandle file =
      Open(replaces ? deleted.path : ToWide(name), GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS,
           FILE_ATTRIBUTE_NORMAL, replaces && !deleted.security.empty() ? &security : nullptr);
  if (!SetEndOfFile(file.get())) RaiseLastError();
  return std::make_unique<Win32TextStream>(std::move(file));
}

/// A file may grow meanwhile, so its size is where the reading starts from, no more.
TextReader Win32FileSystem::OpenForReading(const std::string& name, std::size_t mostBytes) {
  const OwnedHandle file =
      Open(ToWide(name), GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
  LARGE_INTEGER told{};
  if (!GetFileSizeEx(file.get(), &told)) RaiseLastError();
  if (static_cast<std::uint64_t>(told.QuadPart) > mostBytes) RaiseSystemError(ERROR_FILE_TOO_LARGE);
  std::string bytes(
      std::min(std::max(static_cast<std::size_t>(told.QuadPart) + 1, kReadSize), mostBytes + 1),
      '\0');
  for (std::size_t size = 0;;) {
    DWORD count = 0;
    const auto room = static_cast<DWORD>(std::min(bytes.size() - size, kMostWritten));
    if (!ReadFile(file.get(), bytes.data() + size, room, &count, nullptr)) RaiseLastError();
    size += count;
    if (size > mostBytes) RaiseSystemError(ERROR_FILE_TOO_LARGE);
    if (count == 0) {
      bytes.resize(size);
      return TextReader(std::move(bytes));
    }
    if (size == bytes.size()) bytes.resize(std::min(2 * size, mostBytes + 1));
  }
}

}  // namespace kestrava
