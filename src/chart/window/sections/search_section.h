// Going to a point, and finding one: the point is brought into the chart, marked and named.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "chart/measure/point_search.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/reading_section.h"
#include "chart/window/sections/readout_section.h"

namespace chartproject {

class SearchSection {
 public:
  /// @param view,chart,reading,readout outlive the section; `reading` is not looked at before an event
  SearchSection(Environment& environment, ChartView& view, ChartControl& chart, ReadingSection& reading,
                ReadoutSection& readout);
  SearchSection(const SearchSection&) = delete;
  SearchSection& operator=(const SearchSection&) = delete;

  /// Asks the user; nothing when the user went back.
  std::function<std::optional<std::int64_t>()> askPlace;
  std::function<std::optional<PointQuery>(const PointQuery& last)> askQuery;
  /// Brings a point into the slice that is shown.
  std::function<void(std::int64_t point)> show;

  void Offer(ChartActions& actions);
  /// For another file.
  void Restart();

 private:
  void GoTo();
  void Find();
  void FindAgain(bool forward);
  /// The point from which a search goes on: the one that was found last while it is in the slice, else the slice's end
  /// from which the search comes.
  [[nodiscard]] std::int64_t From(bool forward) const;
  void Mark(std::int64_t point, const std::function<std::string(const std::string& time)>& name);
  [[nodiscard]] std::string NameOf(const FoundPoint& found, const std::string& time) const;
  [[nodiscard]] std::string Wanted() const;

  Environment& env_;
  ChartView& view_;
  ChartControl& chart_;
  ReadingSection& reading_;
  ReadoutSection& readout_;
  PointQuery query_;
  bool asked_ = false;  ///< the query is the user's
};

}  // namespace chartproject
