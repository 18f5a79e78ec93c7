// Choices of axes, by menu, key, wheel and swatch.
#include "chart/window/sections/axes_section.h"

#include <algorithm>
#include <cmath>

#include "common/environment/language.h"

namespace chartproject {
namespace {

/// Section and keys of the chosen axes in the settings, beside the window's place.
constexpr const char* kSection = "frmChart";
constexpr const char* kAxisKey = "Axis";
constexpr const char* kLanesKey = "Lanes";
constexpr std::array<std::pair<CategoryUnit, const char*>, 3> kUnitCodes{
    {{CategoryUnit::kPoints, "Points"}, {CategoryUnit::kElapsed, "Elapsed"}, {CategoryUnit::kTimeOfDay, "Time"}}};

/// What is left of the range after one notch of the wheel or one key.
constexpr double kZoomStep = 0.8;

}  // namespace

AxesSection::AxesSection(Environment& environment, const ChartView& view, ChartControl& chart, SeriesSection& series)
    : env_(environment), view_(view), chart_(chart), series_(series) {}

void AxesSection::Prepare() {
  SettingsStore& store = env_.ports.settings;
  const std::string code = store.Read(kSection, kAxisKey).value_or("");
  for (const auto& [unit, name] : kUnitCodes) {
    if (code == name) unit_ = unit;
  }
  lanes_ = store.Read(kSection, kLanesKey) == "Yes";
  for (std::size_t s = 0; s < series_.rows.size(); ++s) {
    PictureBox& swatch = *series_.rows[s].swatch;
    swatch.SetToolTipText(FillIn(LoadMessage(env_, Text::kSwatchTip), {std::to_string(s + 1)}));
    swatch.click = {swatch.Name() + "_Click", [this, s] { ToggleSeries(s); }};
  }
}

void AxesSection::Save() const {
  const auto* const code = std::ranges::find(kUnitCodes, unit_, &std::pair<CategoryUnit, const char*>::first);
  env_.ports.settings.Write(
      kSection, std::array{StoredSetting{kAxisKey, code->second}, StoredSetting{kLanesKey, lanes_ ? "Yes" : "No"}});
}

void AxesSection::Restart() {
  hidden_ = {};
  series_.ShowHidden(hidden_);
  ranges_ = {};
}

void AxesSection::Fill(ChartLook& look) const {
  look.axis = unit_;
  look.lanes = lanes_;
  look.hidden = hidden_;
  look.valueRange = ranges_.common;
  look.laneRanges = ranges_.lanes;
}

void AxesSection::Offer(ChartActions& actions) {
  OfferUnits(actions);
  OfferRanges(actions);
  actions.Set(ChartAction::kLanes, {[this] {
                                      lanes_ = !lanes_;
                                      changed();
                                    },
                                    {},
                                    [this] { return lanes_; }});
  for (std::size_t s = 0; s < hidden_.size(); ++s) {
    const auto action = static_cast<ChartAction>(static_cast<std::size_t>(ChartAction::kSeries1) + s);
    actions.Set(action,
                {[this, s] { ToggleSeries(s); }, [this, s] { return static_cast<int>(s) < view_.SeriesCount(); },
                 [this, s] { return static_cast<int>(s) < view_.SeriesCount() && !hidden_[s]; }});
  }
}

void AxesSection::OfferUnits(ChartActions& actions) {
  const std::initializer_list<std::pair<ChartAction, CategoryUnit>> units{
      {ChartAction::kAxisPoints, CategoryUnit::kPoints},
      {ChartAction::kAxisElapsed, CategoryUnit::kElapsed},
      {ChartAction::kAxisTime, CategoryUnit::kTimeOfDay}};
  for (const auto& [action, unit] : units) {
    actions.Set(action, {[this, unit = unit] { Choose(unit); },
                         [this, unit = unit] { return view_.Facts().AxisFor(unit) == unit; },
                         [this, unit = unit] { return view_.Facts().AxisFor(unit_) == unit; }});
  }
}

void AxesSection::OfferRanges(ChartActions& actions) {
  const auto painted = [this] { return !chart_.Lanes().empty(); };
  actions.Set(ChartAction::kValuesIn, {[this] { ZoomAll(kZoomStep); }, painted});
  actions.Set(ChartAction::kValuesOut, {[this] { ZoomAll(1 / kZoomStep); }, painted});
  actions.Set(ChartAction::kFixRange, {[this] { ZoomAll(1); }, painted});
  actions.Set(ChartAction::kAutomaticRange, {[this] {
                                               ranges_ = {};
                                               changed();
                                             },
                                             [this] { return AnyRange(); }, [this] { return !AnyRange(); }});
}

void AxesSection::Choose(CategoryUnit unit) {
  unit_ = unit;
  changed();
}

void AxesSection::ToggleSeries(std::size_t series) {
  if (static_cast<int>(series) >= view_.SeriesCount()) return;
  hidden_[series] = !hidden_[series];
  series_.ShowHidden(hidden_);
  changed();
}

bool AxesSection::AnyRange() const {
  if (!lanes_) return ranges_.common.has_value();
  return std::ranges::any_of(ranges_.lanes, [](const auto& range) { return range.has_value(); });
}

ValueRange AxesSection::RangeOf(const SceneLane& lane) const {
  const auto& given =
      !lanes_ || lane.series.empty() ? ranges_.common : ranges_.lanes.at(static_cast<std::size_t>(lane.series[0]));
  return given.value_or(ValueRange{lane.plot.axis.Minimum(), lane.plot.axis.Maximum(), false});
}

void AxesSection::Zoom(const SceneLane& lane, double share, double factor) {
  const ValueRange shown = RangeOf(lane);
  const double center = shown.minimum + share * (shown.maximum - shown.minimum);
  const ValueRange range{center + (shown.minimum - center) * factor, center + (shown.maximum - center) * factor, false};
  SetRange(lane, range);
}

void AxesSection::SetRange(const SceneLane& lane, const ValueRange& range) {
  // A range of which doubles have no more digits is as far as it goes.
  const double largest = std::max(std::abs(range.minimum), std::abs(range.maximum));
  if (!std::isfinite(largest) || range.maximum - range.minimum <= largest * 1e-9) return;
  if (!lanes_) {
    ranges_.common = range;
  } else if (!lane.series.empty()) {
    ranges_.lanes.at(static_cast<std::size_t>(lane.series[0])) = range;
  }
}

void AxesSection::ChooseValues(const BoxValues& values) {
  if (values.lane >= chart_.Lanes().size()) return;
  const SceneLane& lane = chart_.Lanes()[values.lane];
  const ValueRange shown = RangeOf(lane);
  const double span = shown.maximum - shown.minimum;
  SetRange(lane, {shown.minimum + values.low * span, shown.minimum + values.high * span, false});
}

void AxesSection::ZoomAll(double factor) {
  for (const SceneLane& lane : chart_.Lanes()) Zoom(lane, 0.5, factor);
  changed();
}

bool AxesSection::ZoomByWheel(const WheelInput& input) {
  const SceneLane* const lane = ValueAxisAt(chart_.Lanes(), input.at);
  if (lane == nullptr || input.control || input.shift) return false;
  const Rect& front = lane->plot.front;
  Zoom(*lane, (front.Bottom() - input.at.y) / front.height, std::pow(kZoomStep, input.notches));
  changed();
  return true;
}

}  // namespace chartproject
