// How a chart shares its area among titles, legend, labels and plot.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/picture/geometry/category_axis.h"
#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"

namespace chartproject {

struct ChartLayout {
  Plot plot;
  CategoryAxis categories;
  std::vector<std::string> valueTexts;  ///< one a tick of the value axis; empty where there is no room for them
  Font font;
  Font titleFont;
  double textHeight = 0;
  double margin = 0;           ///< free edge around everything
  std::optional<Rect> legend;  ///< nothing when it is hidden or has no room
  bool hasTitles = true;
  double titleBottom = 0;  ///< below the chart title
  bool hasCategoryLabels = true;
};

inline constexpr double kTickLength = 4.0;
inline constexpr double kTickGap = 3.0;      ///< between a tick and its label
inline constexpr double kSwatchSize = 10.0;  ///< of the legend

/// Lays a chart out in `size`. Where room is short, titles and legend are left out first, then labels; nothing
/// overlaps. The plot's front has whole coordinates, so that grid lines and bars are crisp.
[[nodiscard]] ChartLayout LayOutChart(const ChartModel& model, Size size, const Canvas& canvas,
                                      const NumberFormat& format);

}  // namespace chartproject
