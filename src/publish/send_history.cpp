// A bounded chain of places.
#include "publish/send_history.h"

namespace chartproject {
namespace {

constexpr std::int64_t kRecordedBack = 600'000;  // milliseconds of the recording
constexpr Instant kSentBack = std::chrono::minutes(1);
constexpr Instant kBetweenEntries = std::chrono::seconds(5);

}  // namespace

void SendHistory::Acknowledge(const SendPlace& place, std::int64_t moment, Instant at) {
  acknowledged_ = place;
  while (!entries_.empty()) {
    const Entry& oldest = entries_.front();
    if (oldest.moment > moment - kRecordedBack || oldest.at > at - kSentBack) break;
    safe_ = oldest.place;
    entries_.pop_front();
  }
  if (entries_.empty() || at - entries_.back().at >= kBetweenEntries) entries_.push_back({place, moment, at});
}

void SendHistory::GoBack(const SendPlace& place) {
  acknowledged_ = place;
  while (!entries_.empty() && entries_.back().place.next > place.next) entries_.pop_back();
}

}  // namespace chartproject
