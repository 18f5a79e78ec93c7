// Finding drives: which addresses answer, at which speed.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "links/serial/line_port.h"
#include "links/serial/link_url.h"
#include "links/serial/serial_link.h"
#include "platform/clock.h"

namespace chartproject {

struct FoundDrive {
  int address = 0;
  LineSettings settings;  ///< with which it answered
  std::string name;       ///< that the drive gives itself; often empty
};

struct ScanPlan {
  int from = 1;
  int to = 30;
  std::vector<LineSettings> lines;  ///< tried one after the other
};

/// The settings of a serial line with other speeds and parities, most usual first: those given, then 8E1, 8N1, 8O1 and
/// 8N2 at each speed. A network has one set only.
[[nodiscard]] std::vector<LineSettings> LinesToTry(const LineSettings& given);

/// The longest time that a scan takes, when nobody answers.
[[nodiscard]] std::chrono::milliseconds LongestScan(const ScanPlan& plan);

/// Probes each address once. With several lines the first that finds a drive is the last one tried.
class LineScan {
 public:
  /// @param makePort,clock,wait as for SerialLinkFactory and SerialLine @param stopping true: end now
  LineScan(LinePortMaker makePort, Clock& clock, std::function<void(Instant)> sleepUntil,
           std::function<bool()> stopping)
      : makePort_(std::move(makePort)),
        clock_(clock),
        sleepUntil_(std::move(sleepUntil)),
        stopping_(std::move(stopping)) {}

  std::function<void(int done, int total, const LineSettings& settings)> progress;  ///< may be empty
  std::function<void(const FoundDrive& drive)> found;                               ///< as soon as it answered

  /// @return false when it was stopped; what was found has been reported. Throws RunTimeError for a port that cannot
  /// be opened, or is gone.
  [[nodiscard]] bool Run(const ScanPlan& plan);

 private:
  [[nodiscard]] bool RunLine(const ScanPlan& plan, const LineSettings& settings, int done, int& count);
  [[nodiscard]] bool WaitUntil(Instant moment);

  LinePortMaker makePort_;
  Clock& clock_;
  std::function<void(Instant)> sleepUntil_;
  std::function<bool()> stopping_;
};

}  // namespace chartproject
