// Choosing the drive link by its text.
#include "host/session/drive_links.h"

#include <algorithm>

#include "common/values/numbers.h"
#include "host/session/serial_links.h"
#include "links/scenario_link.h"
#include "links/simulated_link.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// A carried number within a range; nothing when it is absent or unreadable, since the link has a default of its own.
std::optional<int> CarriedNumber(SettingsStore& settings, const char* key, const NumberFormat& numbers, int least,
                                 int most) {
  const std::string text = settings.Read("MyConf", key).value_or("");
  if (!IsNumeric(text, numbers)) return std::nullopt;
  const double number = ToDouble(text, numbers);
  return number >= least && number <= most ? std::optional(static_cast<int>(number)) : std::nullopt;
}

}  // namespace

LineSettings LineDefaults(SettingsStore& settings, const NumberFormat& numbers) {
  constexpr int kShortestTimeout = 10;
  constexpr int kLongestTimeout = 32767;
  constexpr int kLastPort = 256;
  LineSettings defaults;
  // The host numbers ports from 1 (COM1), the system from 0.
  defaults.port =
      "/dev/ttyS" + std::to_string(CarriedNumber(settings, "intSerialPort", numbers, 1, kLastPort).value_or(1) - 1);
  defaults.timeout = CarriedNumber(settings, "intTelegramTimeout", numbers, kShortestTimeout, kLongestTimeout)
                         .value_or(defaults.timeout);
  // More than one retry only lets a silent drive hold the line longer: who wants more says so in the link.
  const int trials = CarriedNumber(settings, "intTrials", numbers, 1, 32767).value_or(2);
  defaults.retries = std::min(trials - 1, 1);
  return defaults;
}

std::string StoredLink(SettingsStore& settings) {
  const std::string stored = settings.Read(kLinkSection, kLinkKey).value_or("");
  return stored.empty() ? kSimulatedLink : stored;
}

std::unique_ptr<DriveLinkFactory> MakeDriveLinks(const std::string& link, const LinkSurroundings& surroundings) {
  constexpr std::string_view kScenario = "scenario:";
  if (IsLineText(link)) {
    if (!surroundings.realClock) throw RunTimeError(error_number::kInvalidProcedureCall, Text::kVirtualClockWithDrives);
    return std::make_unique<SerialLinkFactory>(
        ParseLineText(link, LineDefaults(surroundings.settings, surroundings.locale.Numbers())),
        MakeLinePorts(surroundings.trace, surroundings.clock), surroundings.clock, surroundings.locale,
        surroundings.language);
  }
  if (!surroundings.trace.empty()) throw RunTimeError(error_number::kInvalidProcedureCall, Text::kTraceWithoutLine);
  if (link.starts_with(kScenario)) {
    return std::make_unique<ScenarioLinkFactory>(surroundings.files, surroundings.clock, surroundings.waitUntil,
                                                 link.substr(kScenario.size()));
  }
  if (link == kSimulatedLink) return std::make_unique<SimulatedLinkFactory>(surroundings.clock, surroundings.locale);
  throw RunTimeError(error_number::kCannotCreateObject, Text::kUnknownDriveLink, {link});
}

void ChosenLinks::Make() {
  if (!factory_) factory_ = MakeDriveLinks(link_, surroundings_);
}

std::unique_ptr<DriveLink> ChosenLinks::Create(const LinkWait& wait) {
  Make();
  return factory_->Create(wait);
}

void ChosenLinks::Choose(const std::string& link) {
  factory_ = MakeDriveLinks(link, surroundings_);
  link_ = link;
}

}  // namespace chartproject
