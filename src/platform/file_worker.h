#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/task.h"

namespace kestrava {

class FileSystemObject;

/// What becomes of a job that is under way when the program ends.
enum class AtEnd { Drop, Finish };

/// Runs work on files, which may hang: a file may lie on a share that doesn't answer.
///
/// An ordinary file answers within a moment, and for that the caller simply waits, so that nothing
/// else happens meanwhile. Past it the event loop goes on until the job is done. A job that takes
/// too long has failed for whoever awaits it; it is left to itself, and still goes on if the file
/// answers at last.
class FileWorker {
 public:
  /// Must hold all that it touches: it may run elsewhere than the caller, beside it, and longer.
  using Job = std::function<void(FileSystemObject&)>;

  virtual ~FileWorker() = default;

  /// @param name the file that the job is about.
  /// @throws RuntimeError or std::bad_alloc as the job does; RuntimeError with the system's number
  ///   if the job takes too long, if an earlier one on that file hangs, or if too many do.
  virtual Task<> Run(std::string name, AtEnd atEnd, Job job) = 0;

  /// Runs a job that only looks, and gives what it returns. (Name what is passed: g++ 12 destroys a
  /// function object twice that is made in an expression with `co_await`.)
  /// @throws as `Run`.
  template <typename Look>
  Task<std::invoke_result_t<Look, FileSystemObject&>> Get(std::string name, Look look) {
    const auto result =
        std::make_shared<std::optional<std::invoke_result_t<Look, FileSystemObject&>>>();
    Job job = [look, result](FileSystemObject& files) { result->emplace(look(files)); };
    co_await Run(std::move(name), AtEnd::Drop, std::move(job));
    co_return std::move(**result);
  }
};

}  // namespace kestrava
