// Sentences of the run, in the user's language.
#include "acquire/run/run_notices.h"

#include "acquire/run/run_controller.h"
#include "common/environment/language.h"

namespace chartproject {

namespace {

void AddNotice(std::string& notices, const std::string& notice) {
  if (notice.empty()) return;
  if (!notices.empty()) notices += "\n";
  notices += notice;
}

std::string PointsIn(const Environment& environment, const RunReport& report, std::int64_t points,
                     const std::string& fileName) {
  return FillIn(LoadMessage(environment, Text::kPointsMissing),
                {std::to_string(report.points), std::to_string(points), fileName});
}

}  // namespace

std::string RecoveryNotice(const Environment& environment, const RecoveryResult& result) {
  if (result.chartFile.empty()) return {};
  if (result.wasWhole) return FillIn(LoadMessage(environment, Text::kRecordingWasWhole), {result.chartFile});
  std::string notice =
      FillIn(LoadMessage(environment, Text::kPointsRecovered), {std::to_string(result.points), result.chartFile});
  if (result.malformed > 0) {
    notice += " " + FillIn(LoadMessage(environment, Text::kLinesLeftOut), {std::to_string(result.malformed)});
  }
  if (result.companionFault) {
    notice += " " + FillIn(LoadMessage(environment, Text::kCompanionNotWritten),
                           {result.companionFault->Description(environment.language)});
  }
  return notice;
}

std::string LeftoverNotice(const Environment& environment, const std::vector<RecoveryResult>& leftovers) {
  std::string notices;
  for (const RecoveryResult& result : leftovers) AddNotice(notices, RecoveryNotice(environment, result));
  return notices;
}

std::string RunNotice(const Environment& environment, const AcquisitionRun& run) {
  std::string notices = LeftoverNotice(environment, run.Leftovers());
  if (const auto& lost = run.Spool().Lost()) {
    AddNotice(notices, FillIn(LoadMessage(environment, Text::kSpoolGoesOn),
                              {lost->Description(environment.language), run.Spool().Name()}));
  }
  if (const auto& fault = run.KeepingFault()) {
    AddNotice(notices,
              FillIn(LoadMessage(environment, Text::kCrashWouldLose), {fault->Description(environment.language)}));
  }
  return notices;
}

std::string MissingPointsNotice(const Environment& environment, const RunReport& report) {
  if (report.written.kind != ChartWriteResult::Kind::kWritten || report.written.rows >= report.points) return {};
  return PointsIn(environment, report, report.written.rows, report.fileName);
}

std::string LostPointsNotice(const Environment& environment, const RunReport& report) {
  std::string lost = FillIn(LoadMessage(environment, Text::kPointsLost), {std::to_string(report.written.lost)});
  if (report.written.keptFile.empty()) return lost;
  return PointsIn(environment, report, report.points - report.written.lost, report.written.keptFile) + ' ' + lost;
}

}  // namespace chartproject
