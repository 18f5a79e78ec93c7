// Facts out of the header, the companion and the drive table.
#include "chart/report/report_facts.h"

#include "chart/view/info_text.h"
#include "common/environment/language.h"
#include "common/values/measured_text.h"
#include "platform/run_time_error.h"
#include "recording/companion/companion_texts.h"

namespace chartproject {
namespace {

const std::string kNothing = "--";
constexpr double kSecond = 1000;  // milliseconds

std::string OrNothing(const std::string& text) {
  return text.empty() ? kNothing : text;
}

std::string RealInterval(const Environment& environment, const ChartView& view) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  const Companion* known = view.Facts().Readings();
  if (known == nullptr) return LoadMessage(environment, Text::kReportNoDelay);
  if (!known->pace.Known()) return LoadMessage(environment, Text::kReportNotKnown);
  const PaceSummary& pace = known->pace;
  return FillIn(LoadMessage(environment, Text::kReportPace),
                {IntervalText(pace.mean, format), IntervalText(pace.shortest, format),
                 IntervalText(pace.longest, format), IntervalText(pace.latest, format)});
}

std::string FailedReadingsText(const Environment& environment, const ChartView& view) {
  const Companion* known = view.Facts().Readings();
  if (known != nullptr && known->recovered == Recovered::kFromRows) {
    return LoadMessage(environment, Text::kReportNotKnown);
  }
  std::string text;
  for (std::size_t s = 0; known != nullptr && s < known->failed.size(); ++s) {
    if (known->failed[s].Count() == 0) continue;
    if (!text.empty()) text += "; ";
    text += FailedText(environment.language, known->parameters[s], known->failed[s], known->points);
  }
  return text.empty() ? LoadMessage(environment, Text::kReportNoneNoted) : text;
}

}  // namespace

std::vector<ReportItem> RecordingFacts(const Component& component, const ChartView& view, std::int64_t points) {
  const ChartHeader& header = component.chartHeader;
  std::string duration = kNothing;
  if (view.Facts().Clock().Known()) {
    duration = TimeText(view.Facts().Clock().ElapsedAt(static_cast<double>(points)) / kSecond,
                        component.ports.locale.Numbers());
  }
  const auto label = [&](Text text) { return LoadMessage(component, text); };
  return {{label(Text::kReportStart), OrNothing(header.StartDate) + " " + header.StartTime},
          {label(Text::kReportEnd), OrNothing(header.EndDate) + " " + header.EndTime},
          {label(Text::kReportDuration), duration},
          {label(Text::kReportAsked), header.ScanTime + " " + header.Unit},
          {label(Text::kReportReal), RealInterval(component, view)}};
}

std::vector<ReportItem> DriveFacts(const Component& component, const ChartView& view) {
  DriveRecord drive;
  try {
    drive = component.driveTable.At(view.DriveAddress());
  } catch (const RunTimeError&) {
    // The header names no drive of the table: the lines are there, and empty.
  }
  const std::initializer_list<std::pair<Text, const std::string&>> items{
      {Text::kDriveModel, drive.Type},
      {Text::kFirmwareVersion, drive.FirmwareVersion},
      {Text::kDriveTag, drive.Tag},
      {Text::kReportSerialNumber, drive.SerialNumber},
      {Text::kReportReference, drive.CommercialReference}};
  std::vector<ReportItem> facts;
  for (const auto& [label, value] : items) facts.push_back({LoadMessage(component, label), OrNothing(value)});
  return facts;
}

std::vector<ReportItem> FurtherFacts(const Component& component, const ChartView& view) {
  std::vector<ReportItem> facts;
  for (const auto& [label, value] : TriggerItems(component, component.chartHeader)) {
    facts.push_back({LoadMessage(component, label), OrNothing(value)});
  }
  facts.push_back({LoadMessage(component, Text::kReportFailed), FailedReadingsText(component, view)});
  const Companion* known = view.Facts().Readings();
  if ((known != nullptr && known->simulated) || component.simulatedRecordings.contains(view.FileName())) {
    facts.push_back({"", LoadMessage(component, Text::kSimulatedValues)});
  }
  if (known != nullptr && known->recovered != Recovered::kNo) {
    facts.push_back({"", LoadMessage(component, known->recovered == Recovered::kFromRows ? Text::kRecoveredReadings
                                                                                         : Text::kRecoveredTimes)});
  }
  return facts;
}

}  // namespace chartproject
