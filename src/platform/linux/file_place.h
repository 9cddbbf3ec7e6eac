#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace kestrava {

/// Where a name leads, once its symbolic links are followed, and what stands there.
struct FilePlace {
  std::string path;
  std::optional<struct stat> status;  ///< nothing if there is nothing yet

  /// @throws RuntimeError if that can't be told, or if the name is that of a link whose end is
  ///   missing: it may be on a disk that isn't there at the moment.
  static FilePlace Of(const std::string& name);

  /// Finds out whether a file of `bytes` bytes can take this place once what stands there is
  /// deleted; as far as the file system tells, for some know neither quotas nor free room. Nothing
  /// with a name is made.
  /// @throws RuntimeError if it can't, or if something else than a file stands there.
  void EnsureRoom(std::size_t bytes) const;
};

/// @throws RuntimeError unless it is that of a regular file: EISDIR for a folder, else EOPNOTSUPP.
void RequireRegularFile(const struct stat& status);

}  // namespace kestrava
