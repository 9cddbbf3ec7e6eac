#pragma once

#include <array>
#include <string>
#include <vector>

#include "real_program.h"
#include "shared/connection_table.h"

namespace kestrava {

using SplitRows = std::vector<std::array<std::string, kLastCheckedColumn>>;

/// A list of machines that have all been checked. The file goes with the object.
class LongList {
 public:
  static constexpr int kRows = 100000;

  explicit LongList(const std::string& folder);
  ~LongList();
  LongList(const LongList&) = delete;
  LongList& operator=(const LongList&) = delete;

  const std::string name;
  std::string bytes;
};

/// Serves events until an operation on a list is over. @return what it gives.
std::string Finish(Task<std::string> operation);

/// Loads the list into the program's table, and has the view of it show that.
void Load(RealProgram& program, const LongList& list);

/// Reads the list's lines and splits them into strings.
SplitRows ReadBarely(const LongList& list);

}  // namespace kestrava
