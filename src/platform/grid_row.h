#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/color.h"

namespace kestrava {

/// The cells of one row of a grid, in one block of memory: first the place and the colour of each
/// cell, then their texts without gaps. So a long table takes little memory and is quickly built
/// and walked.
class GridRow {
 public:
  /// A row of empty cells without a colour.
  GridRow(std::uint64_t serial, std::size_t cols);

  /// Tells the row from every other row that its grid ever had.
  std::uint64_t Serial() const { return serial_; }

  /// The text stays until the next change of the row.
  std::string_view Text(std::size_t col) const {
    const std::size_t begin = TextBegin(col);
    return {reinterpret_cast<const char*>(block_.get() + begin), Heads()[col].textEnd - begin};
  }
  /// Must not be a part of the row's own texts.
  /// @throws RuntimeError (6) if the row's texts would take 4 GiB or more together.
  void SetText(std::size_t col, std::string_view text);

  /// Of all its texts together, in bytes.
  std::size_t TextSize() const { return TextBegin(cols_) - HeadsSize(); }

  Color BackColor(std::size_t col) const { return Heads()[col].backColor; }
  void SetBackColor(std::size_t col, Color color) { Heads()[col].backColor = color; }

  /// Adds empty cells at the end or cuts cells off there.
  void SetCols(std::size_t cols);

 private:
  struct CellHead {
    std::uint32_t textEnd;  ///< offset in the block; the text begins where the one before ends
    Color backColor;
  };

  std::size_t HeadsSize() const { return cols_ * sizeof(CellHead); }
  std::size_t TextBegin(std::size_t col) const {
    return col == 0 ? HeadsSize() : Heads()[col - 1].textEnd;
  }
  // The block is an array of bytes, in which the heads came into being with the first copy.
  CellHead* Heads() { return reinterpret_cast<CellHead*>(block_.get()); }
  const CellHead* Heads() const { return reinterpret_cast<const CellHead*>(block_.get()); }

  std::uint64_t serial_;
  std::size_t cols_;
  std::unique_ptr<std::byte[]> block_;
};

}  // namespace kestrava
