// How a chart shares its area among titles, legend, labels and plot.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/picture/geometry/category_axis.h"
#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"

namespace chartproject {

/// One value axis with the series that belong to it.
struct ChartLane {
  Plot plot;
  std::vector<int> series;              ///< columns of the model
  std::vector<std::string> valueTexts;  ///< one a tick of the value axis; empty where there is no room for them
  std::string title{};                  ///< above it, in the tone of its series; empty where lanes are not shown
  double titleY = 0;
};

struct ChartLayout {
  Plot plot;                     ///< of all lanes together; its value axis is the first lane's
  std::vector<ChartLane> lanes;  ///< from top to bottom, one at least
  CategoryAxis categories;
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
/// overlaps. The plots' fronts have whole coordinates, so that grid lines and bars are crisp.
[[nodiscard]] ChartLayout LayOutChart(const ChartModel& model, Size size, const Canvas& canvas,
                                      const NumberFormat& format);

}  // namespace chartproject
