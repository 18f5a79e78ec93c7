// Each section's lines, with their bounds.
#include "recording/companion/companion_reader.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "common/values/numbers.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

constexpr std::int64_t kLastPoint = 2'000'000'000;
constexpr std::int64_t kLongestTime = std::int64_t{1} << 52U;  // milliseconds: exact as a floating-point number

constexpr std::array<std::pair<ReadFailure, std::string_view>, 7> kCodes{{
    {ReadFailure::kNoAnswer, "no-answer"},
    {ReadFailure::kTimeout, "incomplete"},
    {ReadFailure::kChecksum, "checksum"},
    {ReadFailure::kException, "refused"},
    {ReadFailure::kPortGone, "port-gone"},
    {ReadFailure::kStatus, "status"},
    {ReadFailure::kBroken, "link-failed"},
}};

/// Takes the next word, up to a blank, off the front of a line.
std::string_view TakeWord(std::string_view& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return word;
}

/// A whole number of digits only, within bounds.
bool ReadNumber(std::string_view word, std::int64_t least, std::int64_t most, std::int64_t& value) {
  const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
  return result.ec == std::errc() && result.ptr == word.data() + word.size() && value >= least && value <= most;
}

}  // namespace

std::string_view FailureCode(ReadFailure failure) noexcept {
  const auto* const found = std::ranges::find(kCodes, failure, &std::pair<ReadFailure, std::string_view>::first);
  return found == kCodes.end() ? kCodes.front().second : found->second;
}

std::string FailedRangeLine(std::size_t column, int parameter, const FailedRange& range) {
  std::string line = std::to_string(column + 1) + " P" + FormatDigits(parameter, 3) + " " +
                     std::to_string(range.first) + " " + std::to_string(range.last) + " " +
                     std::to_string(range.failed) + " " + std::string(FailureCode(range.reason.failure));
  if (!range.reason.detail.empty()) line.append(" ").append(range.reason.detail);
  return line;
}

bool CompanionReader::TakeLine(std::string_view line) {
  if (line.empty() || line.front() == '\'') return true;
  if (line.front() == '[') {
    constexpr std::array<std::pair<std::string_view, Taker>, 4> kSections{{
        {kCompanionMark, &CompanionReader::TakeRecording},
        {kFailedSection, &CompanionReader::TakeFailed},
        {kPaceSection, &CompanionReader::TakePace},
        {kTimesSection, &CompanionReader::TakeTime},
    }};
    const auto* const found = std::ranges::find(kSections, line, &std::pair<std::string_view, Taker>::first);
    taker_ = found == kSections.end() ? nullptr : found->second;
    return true;
  }
  return taker_ == nullptr || (this->*taker_)(line);
}

bool CompanionReader::TakeRecording(std::string_view line) {
  std::int64_t points = 0;
  if (line.starts_with(kPointsKey)) {
    if (!ReadNumber(AfterEquals(line), 0, kLastPoint, points)) return false;
    companion_.points = static_cast<std::int32_t>(points);
    return true;
  }
  if (line.starts_with(kRecoveredKey)) {
    const auto* const word = std::ranges::find(kRecoveredWords, AfterEquals(line));
    if (word == kRecoveredWords.end()) return false;
    companion_.recovered = static_cast<Recovered>(word - kRecoveredWords.begin());
    return true;
  }
  const auto* const key =
      std::ranges::find_if(kRecordingKeys, [line](const HeaderKey& entry) { return line.starts_with(entry.key); });
  if (key == kRecordingKeys.end()) return false;
  ++matched_;
  other_ = other_ || Trim(AfterEquals(line)) != Trim(header_.*key->field);
  return true;
}

bool CompanionReader::TakeFailed(std::string_view line) {
  std::int64_t column = 0;
  std::int64_t parameter = 0;
  std::int64_t first = 0;
  std::int64_t last = 0;
  std::int64_t failed = 0;
  if (!ReadNumber(TakeWord(line), 1, kColumnCount, column)) return false;
  const std::string_view name = TakeWord(line);
  if (!name.starts_with('P') || !ReadNumber(name.substr(1), 0, kUnusedParameter, parameter)) return false;
  const auto at = static_cast<std::size_t>(column - 1);
  FailedColumn& readings = companion_.failed[at];
  if (!ReadNumber(TakeWord(line), std::int64_t{readings.LastPoint()} + 1, kLastPoint, first)) return false;
  if (!ReadNumber(TakeWord(line), first, kLastPoint, last)) return false;
  if (!ReadNumber(TakeWord(line), 1, last - first + 1, failed)) return false;
  const auto* const code = std::ranges::find(kCodes, TakeWord(line), &std::pair<ReadFailure, std::string_view>::second);
  if (code == kCodes.end()) return false;
  companion_.parameters[at] = static_cast<int>(parameter);
  readings.Append({static_cast<std::int32_t>(first),
                   static_cast<std::int32_t>(last),
                   static_cast<std::int32_t>(failed),
                   {code->first, std::string(line)}});
  return true;
}

bool CompanionReader::TakePace(std::string_view line) {
  const auto* const key =
      std::ranges::find_if(kPaceKeys, [line](const PaceKey& entry) { return line.starts_with(entry.key); });
  return key != kPaceKeys.end() && ReadNumber(AfterEquals(line), 0, kLongestTime, companion_.pace.*key->field);
}

bool CompanionReader::TakeTime(std::string_view line) {
  if (line.starts_with(kWithinKey)) return ReadNumber(AfterEquals(line), 1, kLongestTime, within_);
  std::int64_t point = 0;
  std::int64_t elapsed = 0;
  const std::int64_t before = knots_.empty() ? 0 : knots_.back().point;
  const std::int64_t since = knots_.empty() ? 0 : knots_.back().elapsed;
  if (!ReadNumber(TakeWord(line), before + 1, kLastPoint, point)) return false;
  if (!ReadNumber(line, since, kLongestTime, elapsed) || knots_.size() > kMostTimeKnots) return false;
  knots_.push_back({static_cast<std::int32_t>(point), elapsed});
  return true;
}

std::optional<Companion> CompanionReader::Finish() {
  if (other_ || matched_ != kRecordingKeys.size()) return std::nullopt;
  if (knots_.size() > 1) companion_.times = PointTimes(std::move(knots_), within_);
  return std::move(companion_);
}

}  // namespace chartproject
