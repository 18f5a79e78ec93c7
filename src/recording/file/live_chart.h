// A chart of the points that a recording takes, as a recording's dialog sees it: charts are a layer above.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "forms/controls.h"
#include "recording/file/chart_file_writer.h"

namespace chartproject {

/// The readings of a point that failed, by column.
using FailedColumns = std::array<bool, kColumnCount>;

/// Keeps the last points only, so that a point costs the same after hours as at first.
class LiveChart {
 public:
  LiveChart() = default;
  LiveChart(const LiveChart&) = delete;
  LiveChart& operator=(const LiveChart&) = delete;
  virtual ~LiveChart() = default;

  /// The control that shows it; it belongs to this object.
  [[nodiscard]] virtual DrawnControl& Control() = 0;
  /// Another recording begins. @param parameters by column, 1 to 4 of them
  virtual void Begin(std::int16_t driveAddress, std::span<const std::int16_t> parameters) = 0;
  /// A point was taken. @param point its number, from 1; one that was taken already is left out
  virtual void Take(std::int32_t point, const PointRow& row, const FailedColumns& failed) = 0;
};

}  // namespace chartproject
