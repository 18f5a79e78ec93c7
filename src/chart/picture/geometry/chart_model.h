// What a chart shows and how: the properties of the chart control, as plain data.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/picture/geometry/value_axis.h"
#include "forms/canvas.h"
#include "texts/text.h"

namespace chartproject {

/// Chart types with the control's own numbers: an even number is the three-dimensional form of the odd one after it.
enum class ChartKind : std::uint8_t {
  k3dBar = 0,
  k2dBar = 1,
  k3dLine = 2,
  k2dLine = 3,
  k3dArea = 4,
  k2dArea = 5,
  k3dStep = 6,
  k2dStep = 7,
};

inline constexpr int kChartKindCount = 8;

/// A pen's style by its number: 0 none, 1 solid, 2 dashed, 3 and above dotted.
using PenNumber = int;

enum class FrameStyle : std::uint8_t { kNone = 0, kSingle = 1, kDouble = 2 };

/// Colours of the four series, the same as their swatches beside the chart: red, green, blue, yellow.
inline constexpr std::array<std::int32_t, 4> kSeriesColorNumbers = {255, 65280, 16711680, 65535};
inline constexpr std::array<Color, 4> kSeriesColors = {FromBgr(kSeriesColorNumbers[0]), FromBgr(kSeriesColorNumbers[1]),
                                                       FromBgr(kSeriesColorNumbers[2]),
                                                       FromBgr(kSeriesColorNumbers[3])};

/// Rows of the chart, counted from 0.
struct RowRange {
  int first = 0;
  int last = 0;
};

struct ChartSeries {
  std::string label;           ///< its name in the legend
  std::vector<double> values;  ///< one a row; NaN (or an infinity) is a gap
  Color color;
  bool showLine = true;            ///< lines between the points; the outline of bars and areas
  bool showMarker = false;         ///< a mark at each point, of the series' own shape
  std::vector<RowRange> failed{};  ///< rows whose readings failed; ascending
  bool visible = true;
  std::string axisTitle{};            ///< over its lane: name and unit
  std::optional<ValueRange> range{};  ///< that its lane shows; nothing where the data chooses it
  int shape = -1;                     ///< of its markers; -1 for that of its column
};

/// Divisions of the category axis: ticks and labels are at the rows 0, n, 2n, ..., each with its own n.
struct CategoryScale {
  bool automatic = true;  ///< the chart chooses both counts
  int divisionsPerLabel = 1;
  int divisionsPerTick = 1;
  bool labelTick = false;  ///< labels are at the ticks, not between them
};

/// What the category axis counts.
enum class CategoryUnit : std::uint8_t {
  kPoints,    ///< the points' numbers in the file
  kElapsed,   ///< the time since the file's first point
  kTimeOfDay  ///< the clock's time, with the date where midnight passes
};

/// The moment of a row; between two of them the rows are evenly spaced.
struct RowTime {
  double row = 0;
  double milliseconds = 0;  ///< since the first point; of a time of day since midnight before the first point
};

struct ChartModel {
  ChartKind kind = ChartKind::k2dBar;
  std::string title;
  std::string categoryTitle;
  std::string valueTitle;
  bool legendVisible = true;
  PenNumber categoryGrid = 1;     ///< grid lines at the category axis' ticks
  PenNumber valueGrid = 1;        ///< grid lines at the value axis' ticks
  PenNumber secondValueGrid = 1;  ///< of the second value axis, which has the first one's scale
  PenNumber wallPen = 1;
  Color backdrop = {255, 255, 255};
  bool backdropFilled = true;
  FrameStyle frame = FrameStyle::kNone;
  CategoryScale categoryScale;
  CategoryUnit categoryUnit = CategoryUnit::kPoints;
  std::vector<RowTime> rowTimes;                          ///< two at least where the axis counts times; ascending
  std::function<std::string(std::int64_t day)> dateText;  ///< date of a day, counted from that of the first point
  std::int64_t firstRowLabel = 1;                         ///< row r is labelled firstRowLabel + r x labelsPerRow
  std::int64_t labelsPerRow = 1;
  int rowCount = 0;
  bool lanes = false;                      ///< each visible series has a value axis and a part of the height for itself
  std::optional<ValueRange> valueRange{};  ///< that the common axis shows; nothing where the data chooses it
  std::vector<ChartSeries> series;

  /// The last label of the rows; before the first where there are none.
  [[nodiscard]] std::int64_t LastLabel() const noexcept { return firstRowLabel + rowCount * labelsPerRow - 1; }
  [[nodiscard]] std::int64_t LabelOf(int row) const noexcept { return firstRowLabel + row * labelsPerRow; }
  /// The row that a label belongs to; nothing when it is not among the rows.
  [[nodiscard]] std::optional<int> RowOf(std::int64_t label) const noexcept {
    if (label < firstRowLabel || label > LastLabel()) return std::nullopt;
    return static_cast<int>((label - firstRowLabel) / labelsPerRow);
  }
};

/// Columns of the series that are to be seen.
[[nodiscard]] std::vector<int> VisibleSeries(const ChartModel& model);

/// The model of some of its series alone. @param columns ascending
[[nodiscard]] ChartModel PartOf(const ChartModel& model, const std::vector<int>& columns);

/// The name of a chart type, for the user.
[[nodiscard]] constexpr Text ChartTypeName(ChartKind kind) noexcept {
  return static_cast<Text>(static_cast<int>(Text::kChart3DBar) + static_cast<int>(kind));
}

[[nodiscard]] constexpr bool Is3d(ChartKind kind) noexcept {
  return static_cast<int>(kind) % 2 == 0;
}
/// The two-dimensional form of a type.
[[nodiscard]] constexpr ChartKind Flat(ChartKind kind) noexcept {
  return static_cast<ChartKind>(static_cast<int>(kind) | 1);
}

}  // namespace chartproject
