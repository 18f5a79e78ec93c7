// One round after the other, at even times.
#include "host/reports/watched_values.h"

#include <unistd.h>

#include <algorithm>
#include <ostream>

#include "backends/posix/keyboard_signals.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/parameter_read.h"

namespace chartproject {

namespace {

/// What is known of one parameter.
struct Watched {
  explicit Watched(std::int16_t theNumber) : number(theNumber) {}
  std::int16_t number;
  std::string value;            ///< the last one that was read
  std::optional<Instant> read;  ///< when
  ReadOutcome last;
  int failures = 0;
};

std::string LineOf(const Watched& watched, Instant now) {
  std::string line = ParameterName(watched.number) + " ";
  line += !watched.read ? "no value yet" : watched.value.empty() ? "no value shown" : watched.value;
  if (watched.read) {
    line += ", " + std::to_string(std::chrono::floor<std::chrono::seconds>(now - *watched.read).count()) + " s old";
  }
  line += ", " + std::to_string(watched.failures) + " failures";
  if (!watched.last.Answered()) line += ": " + FailureText(Language::kEnglish, watched.last);
  return VisibleText(line);
}

void Read(Component& component, Watched& watched) {
  ColumnReading reading = ReadColumn(component, watched.number);
  if (reading.outcome.failure == ReadFailure::kGivenUp) return;
  watched.last = std::move(reading.outcome);
  if (watched.last.Answered()) {
    watched.value = std::move(reading.text);
    watched.read = component.ports.clock.Now();
  } else {
    ++watched.failures;
  }
}

bool Stopped() {
  return KeyboardSignals::Received() > 0;
}

}  // namespace

ExitCode WatchValues(Session& session, Component& component, const WatchPlan& plan) {
  const LinkSurroundings& around = session.Links().Surroundings();
  const bool screen = isatty(STDOUT_FILENO) != 0;
  KeyboardSignals::Watch();
  component.linkWait.goOn = [] { return !Stopped(); };
  std::vector<Watched> all;
  for (const std::int16_t number : plan.parameters) all.emplace_back(number);
  Instant next = around.clock.Now();
  for (int round = 0; !Stopped() && (plan.times == 0 || round < plan.times); ++round) {
    for (; !Stopped() && around.clock.Now() < next;) {
      around.waitUntil(std::min<Instant>(next, around.clock.Now() + kLinkWaitSlice));
    }
    if (Stopped()) break;
    for (Watched& watched : all) Read(component, watched);
    // The program's output shows control characters, so that the screen is written to directly.
    if (screen) {
      constexpr std::string_view kHomeAndClear = "\x1B[H\x1B[2J";
      session.Out().flush();
      if (write(STDOUT_FILENO, kHomeAndClear.data(), kHomeAndClear.size()) < 0) break;
    }
    for (const Watched& watched : all) session.Out() << LineOf(watched, around.clock.Now()) << "\n";
    session.Out() << std::flush;
    if (!session.Out()) break;
    next = std::max(next + Instant(plan.every), around.clock.Now());
  }
  component.linkWait.goOn = nullptr;
  return std::ranges::all_of(all, [](const Watched& watched) { return watched.last.Answered(); })
             ? ExitCode::kDone
             : ExitCode::kRunTimeError;
}

}  // namespace chartproject
