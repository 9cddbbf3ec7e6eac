#pragma once

#include <stdexcept>
#include <string>
#include <variant>

namespace kestrava {

/// Numbers of the errors that the program itself raises, and its controls, which may have further
/// ones.
enum ErrorNumber : int {
  kErrorInvalidCall = 5,
  kErrorOverflow = 6,
  kErrorOutOfMemory = 7,
  kErrorIndexOutOfRange = 9,
  kErrorTypeMismatch = 13,
};

/// A number of the system's own: `errno` on Linux, what `GetLastError` gives on Windows. The same
/// number may mean something else among the program's own: 13 is a type mismatch and EACCES.
enum class SystemErrorNumber : int {};

/// An error that travels up to the nearest caller with a handler: a number that tells what went
/// wrong, and a description for people.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(ErrorNumber number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  RuntimeError(SystemErrorNumber number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  /// False for an error of the system, whatever its number.
  bool Is(ErrorNumber number) const { return number_ == AnyNumber(number); }

  /// The number alone, for people.
  int Number() const {
    return std::visit([](auto number) { return static_cast<int>(number); }, number_);
  }

 private:
  using AnyNumber = std::variant<ErrorNumber, SystemErrorNumber>;

  AnyNumber number_;
};

}  // namespace kestrava
