#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace kestrava {

/// Ends the fuzzer, which then tells its input, where something doesn't hold.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// @return a fresh folder, which now holds all that belongs to the user and to other programs.
inline std::string FreshHome() {
  std::string home = std::filesystem::temp_directory_path() / "fuzz.XXXXXX";
  Require(mkdtemp(home.data()) != nullptr);
  for (const char* name : {"DATA_HOME", "CONFIG_HOME", "DATA_DIRS", "CONFIG_DIRS"}) {
    setenv((std::string("XDG_") + name).c_str(), home.c_str(), 1);
  }
  return home;
}

}  // namespace kestrava
