#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <random>
#include <type_traits>

#include "figure.h"
#include "figures.h"
#include "real_program.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

constexpr std::int32_t kRows = 32767;
constexpr std::int32_t kMarked = 16000;

std::vector<std::string> Addresses() {
  std::vector<std::string> addresses;
  for (std::int32_t row = 0; row < kRows; ++row) {
    addresses.push_back("10.0." + std::to_string(row / 250) + "." + std::to_string(row % 250 + 1));
  }
  return addresses;
}

/// The rows to be removed, in ascending order, the same ones in every run.
std::vector<std::int32_t> MarkedRows() {
  std::vector<std::int32_t> rows(kRows);
  std::iota(rows.begin(), rows.end(), kHeadingRow + 1);
  std::vector<std::int32_t> marked;
  std::ranges::sample(rows, std::back_inserter(marked), kMarked, std::mt19937{});
  return marked;
}

std::vector<std::array<std::string, kColumnCount>> CopyOf(const MSFlexGrid& grid) {
  std::vector<std::array<std::string, kColumnCount>> rows(static_cast<std::size_t>(grid.Rows()));
  for (std::int32_t row = 0; row < grid.Rows(); ++row) {
    for (std::int32_t col = 0; col < grid.Cols(); ++col) {
      rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] = grid.TextAt(row, col);
    }
  }
  return rows;
}

}  // namespace

void MeasureRemoval() {
  constexpr int kRounds = 11;
  const auto addresses = Addresses();
  const auto marked = MarkedRows();
  RealProgram program;
  MSFlexGrid& grid = program.window.grdServers;
  program.Fill(addresses);
  const auto table = CopyOf(grid);
  const double ratio = RatioOf(
      kRounds,
      [&] {
        grid.SetRows(kHeadingRow + 1);
        program.Fill(addresses);
        return SecondsOf([&] {
          std::for_each(marked.rbegin(), marked.rend(),
                        [&](std::int32_t row) { grid.RemoveItem(row); });
          program.CatchUp();
        });
      },
      [&] {
        std::remove_const_t<decltype(table)> copy;
        return SecondsOf([&] { copy = table; });
      });
  PrintFigure("remove_half", ratio, 5);
}

}  // namespace kestrava
