// The state crosses from the line's thread to the caller's under a lock.
#include "links/serial/background_scan.h"

#include <mutex>

#include "links/serial/line_thread.h"

namespace chartproject {

bool BackgroundScan::Run(const ScanPlan& plan, const LinkWait& wait,
                         const std::function<void(const ScanState&)>& show) {
  std::mutex mutex;
  ScanState shared;
  const auto take = [&] {
    const std::lock_guard lock(mutex);
    state_ = shared;
  };
  LineThread* line = nullptr;
  LineScan scan(
      makePort_, clock_, [&line](Instant moment) { (void)line->WaitUntil(moment); },
      [&line] { return line->Stopping(); });
  scan.progress = [&](int done, int total, const LineSettings&) {
    const std::lock_guard lock(mutex);
    shared.done = done;
    shared.total = total;
  };
  scan.found = [&](const FoundDrive& drive) {
    const std::lock_guard lock(mutex);
    shared.found.push_back(drive);
  };
  LinkWait showing;
  showing.goOn = [&] {
    take();
    show(state_);
    return wait.GoOn();
  };
  bool complete = false;
  bool waited = false;
  {
    LineThread thread(clock_);  // ends before all that its work uses
    line = &thread;
    waited = thread.Do([&] { complete = scan.Run(plan); }, showing);
  }
  take();
  return waited && complete;
}

}  // namespace chartproject
