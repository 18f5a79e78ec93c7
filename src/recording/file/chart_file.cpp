// Reading chart files of any content and size in bounded memory.
#include "recording/file/chart_file.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "common/environment/language.h"
#include "common/values/byte_words.h"
#include "common/values/line_reader.h"
#include "common/values/text.h"
#include "recording/file/component.h"
#include "recording/file/trigger_events.h"

namespace chartproject {

namespace {

constexpr std::size_t kBlockSize = 65'536;
/// Longer lines cannot be header lines and are skipped.
constexpr std::size_t kHeaderLineLimit = 4096;

/// The first kHeaderLimit bytes of a file.
class HeadOfFile : public InputFile {
 public:
  explicit HeadOfFile(InputFile& file) : file_(file) {}
  std::size_t Read(std::span<char> buffer) override {
    const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), kHeaderLimit - total_));
    const std::size_t count = room == 0 ? 0 : file_.Read(buffer.first(room));
    total_ += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { file_.Seek(offset); }
  FileIdentity Identity() override { return file_.Identity(); }

 private:
  InputFile& file_;
  std::uint64_t total_ = 0;
};

/// The "#" of a line of up to 64 bytes, a bit each: without a branch for each byte, for values differ in length, and
/// wrong guesses of the processor cost more than the row. @param line of 8 to 64 bytes
std::uint64_t MarkBits(std::string_view line) noexcept {
  const auto bitsAt = [line](std::size_t at) {
    return BitOfEachByte(BytesEqual(LoadWord(line.data() + at), '#')) << at;
  };
  const std::size_t last = line.size() - kWordSize;
  std::uint64_t bits = bitsAt(last);
  for (std::size_t at = 0; at < last; at += kWordSize) bits |= bitsAt(at);
  return bits;
}

/// @param next gives the places of the marks one by one, after the last one npos
template <class NextMark>
std::optional<ChartRow> RowOfMarks(std::string_view line, NextMark next) noexcept {
  ChartRow row;
  std::size_t mark = next();
  if (mark == std::string_view::npos) return std::nullopt;
  row.time = line.substr(0, mark);
  for (std::string_view& value : row.values) {
    const std::size_t begin = mark + 1;
    mark = next();
    if (mark == std::string_view::npos) return std::nullopt;
    value = line.substr(begin, mark - begin);
  }
  const bool sixth = next() != std::string_view::npos;
  const bool seventh = next() != std::string_view::npos;
  return sixth && !seventh ? std::optional(row) : std::nullopt;
}

}  // namespace

HeaderReading ReadChartHeader(Component& component) {
  const auto file = component.ports.files.OpenForReading(component.strChartFileName);
  return ReadChartHeader(*file, component.ports.codePage, component.chartHeader);
}

HeaderReading ReadChartHeader(InputFile& file, const CodePage& codePage, ChartHeader& header) {
  HeaderReading reading;
  HeadOfFile head(file);
  LineReader lines(head, kHeaderLineLimit);
  for (TextLine bytes; lines.Next(bytes);) {
    if (bytes.cut) continue;
    const std::string text = codePage.Decode(bytes.text);
    const std::string_view line = Trim(text);
    if (line.empty() || line.front() == '\'' || line.find("[INFO]") != std::string_view::npos) continue;
    if (TakeHeaderLine(line, header)) ++reading.keys;
    reading.rowsFollow = line.find(kRowsMark) != std::string_view::npos;
    if (reading.rowsFollow) break;
  }
  return reading;
}

bool TakeHeaderLine(std::string_view line, ChartHeader& header) {
  for (const HeaderKey& entry : kHeaderKeys) {
    if (line.find(entry.key) == std::string_view::npos) continue;
    header.*entry.field = AfterEquals(line);
    return true;
  }
  return false;
}

std::optional<RowStart> LocateRows(FileSystem& files, const std::string& fileName) {
  return LocateRows(*files.OpenForReading(fileName));
}

std::optional<RowStart> LocateRows(InputFile& file) {
  // The mark holds no line end, so the first line that contains it is the line of its first occurrence.
  std::vector<char> buffer(kRowsMark.size() + kBlockSize);
  std::size_t kept = 0;  // bytes at the buffer's front that may begin a mark cut by the block's end
  std::uint64_t offset = 0;
  RowStart start{1, 0};
  bool marked = false;
  for (;;) {
    const std::size_t count = file.Read(std::span(buffer).subspan(kept, kBlockSize));
    if (count == 0) break;
    const std::string_view bytes(buffer.data(), kept + count);
    std::size_t from = 0;
    if (!marked) {
      from = bytes.find(kRowsMark);
      marked = from != std::string_view::npos;
      const std::size_t keep = std::min(bytes.size(), kRowsMark.size() - 1);
      const std::size_t passed = marked ? from : bytes.size() - keep;
      start.line += std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(passed), '\n');
      if (!marked) {
        offset += passed;
        std::copy(bytes.end() - static_cast<std::ptrdiff_t>(keep), bytes.end(), buffer.begin());
        kept = keep;
        continue;
      }
    }
    const std::size_t lineEnd = bytes.find('\n', from);
    if (lineEnd != std::string_view::npos) return RowStart{start.line + 1, offset + lineEnd + 1};
    offset += bytes.size();
    kept = 0;
  }
  // A mark on the last line, without a line end: the rows would follow, but there are none yet.
  if (marked) return RowStart{start.line + 1, offset};
  return std::nullopt;
}

std::optional<ChartRow> SplitRow(std::string_view line) noexcept {
  const auto isBlank = [](char c) { return c == ' ' || c == '\r' || c == '\n'; };
  while (!line.empty() && isBlank(line.back())) line.remove_suffix(1);
  while (!line.empty() && line.front() == ' ') line.remove_prefix(1);
  constexpr std::size_t kMostBits = 64;
  if (line.size() < kWordSize || line.size() > kMostBits) {
    return RowOfMarks(line, [line, from = std::size_t{0}]() mutable {
      const std::size_t mark = line.find('#', from);
      from = std::min(mark, line.size() - 1) + 1;
      return mark;
    });
  }
  return RowOfMarks(line, [bits = MarkBits(line)]() mutable {
    const std::size_t mark = bits == 0 ? std::string_view::npos : static_cast<std::size_t>(std::countr_zero(bits));
    bits &= bits - 1;  // without its lowest one
    return mark;
  });
}

std::string TriggerModeText(const Environment& environment, std::string_view code) {
  if (code == "Event") return LoadMessage(environment, Text::kEvent);
  if (code == "Manual") return LoadMessage(environment, Text::kManual);
  return {};
}

std::string EventText(const Environment& environment, std::string_view code) {
  const TriggerEvent event = EventOfCode(code);
  return event == TriggerEvent::kNone ? std::string() : LoadMessage(environment, EventName(event));
}

}  // namespace chartproject
