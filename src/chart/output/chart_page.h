// The printed page: header, information block and chart picture.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/bitmap.h"
#include "platform/printer.h"
#include "recording/file/component.h"

namespace chartproject {

/// One series as the page names it.
struct ChartPageSeries {
  std::string number;  ///< as in "P005"; may be empty
  std::string name;    ///< from the drive's parameter tables; may be empty
  std::string scale;   ///< text of the scale box
};

/// Everything that the page shows.
struct ChartPage {
  std::string fileName;  ///< full name of the chart file
  ChartHeader header;
  std::vector<ChartPageSeries> series;  ///< series 1 to P
  bool grid = false;
  bool marker = false;
  bool line = false;
  std::string chartType;  ///< in the user's words
  Bitmap picture;
  /// Shows "Printing ..." while the page is made (empty text: done) together with the busy pointer. May be empty.
  std::function<void(const std::string& text)> showStatus{};
  /// Goes on with the document after the page, from `bottom` (centimetres) on. May be empty.
  std::function<void(Printer& printer, double bottom)> follow{};
};

/// Prints the page on the system's printer. Long names are wrapped or shortened in the middle; the picture has its own
/// size and is scaled down only when it would not fit.
/// False when the user declined (no printer and no file chosen). An error while the page is drawn is shown and logged
/// under the name "PrintChartPage", and nothing is printed: then false, too.
bool PrintChartPage(Component& component, const ChartPage& page);

}  // namespace chartproject
