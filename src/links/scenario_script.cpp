// Parsing a script, and looking moments up in it.
#include "links/scenario_script.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "common/values/line_reader.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors begin a UTF-8 file with it
constexpr int kLastAddress = 30;
constexpr int kParameters = 1000;
constexpr std::int64_t kLastStatus = 32767;
constexpr std::int64_t kLongestDelay = 86'400'000;  // a day, in milliseconds

/// Takes the next word off the front of a line.
std::string_view TakeWord(std::string_view& line) {
  const std::size_t begin = line.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) {
    line = {};
    return {};
  }
  const std::size_t end = std::min(line.find_first_of(kBlanks, begin), line.size());
  const std::string_view word = line.substr(begin, end - begin);
  line.remove_prefix(end);
  return word;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// A whole number written in digits only. @param digits how many there must be; 0 for any
std::optional<std::int64_t> WholeNumber(std::string_view word, std::size_t digits) {
  std::int64_t value = 0;
  const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
  const bool whole = !word.empty() && word.front() != '-' && result.ec == std::errc() &&
                     result.ptr == word.data() + word.size() && (digits == 0 || word.size() == digits);
  return whole ? std::optional(value) : std::nullopt;
}

template <typename Timelines>
void SortByTime(Timelines& timelines) {
  for (auto& [key, timeline] : timelines) {
    std::stable_sort(timeline.begin(), timeline.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  }
}

/// The value that holds at a moment: that of the last entry at or before it.
template <typename Timelines>
auto* ValueAt(const Timelines& timelines, int key, std::int64_t moment) {
  using Value = const typename Timelines::mapped_type::value_type::second_type;
  const auto found = timelines.find(key);
  if (found == timelines.end()) return static_cast<Value*>(nullptr);
  const auto& timeline = found->second;
  const auto after = std::upper_bound(timeline.begin(), timeline.end(), moment,
                                      [](std::int64_t time, const auto& entry) { return time < entry.first; });
  return after == timeline.begin() ? static_cast<Value*>(nullptr) : &std::prev(after)->second;
}

}  // namespace

ScenarioScript ScenarioScript::Load(FileSystem& files, const std::string& fileName) {
  const auto file = files.OpenForReading(fileName);
  ScenarioScript script;
  constexpr std::uint64_t kMostMegabytes = 64;
  RefuseLargeFile(fileName, file->Identity().size, kMostMegabytes);
  LineReader reader(*file);
  for (TextLine line; reader.Next(line);) {
    RefuseLargeFile(fileName, line.offset, kMostMegabytes);  // a pipe has no size beforehand
    if (line.offset == 0 && line.text.starts_with(kByteOrderMark)) line.text.remove_prefix(kByteOrderMark.size());
    if (line.cut || !script.TakeLine(line.text)) {
      constexpr std::size_t kMostShown = 200;
      throw RunTimeError(error_number::kInvalidProcedureCall,
                         fileName + ", line " + std::to_string(line.number) +
                             " is not understood: " + std::string(line.text.substr(0, kMostShown)));
    }
  }
  script.SortTimelines();
  return script;
}

bool ScenarioScript::TakeLine(std::string_view line) {
  line = TrimBlanks(line.substr(0, line.find('#')));
  if (line.empty()) return true;
  if (TakeWord(line) != "at") return false;
  const auto time = WholeNumber(TakeWord(line), 0);
  const auto address = WholeNumber(TakeWord(line), 2);
  if (!time || !address || *address > kLastAddress) return false;
  const int drive = static_cast<int>(*address);
  const std::string_view what = TakeWord(line);
  const std::string_view rest = TrimBlanks(line);
  if (TakeConduct(drive, *time, what, rest)) return true;
  if (what.empty() || what.front() != 'P' || rest.empty()) return false;
  const auto parameter = WholeNumber(what.substr(1), 3);
  if (!parameter) return false;
  texts_[drive * kParameters + static_cast<int>(*parameter)].emplace_back(*time, rest);
  return true;
}

/// The verbs that say how readings go wrong. False for another word, or when its rest is not understood.
bool ScenarioScript::TakeConduct(int drive, std::int64_t time, std::string_view verb, std::string_view rest) {
  if (verb == "answers" || verb == "silent") {
    const bool silent = verb == "silent";
    outcomes_[drive].emplace_back(time, ReadOutcome{silent ? ReadFailure::kNoAnswer : ReadFailure::kNone, {}});
    return rest.empty();
  }
  if (verb == "breaks") {
    outcomes_[drive].emplace_back(time, ReadOutcome{ReadFailure::kBroken, std::string(rest.empty() ? verb : rest)});
    return true;
  }
  if (verb == "fails") {
    const auto status = WholeNumber(TakeWord(rest), 0);
    if (!status || *status < 1 || *status > kLastStatus) return false;
    outcomes_[drive].emplace_back(time, OutcomeOfStatus(static_cast<std::int16_t>(*status), TrimBlanks(rest)));
    return true;
  }
  if (verb == "slow" || verb == "late") {
    const auto duration = WholeNumber(rest, 0);
    if (!duration || *duration > kLongestDelay) return false;
    (verb == "slow" ? delays_ : lates_)[drive].emplace_back(time, *duration);
    return true;
  }
  return false;
}

void ScenarioScript::SortTimelines() {
  SortByTime(texts_);
  SortByTime(outcomes_);
  SortByTime(delays_);
  SortByTime(lates_);
}

ReadOutcome ScenarioScript::OutcomeAt(int address, std::int64_t milliseconds) const {
  const ReadOutcome* const outcome = ValueAt(outcomes_, address, milliseconds);
  return outcome != nullptr ? *outcome : ReadOutcome{};
}

std::int64_t ScenarioScript::DelayAt(int address, std::int64_t milliseconds) const {
  const std::int64_t* const delay = ValueAt(delays_, address, milliseconds);
  return delay != nullptr ? *delay : 0;
}

std::int64_t ScenarioScript::LatenessBetween(int address, std::int64_t after, std::int64_t upTo) const {
  const auto found = lates_.find(address);
  if (found == lates_.end()) return 0;
  std::int64_t sum = 0;
  for (const auto& [time, duration] : found->second) sum += time > after && time <= upTo ? duration : 0;
  return sum;
}

const std::string* ScenarioScript::TextAt(int address, int parameter, std::int64_t milliseconds) const {
  return ValueAt(texts_, address * kParameters + parameter, milliseconds);
}

}  // namespace chartproject
