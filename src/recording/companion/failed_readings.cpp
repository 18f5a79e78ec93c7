// Ranges of failed points that grow, and are joined when there are too many.
#include "recording/companion/failed_readings.h"

#include <algorithm>
#include <utility>

#include "common/values/text.h"

namespace chartproject {

namespace {

/// One line that can be shown, cut between two characters.
std::string ShownDetail(std::string_view detail) {
  constexpr unsigned kFollowingByte = 0x80;
  constexpr unsigned kFollowingMask = 0xC0;
  std::string shown = VisibleText(detail);
  if (shown.size() <= kLongestReasonDetail) return shown;
  std::size_t end = kLongestReasonDetail;
  while (end > 0 && (static_cast<unsigned char>(shown[end]) & kFollowingMask) == kFollowingByte) --end;
  shown.resize(end);
  return shown;
}

}  // namespace

void FailedColumn::Note(std::int32_t point, const ReadOutcome& reason) {
  Append({point, point, 1, reason});
}

void FailedColumn::Append(FailedRange range) {
  count_ += range.failed;
  range.reason.detail = ShownDetail(range.reason.detail);
  if (!ranges_.empty() && ranges_.back().last + 1 == range.first && ranges_.back().reason == range.reason) {
    ranges_.back().last = range.last;
    ranges_.back().failed += range.failed;
    return;
  }
  ranges_.push_back(std::move(range));
  if (ranges_.size() > kMostFailedRanges) JoinNeighbours();
}

/// Each pair becomes one range with the later reason; the last one stays for itself, so that it can grow.
void FailedColumn::JoinNeighbours() {
  std::vector<FailedRange> joined;
  std::size_t at = 0;
  for (; at + 2 < ranges_.size(); at += 2) {
    FailedRange pair = std::move(ranges_[at + 1]);
    pair.first = ranges_[at].first;
    pair.failed += ranges_[at].failed;
    joined.push_back(std::move(pair));
  }
  for (; at < ranges_.size(); ++at) joined.push_back(std::move(ranges_[at]));
  ranges_ = std::move(joined);
}

const FailedRange* FailedColumn::Find(std::int32_t point) const {
  const auto found = std::ranges::lower_bound(ranges_, point, {}, &FailedRange::last);
  return found == ranges_.end() || found->first > point ? nullptr : &*found;
}

bool AnyFailed(const FailedReadings& readings) noexcept {
  return std::ranges::any_of(readings, [](const FailedColumn& column) { return column.Count() > 0; });
}

}  // namespace chartproject
