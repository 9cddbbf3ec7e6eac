#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/task.h"

namespace kestrava {

class FileSystemObject;

/// For so long whoever awaits a job simply waits, so that an ordinary file is there before anything
/// else happens.
inline constexpr std::chrono::milliseconds kShortWait{300};
/// After this time a job has failed for whoever awaits it.
inline constexpr std::chrono::milliseconds kLongestJob{10'000};
/// Jobs under way at a time. Each holds a thread, and memory for what it reads or writes.
inline constexpr std::size_t kMostJobs = 8;

/// What becomes of a job that is under way when the program ends.
enum class AtEnd { Drop, Finish };

/// Runs work on files, which may hang: a file may lie on a share that doesn't answer.
///
/// After `kShortWait` the event loop goes on until the job is done, or for `kLongestJob` in all. A
/// job that takes longer is left to itself, and still goes on if the file answers at last.
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
