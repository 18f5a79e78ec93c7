// Line by line, every value within its range or left out.
#include "recording/journal/journal_reader.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "common/values/text.h"
#include "recording/journal/journal.h"

namespace chartproject {

namespace {

constexpr std::int64_t kMostMilliseconds = 1'000'000'000'000;

std::optional<std::int64_t> NumberIn(std::string_view text, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < least || number > most) return std::nullopt;
  return number;
}

/// "yyyy-mm-dd hh:mm:ss" of a day that exists.
std::optional<DateTime> MomentOf(std::string_view text) {
  constexpr std::string_view kShape = "0000-00-00 00:00:00";
  if (text.size() != kShape.size()) return std::nullopt;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kShape[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != kShape[i]) return std::nullopt;
  }
  const auto field = [text](std::size_t at, std::size_t length) {
    return static_cast<int>(NumberIn(text.substr(at, length), 0, 9999).value_or(0));
  };
  const DateTime moment{field(0, 4), field(5, 2), field(8, 2), field(11, 2), field(14, 2), field(17, 2), 0};
  const std::chrono::year_month_day day{std::chrono::year{moment.year},
                                        std::chrono::month{static_cast<unsigned>(moment.month)},
                                        std::chrono::day{static_cast<unsigned>(moment.day)}};
  if (!day.ok() || moment.hour > 23 || moment.minute > 59 || moment.second > 59) return std::nullopt;
  return moment;
}

/// Takes a line of the journal's own; false when it is another one.
bool TakeOwnLine(std::string_view line, JournalReading& reading) {
  const auto value = AfterEquals(line);
  if (line.starts_with(journal_line::kInterval)) {
    reading.millisecondsBetweenPoints = NumberIn(value, 1, kMostMilliseconds).value_or(0);
  } else if (line == journal_line::kSimulated) {
    reading.simulated = true;
  } else if (line.starts_with(journal_line::kBegun)) {
    reading.begun = MomentOf(value);
  } else if (line.starts_with(journal_line::kSpool) || line.starts_with(journal_line::kLost)) {
    const auto number = SideNumberIn(line);
    if (!number) return true;
    std::erase(reading.spools, *number);
    if (line.starts_with(journal_line::kSpool)) reading.spools.push_back(*number);
  } else {
    return false;
  }
  return true;
}

/// The beginning of a file, at most kHeaderLimit bytes.
std::string HeadOf(InputFile& file) {
  std::string head;
  std::array<char, 65'536> block{};
  while (head.size() < kHeaderLimit) {
    const std::size_t count = file.Read(block);
    if (count == 0) break;
    head.append(block.data(), count);
    // The rows are not header lines: most journals are known after the first block.
    if (head.find(kRowsMark) != std::string::npos) break;
  }
  return head;
}

}  // namespace

std::optional<int> SideNumberIn(std::string_view line) {
  const auto number = NumberIn(AfterEquals(line), 0, kMostSideNames - 1);
  return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

std::optional<JournalReading> ReadJournal(InputFile& file, const CodePage& codePage) {
  JournalReading reading;
  const std::string head = HeadOf(file);
  std::int64_t number = 0;
  for (std::size_t begin = 0;;) {
    const std::size_t end = head.find('\n', begin);
    if (end == std::string::npos) break;
    std::string_view bytes = std::string_view(head).substr(begin, end - begin);
    if (bytes.ends_with('\r')) bytes.remove_suffix(1);
    begin = end + 1;
    ++number;
    if (number == 1 && bytes != journal_line::kMark) return std::nullopt;
    if (number == 2 && bytes != journal_line::kVersion) return std::nullopt;
    if (number <= 2) continue;
    if (bytes == kRowsMark) {
      reading.rows = RowStart{number + 1, begin};
      break;
    }
    const std::string line = codePage.Decode(bytes);
    if (!TakeOwnLine(line, reading)) TakeHeaderLine(line, reading.header);
  }
  if (number < 2) return std::nullopt;
  return reading;
}

}  // namespace chartproject
