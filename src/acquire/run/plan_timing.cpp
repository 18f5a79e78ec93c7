// Timing by the component's clock.
#include "acquire/run/plan_timing.h"

#include <utility>

#include "common/environment/language.h"

namespace chartproject {

PlanTiming TimePlan(Component& component, const RunPlan& plan) {
  PlanTiming timing;
  timing.asked = std::chrono::milliseconds(plan.millisecondsBetweenPoints);
  component.currentDrive = plan.driveAddress;
  const Instant begin = component.ports.clock.Now();
  for (std::size_t column = 0; column < static_cast<std::size_t>(plan.parameterCount); ++column) {
    const std::int16_t parameter = plan.columns.at(column);
    if (parameter == kUnusedParameter) continue;
    ColumnReading reading = ReadColumn(component, parameter);
    if (reading.outcome.failure == ReadFailure::kGivenUp) break;
    if (!reading.outcome.Answered()) timing.failures.push_back({parameter, std::move(reading.outcome)});
  }
  timing.taken = std::chrono::ceil<std::chrono::milliseconds>(component.ports.clock.Now() - begin);
  return timing;
}

std::string PlanTimingText(const Environment& environment, const PlanTiming& timing) {
  std::string text;
  for (const PlanTiming::Failure& failure : timing.failures) {
    text += ParameterName(failure.parameter) + " " + FailureText(environment.language, failure.outcome) + "\n";
  }
  const Text sentence = timing.taken > timing.asked ? Text::kPointTakesTooLong : Text::kPointTakes;
  return text + FillIn(LoadMessage(environment, sentence),
                       {std::to_string(timing.taken.count()), std::to_string(timing.asked.count())});
}

}  // namespace chartproject
