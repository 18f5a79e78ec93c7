// What the chart's axes count and show: points or times, one value axis or one a series, hidden series, ranges of
// values.
#pragma once

#include <functional>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/series_section.h"
#include "common/environment/environment.h"

namespace chartproject {

/// The ranges of values that were chosen: of the common axis, and of the lanes.
struct ChosenRanges {
  std::optional<ValueRange> common;
  std::array<std::optional<ValueRange>, kColumnCount> lanes{};
  friend bool operator==(const ChosenRanges&, const ChosenRanges&) = default;
};

class AxesSection {
 public:
  /// @param view,chart,series outlive the section
  AxesSection(Environment& environment, const ChartView& view, ChartControl& chart, SeriesSection& series);
  AxesSection(const AxesSection&) = delete;
  AxesSection& operator=(const AxesSection&) = delete;

  /// The user wants another look of the same chart.
  std::function<void()> changed;

  /// Unit and lanes as they were when a chart window was closed last; swatches hide and show their series.
  void Prepare();
  void Save() const;
  /// For another file: all its series with the ranges of their data.
  void Restart();
  void Fill(ChartLook& look) const;
  [[nodiscard]] CategoryUnit Unit() const noexcept { return unit_; }
  void Offer(ChartActions& actions);
  /// Over a value axis the wheel magnifies the values at the pointer. False anywhere else.
  bool ZoomByWheel(const WheelInput& input);
  /// The values of a box, from the next showing of the chart on.
  void ChooseValues(const BoxValues& values);
  [[nodiscard]] const ChosenRanges& Ranges() const noexcept { return ranges_; }
  void ChooseRanges(const ChosenRanges& ranges) { ranges_ = ranges; }

 private:
  void OfferUnits(ChartActions& actions);
  void OfferRanges(ChartActions& actions);
  void Choose(CategoryUnit unit);
  void ToggleSeries(std::size_t series);
  /// The range that a lane has been given, or the one that it shows.
  [[nodiscard]] ValueRange RangeOf(const SceneLane& lane) const;
  /// Multiplies a lane's range by `factor`; the value at a share of it, 0 at its lower end, stays where it is.
  void Zoom(const SceneLane& lane, double share, double factor);
  /// All lanes at once, around the middle of each.
  void ZoomAll(double factor);
  void SetRange(const SceneLane& lane, const ValueRange& range);
  [[nodiscard]] bool AnyRange() const;

  Environment& env_;
  const ChartView& view_;
  ChartControl& chart_;
  SeriesSection& series_;
  CategoryUnit unit_ = CategoryUnit::kPoints;
  bool lanes_ = false;
  std::array<bool, kColumnCount> hidden_{};
  ChosenRanges ranges_;
};

}  // namespace chartproject
