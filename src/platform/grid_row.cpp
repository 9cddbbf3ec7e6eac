#include "platform/grid_row.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/runtime_error.h"

namespace kestrava {

namespace {

/// Blocks grow in steps of so many bytes from so many on, so that filling a row takes few of them:
/// that of a machine one, as a rule.
constexpr std::size_t kStep = 64;
constexpr std::size_t kSmallestBlock = 2 * kStep;
constexpr std::size_t kLargestBlock = std::numeric_limits<std::uint32_t>::max() / kStep * kStep;

std::size_t BlockSize(std::size_t size) {
  return std::max((size + kStep - 1) / kStep * kStep, kSmallestBlock);
}

}  // namespace

GridRow::GridRow(std::uint64_t serial, std::size_t cols)
    : serial_(serial),
      cols_(cols),
      block_(std::make_unique_for_overwrite<std::byte[]>(BlockSize(HeadsSize()))) {
  std::fill_n(Heads(), cols_, CellHead{static_cast<std::uint32_t>(HeadsSize()), kNoColor});
}

void GridRow::SetText(std::size_t col, std::string_view text) {
  const std::size_t begin = TextBegin(col);
  const std::size_t oldEnd = Heads()[col].textEnd;
  const std::size_t newEnd = begin + text.size();
  const std::size_t after = Heads()[cols_ - 1].textEnd - oldEnd;
  const std::size_t size = BlockSize(newEnd + after);
  if (size > kLargestBlock) throw RuntimeError(kErrorOverflow, "too much text in a row");
  if (size == BlockSize(oldEnd + after)) {
    std::memmove(block_.get() + newEnd, block_.get() + oldEnd, after);
  } else {
    auto block = std::make_unique_for_overwrite<std::byte[]>(size);
    std::memcpy(block.get(), block_.get(), begin);
    std::memcpy(block.get() + newEnd, block_.get() + oldEnd, after);
    block_ = std::move(block);
  }
  text.copy(reinterpret_cast<char*>(block_.get() + begin), text.size());
  for (; col < cols_; ++col) {
    Heads()[col].textEnd = static_cast<std::uint32_t>(Heads()[col].textEnd + newEnd - oldEnd);
  }
}

void GridRow::SetCols(std::size_t cols) {
  GridRow row(serial_, cols);
  for (std::size_t col = 0; col < std::min(cols, cols_); ++col) {
    row.SetText(col, Text(col));
    row.SetBackColor(col, BackColor(col));
  }
  *this = std::move(row);
}

}  // namespace kestrava
