// Fuzz target: whatever a file holds, header, row place and rows are read within their bounds.
#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "acquire/chart_file.h"
#include "platform/posix/code_page_1252.h"

namespace chartproject {
namespace {

class BytesFile : public InputFile {
 public:
  explicit BytesFile(std::string_view bytes) : bytes_(bytes) {}
  std::size_t Read(std::span<char> buffer) override {
    const std::size_t count = std::min(buffer.size(), bytes_.size() - at_);
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, buffer.begin());
    at_ += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { at_ = std::min(static_cast<std::size_t>(offset), bytes_.size()); }
  FileIdentity Identity() override { return {1, 1, bytes_.size(), 0}; }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace
}  // namespace chartproject

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using chartproject::BytesFile, chartproject::Require;
  std::string bytes(size, '\0');
  if (size > 0) std::memcpy(bytes.data(), data, size);
  chartproject::ChartHeader header;
  BytesFile headerFile(bytes);
  ReadChartHeader(headerFile, chartproject::CodePage1252(), header);

  BytesFile rowFile(bytes);
  const auto start = LocateRows(rowFile);
  Require(start.has_value() == (bytes.find(chartproject::kRowsMark) != std::string::npos));
  if (!start) return 0;
  Require(start->offset <= bytes.size());
  const auto lineEnds = std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(start->offset), '\n');
  const bool endsWithMark = start->offset == bytes.size() && bytes.back() != '\n';
  Require(start->line == lineEnds + (endsWithMark ? 2 : 1));
  if (const auto row =
          chartproject::SplitRow(std::string_view(bytes).substr(static_cast<std::size_t>(start->offset)))) {
    Require(row->time.find('#') == std::string_view::npos);
  }
  return 0;
}
