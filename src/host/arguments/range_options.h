// Options that choose a part of a recording: by number or by time.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "chart/plain/point_range.h"
#include "chart/view/chart_view.h"
#include "texts/language.h"

namespace chartproject {

/// --first, --points, --from and --to.
class RangeOptions {
 public:
  /// @param usual how many points there are without --points, in the words of the help text
  void AddTo(CLI::App& command, const std::string& usual = "all");

  [[nodiscard]] bool Given() const noexcept;
  /// The points that are meant. Throws RefusedError, in the user's language and naming the option, for a value that
  /// cannot be read, two options that say the same end, a time that the file cannot answer, and a range without points.
  /// @param view has the file open
  [[nodiscard]] PointRange Resolve(ChartView& view, Language language) const;

 private:
  [[nodiscard]] std::optional<double> Moment(const std::string& text, const std::string& option,
                                             const PointClock& clock, Language language) const;

  std::string first_;
  std::string points_;
  std::string from_;
  std::string to_;
};

}  // namespace chartproject
