// A plan's point read once, to see how much of the time between points it takes.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "acquire/run/acquisition_run.h"

namespace chartproject {

/// What reading one point of a plan took.
struct PlanTiming {
  struct Failure {
    std::int16_t parameter = 0;
    ReadOutcome outcome;
  };
  std::chrono::milliseconds taken{0};  ///< rounded up
  std::chrono::milliseconds asked{0};  ///< between the points of the plan
  std::vector<Failure> failures;       ///< readings that gave no value, one an entry
};

/// Reads each column of a plan as a recording does, and keeps nothing. Ends early when a reading is given up. Throws
/// what ReadColumn throws. @param component its drive link is open; the plan's drive becomes the current one
[[nodiscard]] PlanTiming TimePlan(Component& component, const RunPlan& plan);

/// One line for each failed reading, then "A point takes 180 of your 200 ms."; no line end after the last.
[[nodiscard]] std::string PlanTimingText(const Environment& environment, const PlanTiming& timing);

}  // namespace chartproject
