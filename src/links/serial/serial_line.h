// The rules of a line with several drives: who is asked when, and what of what comes back is believed.
#pragma once

#include <array>
#include <chrono>
#include <functional>

#include "drive/drive_table.h"
#include "links/serial/line_port.h"
#include "platform/clock.h"

namespace chartproject {

struct LineRules {
  std::chrono::milliseconds timeout{300};
  int retries = 1;
  std::chrono::microseconds gap{5000};
};

/// How long a drive that failed twice in a row is left alone between two tries.
inline constexpr std::chrono::seconds kFailingDrivePace{1};
/// Between two tries to open a port that vanished.
inline constexpr std::chrono::milliseconds kReopenPace{500};

/// Replies carry no number, so that a late one looks like the reply to the next request. After anything but an answer
/// the line is therefore left silent for one more timeout, then flushed.
class SerialLine {
 public:
  /// Waits until a moment. @return false when the line was stopped meanwhile
  using Wait = std::function<bool(Instant moment)>;

  /// @param port,clock outlive the line
  SerialLine(LinePort& port, const LineRules& rules, Clock& clock, Wait wait)
      : port_(port), rules_(rules), clock_(clock), wait_(std::move(wait)) {}

  /// Throws what the port throws.
  void Open();
  void Close() noexcept;

  /// One reading with its retries. A drive whose last two readings failed is asked once, and once a second only; in
  /// between, its last failure is the result, at once. While the port is gone, each reading fails at once, and the port
  /// is opened again for ever.
  [[nodiscard]] LineReply Read(const LineRequest& request);
  /// One try, which neither heeds nor changes what is known of the drive.
  [[nodiscard]] LineReply Probe(const LineRequest& request);
  [[nodiscard]] LineReply Name(std::uint8_t slave);

 private:
  struct Conduct {
    int failures = 0;  ///< readings in a row
    Instant tried{0};
    LineReply last;
  };
  using Ask = std::function<LineReply()>;

  [[nodiscard]] LineReply Try(const Ask& ask);
  /// kPortGone when the port could not be opened again.
  [[nodiscard]] LineReply ReopenPort();

  LinePort& port_;
  LineRules rules_;
  Clock& clock_;
  Wait wait_;
  bool open_ = false;
  std::string gone_;  ///< why the port is not open
  Instant reopenAt_{0};
  Instant quietUntil_{0};                                ///< nothing is sent before
  bool flush_ = false;                                   ///< something may still arrive that was asked for earlier
  std::array<Conduct, kLastDriveAddress + 1> conducts_;  ///< by address
};

}  // namespace chartproject
