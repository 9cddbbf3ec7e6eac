#pragma once

#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrava {

/// Owns a file descriptor and closes it; a negative number stands for none.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    other.Close();
    return *this;
  }
  ~FileDescriptor() { Close(); }

  int Number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }

  /// @return 0, or -1 with `errno` as of close(2); the descriptor is gone in either case.
  int Close() { return number_ >= 0 ? close(std::exchange(number_, -1)) : 0; }

 private:
  int number_;
};

/// Takes over what a system call gave.
/// @throws std::system_error with `errno` if that is no descriptor.
inline FileDescriptor CheckedDescriptor(int number) {
  if (number < 0) throw std::system_error(errno, std::generic_category());
  return FileDescriptor(number);
}

}  // namespace kestrava
