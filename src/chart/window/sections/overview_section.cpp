// The survey by a timer, a piece at a time, so that keys and mouse never wait for it.
#include "chart/window/sections/overview_section.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/measured_text.h"

namespace chartproject {
namespace {

/// Of the window's time that the survey takes between two messages. With the piece that is just being read it stays
/// under half a frame of the screen.
constexpr Instant kPiece = std::chrono::milliseconds(4);
/// Between two drawings of a strip that is still being surveyed.
constexpr Instant kBetweenDrawings = std::chrono::milliseconds(100);

}  // namespace

OverviewSection::OverviewSection(Form& form, Environment& environment, ChartView& view, ScrollSection& scroll,
                                 const ReadingSection& reading)
    : ovwRecording(form, "ovwRecording"),
      tmrSurvey(form, "tmrSurvey"),
      form_(form),
      env_(environment),
      view_(view),
      scroll_(scroll),
      reading_(reading) {
  tmrSurvey.SetEnabled(false);
  tmrSurvey.SetInterval(1);
  Connect(tmrSurvey.tick, tmrSurvey, "Timer", this, &OverviewSection::tmrSurvey_Tick);
  ovwRecording.SetVisible(false);
  ovwRecording.moved = [this](std::int64_t point) {
    form_.RunHandler("ovwRecording_Moved", [&] { scroll_.ScrollTo(view_.FirstLine() + point); });
  };
  ovwRecording.toTheEnd = [this] { form_.RunHandler("ovwRecording_DblClick", [&] { scroll_.ScrollToEnd(); }); };
}

void OverviewSection::Prepare() {
  ovwRecording.SetSpokenWords(LoadMessage(env_, Text::kActionOverview));
  wanted_ = env_.ports.settings.Read(form_.Name(), "Overview") != "No";
}

void OverviewSection::Restart() {
  ovwRecording.SetModel({});
  shownLines_ = -1;
  shownAt_ = {};
}

void OverviewSection::Save() {
  env_.ports.settings.Write(form_.Name(), std::array{StoredSetting{"Overview", wanted_ ? "Yes" : "No"}});
}

void OverviewSection::Offer(ChartActions& actions) {
  const auto show = [this] {
    wanted_ = !wanted_;
    ShowStrip();
  };
  actions.Set(ChartAction::kOverview, {show, {}, [this] { return wanted_; }});
}

void OverviewSection::ShowStrip() {
  const bool show = wanted_ && view_.Range().usable && view_.SeriesCount() > 0;
  if (ovwRecording.Visible() == show) return;
  ovwRecording.SetVisible(show);
  form_.LayoutChanged();  // the chart gives the room, or takes it
}

void OverviewSection::Follow(const ChartLook& look) {
  ShowStrip();
  const std::int64_t first = view_.Shown().startLine - view_.FirstLine();
  ovwRecording.ShowSlice(
      first, std::min<std::int64_t>(first + view_.Shown().RowCount() * view_.Shown().pointsPerRow, view_.Points()));
  const OverviewModel& shown = ovwRecording.Model();
  const bool same = shown.points == view_.Points() && std::ssize(shown.colors) == view_.SeriesCount();
  if (!same || look.scales != scales_) {
    scales_ = look.scales;
    ShowModel();
  }
  tmrSurvey.SetEnabled(true);
}

void OverviewSection::ShowModel() {
  OverviewModel model;
  model.points = view_.Points();
  model.backdrop = kChartBackdrop;
  for (int s = 0; s < view_.SeriesCount(); ++s) {
    model.colors.push_back(kSeriesColors[static_cast<std::size_t>(s)]);
  }
  model.range = [this](int series, std::int64_t first, std::int64_t end) {
    const Extremes extremes = view_.Survey().Over(series, first, end, view_.Points());
    if (extremes.Empty()) return ValueRange();
    const double scale = scales_[static_cast<std::size_t>(series)];
    return ValueRange{extremes.least * scale, extremes.greatest * scale, false};
  };
  if (view_.Clock().Known()) {
    model.label = [this](std::int64_t point) {
      const double elapsed = view_.Clock().ElapsedAt(static_cast<double>(point + 1));
      return TimeText(std::round(elapsed / 1000), env_.ports.locale.Numbers());
    };
  }
  ovwRecording.SetModel(std::move(model));
  shownAt_ = env_.ports.clock.Now();
  shownLines_ = view_.Survey().Exact().Lines();
}

void OverviewSection::tmrSurvey_Tick() {
  if (reading_.Busy()) return;
  const bool refining = view_.Refining();
  bool more = false;
  try {
    more = view_.SurveyOn(kPiece);
  } catch (const RunTimeError& error) {
    // What the user does next reads the file, too, and shows the reason.
    NoteRunTimeError(env_, "SurveyOn", error);
  }
  tmrSurvey.SetEnabled(more);
  if (refining && !view_.Refining()) advanced();
  const bool due = !more || env_.ports.clock.Now() - shownAt_ >= kBetweenDrawings;
  if (!due || view_.Survey().Exact().Lines() == shownLines_) return;
  if (ovwRecording.Visible()) ShowModel();
  shownAt_ = env_.ports.clock.Now();
  shownLines_ = view_.Survey().Exact().Lines();
  if (view_.Shown().pointsPerRow > 1) advanced();
}

}  // namespace chartproject
