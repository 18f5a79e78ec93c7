// Reading on the program's own clock.
#include "host/reports/plan_test.h"

#include <ostream>

#include "acquire/dialog/input_rules.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
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
  std::vector<std::int16_t> numbers;
  for (const std::string& text : request.parameters) {
    numbers.push_back(static_cast<std::int16_t>(ParseParameter(text, "--parameters")));
  }
  DriveLinkSession link(component);
  link.Open();
  ExitCode code = ExitCode::kDone;
  const Instant begin = component.ports.clock.Now();
  for (const std::int16_t number : numbers) {
    const ColumnReading reading = ReadColumn(component, number);
    if (reading.outcome.Answered()) continue;
    code = ExitCode::kRunTimeError;
    session.Out() << ParameterName(number) << " " << VisibleText(FailureText(component.language, reading.outcome))
                  << "\n";
  }
  const auto taken = std::chrono::ceil<std::chrono::milliseconds>(component.ports.clock.Now() - begin);
  link.Close();
  const std::chrono::milliseconds time = TimeOf(request.every);
  session.Out() << "A point takes " << taken.count() << " of your " << time.count() << " ms.\n";
  return taken > time ? ExitCode::kRunTimeError : code;
}

}  // namespace chartproject
