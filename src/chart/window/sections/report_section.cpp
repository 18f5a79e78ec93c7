// From the question to the last page.
#include "chart/window/sections/report_section.h"

#include <algorithm>
#include <utility>

#include "chart/report/report_pages.h"
#include "common/environment/language.h"
#include "forms/form_host.h"
#include "platform/run_time_error.h"

namespace chartproject {

void ReportSection::Offer(ChartActions& actions) {
  actions.Set(
      ChartAction::kPrintReport,
      {[this] { Print(); }, [this] { return form_.Host().Pictures() != nullptr && view_.ShownRange().has_value(); }});
}

void ReportSection::Restart() {
  title_.clear();
  remark_.clear();
}

std::optional<ChartReport> ReportSection::Make(const ReportAnswer& answer) {
  if (view_.Replaced()) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kReplacedByAnother, {view_.FileName()});
  }
  return MakeReport(component_, view_,
                    {answer.range,
                     look_,
                     answer.title,
                     answer.remark,
                     {chart_.CursorLabel(MeasuringCursor::kFirst), chart_.CursorLabel(MeasuringCursor::kSecond)}},
                    [this](double part) { return reading_.ShowProgress(part, Text::kMeasuring); });
}

std::optional<ReportAnswer> ReportSection::Ask() {
  ReportQuestion question{OfferRanges(component_, view_, chart_), 0, title_, remark_};
  // The page shows the visible slice, so the report is about it unless the user chooses another range.
  const auto shown = std::ranges::find(question.entries, view_.ShownRange(), &RangeEntry::range);
  if (shown != question.entries.end()) question.chosen = static_cast<std::size_t>(shown - question.entries.begin());
  const auto answer = ask(question);
  if (answer) {
    title_ = answer->title;
    remark_ = answer->remark;
  }
  return answer;
}

void ReportSection::PrintPages(const ChartReport& report) {
  constexpr double kPictureScale = 2;  // paper shows more than a screen does
  ChartPage page = view_.Page(component_, look_);
  page.picture = chart_.CopyPicture(*form_.Host().Pictures(), kPictureScale);
  page.showStatus = [this](const std::string& text) {
    reading_.Say(text);
    component_.forms.KeepAlive();
  };
  const HourglassScope busy(form_);
  PrintReport(component_, std::move(page), report);
}

void ReportSection::Print() {
  if (reading_.Busy()) return;
  const auto answer = Ask();
  if (!answer) return;
  bool stopped = false;
  {
    const ReadingSection::Work printing(reading_);
    const auto report = Make(*answer);
    stopped = !report;
    if (report && !reading_.ClosesAfterwards()) PrintPages(*report);
  }
  if (reading_.ClosesAfterwards()) return form_.Unload();
  if (stopped) reading_.Say(LoadMessage(component_, Text::kStoppedHere));
}

}  // namespace chartproject
