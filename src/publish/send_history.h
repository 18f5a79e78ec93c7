// Where a sender goes back to after a break: an acknowledgement is not durable at every server. Some keep points in
// memory for a while, and a server that dies then has lost what it acknowledged.
#pragma once

#include <cstdint>
#include <deque>

#include "platform/clock.h"
#include "publish/publish_position.h"

namespace chartproject {

/// After a break all points of the last ten minutes go again, and all that were acknowledged within the last minute: a
/// finished recording is sent faster than its own time. A point that the server has already is not changed by that.
class SendHistory {
 public:
  /// @param begin where this sender began
  explicit SendHistory(const SendPlace& begin) : acknowledged_(begin), safe_(begin) {}

  /// Everything before a place was acknowledged. @param moment of the last point, milliseconds; @param at now
  void Acknowledge(const SendPlace& place, std::int64_t moment, Instant at);
  /// The sender went back there: what comes after has to be acknowledged again.
  void GoBack(const SendPlace& place);

  /// The first point that was not acknowledged.
  [[nodiscard]] const SendPlace& Acknowledged() const noexcept { return acknowledged_; }
  /// Where to go on after a break.
  [[nodiscard]] const SendPlace& Safe() const noexcept { return safe_; }

 private:
  struct Entry {
    SendPlace place;
    std::int64_t moment = 0;
    Instant at{};
  };
  SendPlace acknowledged_;
  SendPlace safe_;
  std::deque<Entry> entries_;  ///< after safe_, a few seconds apart
};

}  // namespace chartproject
