// The chart of a slice without a window: what `render` draws and `print` puts on paper.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "chart/view/chart_view.h"
#include "host/arguments/range_options.h"

namespace chartproject {

/// Options that choose the slice and the look of its chart.
class ChartPictureOptions {
 public:
  void AddTo(CLI::App& command);

  /// What the texts of the options mean. Throws RefusedError that names the option.
  struct Choice {
    ChartLook look;
    std::optional<std::int16_t> pointsPerDivision{};  ///< nothing: as few as show the range
    RangeOptions range{};
    bool whole = false;  ///< without an end of its own the range goes on to the end of the file
  };
  [[nodiscard]] Choice Parse() const;

 private:
  std::string type_ = "3";
  RangeOptions range_;
  std::string division_;
  std::string scales_;
  std::string grid_ = "off";
  std::string markers_ = "off";
  std::string lines_ = "on";
  std::string axis_ = "points";
  std::string hidden_;
  bool lanes_ = false;
  bool fit_ = false;
  bool legend_ = false;
};

/// Opens a chart file in a view and loads the chosen slice. @param fileName full name. Returns the points that are
/// shown. Throws RunTimeError 321 for a file without points or with a malformed line, RefusedError for a range that the
/// file does not have, or an axis of times that the file does not say.
PointRange LoadChosenSlice(ChartView& view, const std::string& fileName, const ChartPictureOptions::Choice& choice,
                           Language language);

/// Names the series by the drive's parameters; a file of a drive that the project does not have keeps their numbers
/// alone.
void NameSeriesIfKnown(ChartView& view, Component& component);

}  // namespace chartproject
