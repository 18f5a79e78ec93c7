// Fuzz target: header, row place and rows of any file are read within their bounds.
#include "backends/headless/code_page_1252.h"
#include "bytes_file.h"
#include "recording/file/chart_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using chartproject::BytesFile, chartproject::Require;
  const std::string bytes(data, data + size);
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
