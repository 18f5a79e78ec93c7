// How a series looks: tones of its colour, its pens, its markers.
#pragma once

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Mixed with white (share 0 to 1), and with black.
[[nodiscard]] Color Lighter(Color color, double share) noexcept;
[[nodiscard]] Color Darker(Color color, double share) noexcept;
[[nodiscard]] Color WithAlpha(Color color, int alpha) noexcept;

/// True for a colour that is hard to see on a ground (yellow or green on pale yellow): its lines get a dark edge.
[[nodiscard]] bool IsFaint(Color color, Color ground) noexcept;

/// The tone around shapes and markers of a series.
[[nodiscard]] Color EdgeTone(Color color) noexcept;

inline constexpr double kFaintEdge = 1.6;  ///< by how much the dark edge of a faint line is wider than the line
inline constexpr int kAreaAlpha = 72;      ///< of flat areas: the ones below shine through

inline constexpr Pen kNoPen = {.color = {}, .width = 0, .style = PenStyle::kNone};

/// Where the markers of a series are.
struct MarkerPlace {
  double shiftX = 0;  ///< pixels from the middle of the row's slot
  double depth = 0;   ///< 0 front to 1 back wall
};

/// Marks the series' points, each series (by its column) with its own shape: circle, square, triangle, diamond.
/// Where points are closer than markers, markers keep to every n-th point, or to the extremes when no line shows the
/// rest; the same points of a file are marked wherever the rows begin.
void DrawMarkers(const ChartModel& model, int column, const Plot& plot, const MarkerPlace& place, Scene& scene);

}  // namespace chartproject
