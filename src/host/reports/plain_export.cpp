// Where the bytes of a plain table go.
#include "host/reports/plain_export.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "backends/posix/files/part_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/posix_time_zone.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "host/arguments/command.h"

namespace chartproject {
namespace {

struct FormatName {
  std::string_view word;
  std::string_view ending;
  PlainFormat format;
};
constexpr std::array<FormatName, 3> kFormats{{
    {"csv", ".csv", PlainFormat::kCommas},
    {"tsv", ".tsv", PlainFormat::kTabs},
    {"jsonl", ".jsonl", PlainFormat::kJsonLines},
}};

/// Past the streams of the program, which make control characters visible.
void WriteToStandardOutput(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw FileError(errno, "standard output");
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

PlainFormat PlainFormatOf(const std::string& word, const std::string& output) {
  for (const FormatName& name : kFormats) {
    if (word.empty() ? HasEnding(output, name.ending) : word == name.word) return name.format;
  }
  if (word.empty() && output == "-") return PlainFormat::kCommas;
  if (word.empty()) {
    throw RefusedError("--output: \"" + output +
                       "\" has none of the endings .csv, .tsv, .jsonl; --format chooses, too");
  }
  throw RefusedError("--format: csv, tsv or jsonl, not \"" + word + "\"");
}

std::vector<PlainColumn> PlainColumnsOf(const ChartView& view) {
  std::vector<PlainColumn> columns;
  const FailedReadings* const failed = view.Facts().Failed();
  for (int series = 0; series < view.SeriesCount(); ++series) {
    const ViewedSeries viewed = view.Series(series);
    const std::string number = viewed.number.empty() ? "series " + std::to_string(series + 1) : viewed.number;
    columns.push_back({PlainHead(number, viewed.name.value_or(""), viewed.unit),
                       failed != nullptr ? &(*failed)[static_cast<std::size_t>(series)] : nullptr});
  }
  return columns;
}

PlainTableReport WritePlainTable(Ports& ports, const std::string& chartFile, const std::string& output,
                                 const PlainTable& table, const PlainProgress& progress) {
  const PosixTimeZone zone;
  PlainTableWriter writer(table, ports.locale.Numbers(), ports.codePage, zone);
  const auto input = ports.files.OpenForReading(chartFile);
  if (output == "-") return writer.Write(*input, WriteToStandardOutput, progress);
  PartFile part(output);
  const auto file = part.OpenForWriting();
  const PlainTableReport report = writer.Write(
      *input, [&file](std::string_view bytes) { file->Write(bytes); }, progress);
  file->FlushAndClose();
  if (report.points > 0 && !report.givenUp) part.Commit();
  return report;
}

}  // namespace chartproject
