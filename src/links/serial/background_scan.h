// A search of a line's drives that lets a window live.
#pragma once

#include <functional>
#include <vector>

#include "drive/link_wait.h"
#include "links/serial/line_scan.h"

namespace chartproject {

struct ScanState {
  int done = 0;  ///< addresses asked
  int total = 0;
  std::vector<FoundDrive> found;
};

/// Runs a LineScan on a thread of its own.
class BackgroundScan {
 public:
  /// @param clock a real one; outlives the scan
  BackgroundScan(LinePortMaker makePort, Clock& clock) : makePort_(std::move(makePort)), clock_(clock) {}

  /// Returns when the scan has ended, or soon after GoOn answered false. Calls `show` on the caller's thread before
  /// each GoOn. Throws what LineScan::Run throws. @return false when it was stopped
  [[nodiscard]] bool Run(const ScanPlan& plan, const LinkWait& wait, const std::function<void(const ScanState&)>& show);
  [[nodiscard]] const ScanState& State() const noexcept { return state_; }

 private:
  LinePortMaker makePort_;
  Clock& clock_;
  ScanState state_;
};

}  // namespace chartproject
