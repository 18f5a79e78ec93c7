// Places of the slice, and the steps between them.
#include "chart/window/sections/zoom_section.h"

#include <algorithm>
#include <cmath>

namespace chartproject {
namespace {

constexpr double kStep = 1.5;  ///< of the wheel and the keys
constexpr std::size_t kMostPlaces = 100;

}  // namespace

ZoomSection::ZoomSection(Form& form, ChartControl& chart, const ChartView& view, ScrollSection& scroll,
                         AxesSection& axes)
    : chart_(chart), view_(view), scroll_(scroll), axes_(axes) {
  chart.answers.boxDrawn = [this, &form](double firstRow, double endRow, const std::optional<BoxValues>& values) {
    form.RunHandler("mscChart1_Box", [&] { ShowBox(firstRow, endRow, values); });
  };
  chart.answers.panBegan = [this] { heldLine_ = view_.StartLine(); };
  chart.answers.panned = [this, &form](double rows) {
    const std::int64_t points = std::llround(rows * static_cast<double>(view_.Shown().pointsPerRow));
    form.RunHandler("mscChart1_Pan", [&] { scroll_.ScrollTo(heldLine_ - points); });
  };
}

ZoomSection::Place ZoomSection::Whole() const {
  return {view_.FirstLine(), (std::int64_t{view_.Points()} + kDivisions - 1) / kDivisions};
}

void ZoomSection::Shift(std::int64_t lines) {
  for (Step& step : before_) step.place.startLine += lines;
}

void ZoomSection::Offer(ChartActions& actions) {
  const auto usable = [this] { return view_.HasPoints() && view_.Range().usable; };
  const auto closer = [this, usable] { return usable() && view_.Division() > 1; };
  const auto wider = [this, usable] { return usable() && view_.Division() < Whole().division; };
  constexpr double kMiddle = 0.5;
  actions.Set(ChartAction::kFit, {[this] { GoTo(Whole()); }, wider});
  actions.Set(ChartAction::kOneToOne, {[this] { GoTo({view_.StartLine(), 1}); }, closer});
  actions.Set(ChartAction::kZoomIn, {[this] { ZoomAt(kMiddle, 1 / kStep); }, closer});
  actions.Set(ChartAction::kZoomOut, {[this] { ZoomAt(kMiddle, kStep); }, wider});
  actions.Set(ChartAction::kBack, {[this] { GoBack(); }, [this] { return !before_.empty(); }});
}

bool ZoomSection::ZoomByWheel(const WheelInput& input) {
  if (!input.control) return false;
  const bool usable = view_.HasPoints() && view_.Range().usable;
  const auto share = chart_.ShareAt(input.at);
  if (!usable || !share) return true;
  const bool before = turning_;
  if (!before) before_.push_back(Now());
  turning_ = true;
  ZoomAt(*share, std::pow(kStep, -input.notches));
  if (!before && before_.back() == Now()) {
    before_.pop_back();
    turning_ = false;
  }
  return true;
}

void ZoomSection::ZoomAt(double share, double factor) {
  const auto division = static_cast<double>(view_.Division());
  const std::int64_t most = Whole().division;
  std::int64_t wanted = std::llround(division * factor);
  if (wanted == view_.Division()) wanted += factor > 1 ? 1 : -1;
  wanted = std::clamp<std::int64_t>(wanted, 1, std::max<std::int64_t>(1, most));
  if (wanted > kMostPointsPerDivision) wanted = ChooseWideDivision(wanted).points;
  const double rows = share * view_.Shown().RowCount();
  const double point = view_.StartLine() + rows * static_cast<double>(view_.Shown().pointsPerRow);
  const double span = static_cast<double>(wanted) * kDivisions;
  GoTo({std::llround(point - share * span), wanted}, turning_);
}

void ZoomSection::ShowBox(double firstRow, double endRow, const std::optional<BoxValues>& values) {
  const auto perRow = static_cast<double>(view_.Shown().pointsPerRow);
  const auto first = static_cast<std::int64_t>(std::floor(firstRow * perRow));
  const auto end = static_cast<std::int64_t>(std::ceil(endRow * perRow));
  const Step from = Now();
  if (values) axes_.ChooseValues(*values);
  scroll_.ShowDivisions(view_.StartLine() + first,
                        std::max<std::int64_t>(1, (end - first + kDivisions - 1) / kDivisions));
  if (values && !view_.Range().usable) axes_.changed();  // too few points for another slice
  turning_ = false;
  Remember(from);
}

void ZoomSection::GoTo(const Place& place, bool byWheel) {
  const Step from = Now();
  scroll_.ShowDivisions(place.startLine, place.division);
  if (byWheel) return;
  turning_ = false;
  Remember(from);
}

void ZoomSection::Remember(const Step& from) {
  if (Now() == from) return;
  before_.push_back(from);
  if (before_.size() > kMostPlaces) before_.erase(before_.begin());
}

void ZoomSection::GoBack() {
  const Step step = before_.back();
  before_.pop_back();
  turning_ = false;
  axes_.ChooseRanges(step.ranges);
  scroll_.ShowDivisions(step.place.startLine, step.place.division);
  if (!view_.Range().usable) axes_.changed();
}

}  // namespace chartproject
