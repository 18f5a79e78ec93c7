// Intervals between points.
#include "recording/companion/pace.h"

namespace chartproject {

namespace {

constexpr std::int64_t kMostTolerance = 250;  // milliseconds

std::int64_t Milliseconds(Instant duration) {
  return std::chrono::round<std::chrono::milliseconds>(duration).count();
}

}  // namespace

Pace::Pace(std::int64_t asked, Instant began)
    : asked_(asked),
      last_(began),
      recent_(static_cast<double>(asked)),
      times_(std::clamp<std::int64_t>(asked / 20, 1, kMostTolerance)) {}

void Pace::Note(std::int32_t number, Instant at) {
  constexpr double kShareOfLast = 0.25;
  const Instant interval = at - last_;
  recent_ += kShareOfLast * (static_cast<double>(Milliseconds(interval)) - recent_);
  last_ = at;
  points_ = number;
  if (number == 1) {
    first_ = at;
  } else {
    shortest_ = number == 2 ? interval : std::min(shortest_, interval);
    longest_ = std::max(longest_, interval);
  }
  const Instant due = first_ + std::chrono::milliseconds(asked_ * (number - 1));
  latest_ = std::max(latest_, at - due);
  times_.Add({number, Milliseconds(at - first_)});
}

PaceSummary Pace::Summary() const {
  PaceSummary summary{.asked = asked_};
  if (points_ < 2) return summary;
  summary.shortest = Milliseconds(shortest_);
  summary.mean = Milliseconds((last_ - first_) / (points_ - 1));
  summary.longest = std::max<std::int64_t>(Milliseconds(longest_), 1);
  summary.latest = Milliseconds(latest_);
  return summary;
}

std::int64_t Pace::LateInterval(Instant now) const {
  constexpr double kNoticed = 1.05;
  const std::int64_t allowance = PaceSummary{.asked = asked_}.Allowance();
  const std::int64_t waiting = Milliseconds(now - last_);
  if (waiting > asked_ + allowance && static_cast<double>(waiting) > recent_) return waiting;
  const double asked = static_cast<double>(asked_);
  const bool late = points_ > 1 && recent_ > asked * kNoticed && Milliseconds(latest_) > allowance;
  return late ? static_cast<std::int64_t>(recent_ + 0.5) : 0;
}

}  // namespace chartproject
