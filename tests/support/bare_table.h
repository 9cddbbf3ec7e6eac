#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/flex_grid.h"
#include "platform/form.h"
#include "shared/connection_table.h"

namespace kestrava::test {

inline constexpr ControlSpec kGridAlone[] = {{"grid", ControlKind::Grid, "", 0, 0, 0, 0, 0}};
inline constexpr FormSpec kBareForm = {"", "", FormStyle::MainWindow, 0, 0, kGridAlone, {}, {},
                                       "", ""};

/// The texts of columns 1 to 5, row by row.
using Rows = std::vector<std::array<std::string, 5>>;

/// A connection table without a program around it.
struct BareTable : Form {
  BareTable() : Form(kBareForm) { ConnectionGridSetup(grid); }

  Rows Connections() const {
    Rows rows;
    for (std::int32_t row = 1; row < grid.Rows(); ++row) {
      auto& texts = rows.emplace_back();
      for (std::int32_t col = 0; std::string & text : texts) text = grid.TextAt(row, ++col);
    }
    return rows;
  }

  MSFlexGrid grid{*this, "grid"};
};

}  // namespace kestrava::test
