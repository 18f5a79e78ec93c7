// Searches by menu and key.
#include "chart/window/sections/search_section.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/values/measured_text.h"

namespace chartproject {

SearchSection::SearchSection(Environment& environment, ChartView& view, ChartControl& chart, ReadingSection& reading,
                             ReadoutSection& readout)
    : env_(environment), view_(view), chart_(chart), reading_(reading), readout_(readout) {}

void SearchSection::Offer(ChartActions& actions) {
  const auto points = [this] { return view_.Shown().RowCount() > 0; };
  actions.Set(ChartAction::kGoTo, {[this] { GoTo(); }, points});
  actions.Set(ChartAction::kFind, {[this] { Find(); }, points});
  actions.Set(ChartAction::kFindNext, {[this] { asked_ ? FindAgain(true) : Find(); }, points});
  actions.Set(ChartAction::kFindPrevious, {[this] { asked_ ? FindAgain(false) : Find(); }, points});
}

void SearchSection::Restart() {
  chart_.SetMark(std::nullopt);
  asked_ = false;
  query_ = {};
}

void SearchSection::GoTo() {
  if (reading_.Busy()) return;
  const auto point = askPlace();
  if (!point) return;
  Mark(*point, [&](const std::string& time) {
    return FillIn(LoadMessage(env_, Text::kReadoutPoint), {std::to_string(*point), time});
  });
}

void SearchSection::Find() {
  if (reading_.Busy()) return;
  const auto query = askQuery(query_);
  if (!query) return;
  query_ = *query;
  asked_ = true;
  FindAgain(query_.forward);
}

std::int64_t SearchSection::From(bool forward) const {
  const ChartModel& model = chart_.Model();
  const std::int64_t first = model.firstRowLabel;
  const std::int64_t last = model.LastLabel();
  if (chart_.Mark() && chart_.Mark()->label >= first && chart_.Mark()->label <= last) return chart_.Mark()->label;
  return forward ? first - 1 : last + 1;
}

void SearchSection::FindAgain(bool forward) {
  if (reading_.Busy()) return;
  query_.forward = forward;
  query_.series = std::clamp(query_.series, 0, std::max(0, view_.SeriesCount() - 1));
  PointSearch search;
  {
    const ReadingSection::Work searching(reading_);
    search = FindPoint(view_.Source(), query_, From(forward), view_.Points(), view_.Facts().Failed(),
                       env_.ports.locale.Numbers(),
                       [this](double part) { return reading_.ShowProgress(part, Text::kSearching); });
  }
  if (search.found) {
    Mark(search.found->point, [&](const std::string& time) { return NameOf(*search.found, time); });
  } else {
    reading_.Say(search.givenUp ? LoadMessage(env_, Text::kStoppedHere)
                                : FillIn(LoadMessage(env_, Text::kNothingFound), {Wanted()}));
  }
}

void SearchSection::Mark(std::int64_t point, const std::function<std::string(const std::string& time)>& name) {
  show(point);
  const auto row = chart_.Model().RowOf(point);
  const auto& times = view_.Shown().times;
  const bool shown = row && *row < std::ssize(times);
  const std::string time = shown ? env_.ports.codePage.Decode(times[static_cast<std::size_t>(*row)]) : std::string();
  chart_.SetMark(ChartMark{point, name(time)});
}

std::string SearchSection::Wanted() const {
  constexpr std::array kNames{Text::kFindCrossing, Text::kFindChange, Text::kFindGap, Text::kFindFailed};
  const std::vector<std::string> names = readout_.Names();
  std::string text = LoadMessage(env_, kNames.at(static_cast<std::size_t>(query_.what)));
  if (static_cast<std::size_t>(query_.series) < names.size()) {
    text += ", " + names[static_cast<std::size_t>(query_.series)];
  }
  return text;
}

std::string SearchSection::NameOf(const FoundPoint& found, const std::string& time) const {
  const std::string series = readout_.Names().at(static_cast<std::size_t>(query_.series));
  const std::string point = std::to_string(found.point);
  const auto decode = [this](const std::string& text) { return env_.ports.codePage.Decode(text); };
  const auto fill = [this](Text text, std::initializer_list<std::string> values) {
    return FillIn(LoadMessage(env_, text), values);
  };
  constexpr int kDigits = 15;
  switch (query_.what) {
    case SearchFor::kCrossing:
      return fill(Text::kFoundCrossing,
                  {series, NumberText(query_.value, kDigits, env_.ports.locale.Numbers()), point, time});
    case SearchFor::kChange:
      return fill(Text::kFoundChange, {series, decode(found.before), decode(found.text), point, time});
    case SearchFor::kGap:
      return fill(Text::kFoundGap, {series, point, time});
    case SearchFor::kFailed:
      break;
  }
  return fill(Text::kFoundFailed, {series, point, time});
}

}  // namespace chartproject
