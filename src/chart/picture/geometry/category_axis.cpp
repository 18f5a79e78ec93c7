// Ticks and labels of the category axis.
#include "chart/picture/geometry/category_axis.h"

#include <algorithm>
#include <cmath>

#include "chart/picture/geometry/time_axis.h"

namespace chartproject {
namespace {

constexpr double kLabelGap = 8.0;      ///< least distance of two labels, pixels
constexpr double kTickDistance = 3.0;  ///< least distance of two ticks, pixels

/// The smallest multiple of `division` rows that is at least `pixels` wide.
std::int64_t EvenStride(int division, double rowWidth, double pixels) {
  const double divisions = std::ceil(pixels / (std::max(1, division) * rowWidth) - 1e-9);
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(std::min(divisions, 1e9))) * std::max(1, division);
}

/// The smallest 1, 2 or 5 times a power of ten that is at least `rows`.
std::int64_t RoundStride(std::int64_t rows) {
  std::int64_t power = 1;
  while (power * 10 <= rows) power *= 10;
  for (const int mantissa : {1, 2, 5}) {
    if (mantissa * power >= rows) return mantissa * power;
  }
  return 10 * power;
}

}  // namespace

CategoryAxis LayOutCategoryAxis(const ChartModel& model, const CategoryRoom& room) {
  if (model.categoryUnit != CategoryUnit::kPoints) return LayOutTimeAxis(model, room);
  CategoryAxis axis;
  const int rows = model.rowCount;
  if (rows <= 0) return axis;
  const auto text = [&](std::int64_t row) { return std::to_string(model.LabelOf(static_cast<int>(row))); };
  const double widest = std::max(room.textWidth(text(0)), room.textWidth(text(rows - 1)));

  const CategoryScale& scale = model.categoryScale;
  std::int64_t labelStride = 1;
  std::int64_t tickStride = 1;
  if (scale.automatic) {
    labelStride = RoundStride(EvenStride(1, room.rowWidth, widest + kLabelGap));
    tickStride = labelStride;
  } else {
    labelStride = EvenStride(scale.divisionsPerLabel, room.rowWidth, widest + kLabelGap);
    tickStride = EvenStride(scale.divisionsPerTick, room.rowWidth, kTickDistance);
  }

  for (std::int64_t row = 0; row < rows; row += tickStride) axis.ticks.push_back(static_cast<double>(row) + 0.5);
  const double offset = scale.automatic || scale.labelTick ? 0.5 : 0.5 * std::max(1, scale.divisionsPerLabel);
  for (std::int64_t row = 0; row < rows; row += labelStride) {
    const double position = static_cast<double>(row) + offset;
    const double half = room.textWidth(text(row)) / 2;
    const bool fits =
        position * room.rowWidth + room.leftRoom >= half && (rows - position) * room.rowWidth + room.rightRoom >= half;
    if (fits) axis.labels.push_back({position, text(row), {}});
  }
  return axis;
}

}  // namespace chartproject
