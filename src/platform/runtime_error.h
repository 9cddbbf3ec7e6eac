#pragma once

#include <stdexcept>
#include <string>

namespace kestrava {

/// Numbers of the errors that the program itself raises. A control behind `platform/` may raise
/// numbers of its own.
enum ErrorNumber : int {
  kErrorInvalidCall = 5,
  kErrorOverflow = 6,
  kErrorOutOfMemory = 7,
  kErrorIndexOutOfRange = 9,
  kErrorTypeMismatch = 13,
};

/// An error that travels up to the nearest caller with a handler: a number that tells what went
/// wrong, and a description for people.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace kestrava
