// The schedule of the timers of all forms of one back end.
#include "forms/timer_queue.h"

#include <algorithm>

#include "forms/controls.h"

namespace chartproject {

void TimerQueue::Arm(Timer& timer) {
  Disarm(timer);
  const Instant interval = std::chrono::milliseconds(timer.Interval());
  entries_.push_back({&timer, clock_.Now() + interval, interval});
}

void TimerQueue::Disarm(Timer& timer) {
  std::erase_if(entries_, [&timer](const Entry& entry) { return entry.timer == &timer; });
}

std::optional<Instant> TimerQueue::NextDue(bool endless) const {
  const Entry* first = nullptr;
  for (const Entry& entry : entries_) {
    if (!endless && entry.timer->Endless()) continue;
    if (!entry.timer->Firing() && (first == nullptr || entry.due < first->due)) first = &entry;
  }
  return first == nullptr ? std::nullopt : std::optional(first->due);
}

bool TimerQueue::FireOne() {
  Entry* first = nullptr;
  for (Entry& entry : entries_) {
    if (!entry.timer->Firing() && (first == nullptr || entry.due < first->due)) first = &entry;
  }
  const Instant now = clock_.Now();
  if (first == nullptr || first->due > now) return false;
  // The next due time is fixed before the handler runs, which may re-arm or stop the timer.
  first->due += first->interval * ((now - first->due) / first->interval + 1);
  first->timer->Fire();
  return true;
}

}  // namespace chartproject
