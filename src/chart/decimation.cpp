// Reduction of rows to the extremes of pixel columns.
#include "chart/decimation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace chartproject {
namespace {

void AddColumn(std::span<const double> values, int first, int last, SampleRun& run) {
  Sample least;
  Sample greatest;
  if (!ColumnExtremes(values, first, last, least, greatest)) return;
  while (!std::isfinite(values[static_cast<std::size_t>(first)])) ++first;
  while (!std::isfinite(values[static_cast<std::size_t>(last - 1)])) --last;
  std::array<int, 4> rows = {first, least.row, greatest.row, last - 1};
  std::sort(rows.begin(), rows.end());
  const auto end = std::unique(rows.begin(), rows.end());
  for (auto row = rows.begin(); row != end; ++row) {
    run.push_back({*row, values[static_cast<std::size_t>(*row)]});
  }
}

}  // namespace

int FirstRowOfColumn(int column, int rows, int columns) {
  return static_cast<int>(static_cast<std::int64_t>(column) * rows / columns);
}

bool ColumnExtremes(std::span<const double> values, int first, int last, Sample& least, Sample& greatest) {
  bool found = false;
  for (int row = first; row < last; ++row) {
    const double value = values[static_cast<std::size_t>(row)];
    if (!std::isfinite(value)) continue;
    if (!found || value < least.value) least = {row, value};
    if (!found || value > greatest.value) greatest = {row, value};
    found = true;
  }
  return found;
}

std::vector<SampleRun> Decimate(std::span<const double> values, int columns) {
  const int rows = static_cast<int>(values.size());
  columns = std::max(1, columns);
  const int steps = IsDense(rows, columns) ? columns : rows;
  std::vector<SampleRun> runs(1);
  for (int step = 0; step < steps; ++step) {
    const std::size_t before = runs.back().size();
    AddColumn(values, FirstRowOfColumn(step, rows, steps), FirstRowOfColumn(step + 1, rows, steps), runs.back());
    if (runs.back().size() == before && before > 0) runs.emplace_back();
  }
  if (runs.back().empty()) runs.pop_back();
  return runs;
}

}  // namespace chartproject
