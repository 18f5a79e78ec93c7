// Reading on the program's own clock.
#include "host/reports/plan_test.h"

#include <ostream>

#include "acquire/dialog/input_rules.h"
#include "acquire/run/plan_timing.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
#include "drive/driver_file.h"
#include "host/arguments/command.h"

namespace chartproject {

namespace {

std::chrono::milliseconds TimeOf(const std::optional<TimeBetweenPoints>& every) {
  if (!every) return std::chrono::seconds(1);  // the dialog's own
  if (every->unit == TimeUnit::kClockTime) {
    const auto part = [&text = every->text](std::size_t at) { return std::stoi(text.substr(at, 2)); };
    return std::chrono::hours(part(0)) + std::chrono::minutes(part(3)) + std::chrono::seconds(part(6));
  }
  const std::int64_t count = std::stoll(every->text);
  return std::chrono::milliseconds(every->unit == TimeUnit::kSeconds ? count * 1000 : count);
}

}  // namespace

ExitCode TestPlan(Session& session, const AcquireRequest& request) {
  Component& component = session.Instance().State();
  const int address = request.address.empty() ? component.settings.intSelectedDrive
                                              : ParseNumber(request.address, "--address", 1, kLastDriveAddress);
  if (address < 1 || address > kLastDriveAddress || component.driveTable.At(address).Type.empty()) {
    throw RefusedError("acquire: there is no drive at address " + FormatDigits(address, 2));
  }
  component.currentDrive = static_cast<std::int16_t>(address);
  LoadDriverFile(component, component.currentDrive);
  RunPlan plan;
  plan.driveAddress = component.currentDrive;
  plan.parameterCount = 0;
  plan.millisecondsBetweenPoints = TimeOf(request.every).count();
  for (const std::string& text : request.parameters) {
    const int parameter = ParseParameter(text, "--parameters");
    plan.columns.at(static_cast<std::size_t>(plan.parameterCount++)) = static_cast<std::int16_t>(parameter);
  }
  DriveLinkSession link(component);
  link.Open();
  const PlanTiming timing = TimePlan(component, plan);
  link.Close();
  session.Out() << VisibleLines(PlanTimingText(component, timing)) << "\n";
  return timing.failures.empty() && timing.taken <= timing.asked ? ExitCode::kDone : ExitCode::kRunTimeError;
}

}  // namespace chartproject
