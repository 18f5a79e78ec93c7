// Kept overviews: any content of the cache is taken over where it can be, else thrown away; the chart file stays
// readable.
#include <cmath>
#include <cstring>

#include "bytes_file.h"
#include "chart/file/chart_source.h"
#include "support/fake_ports.h"
#include "targets.h"

namespace chartproject::fuzz {

namespace {

constexpr int kPoints = 1500;
constexpr int kFirstLine = 4;

std::string ChartFile() {
  std::string text = "[INFO]\r\nNumber of Parameters=2\r\n[TIME/CONTENT]\r\n";
  for (int i = 1; i <= kPoints; ++i) text += "08:00:00#" + std::to_string(i) + "#-1####\r\n";
  return text;
}

/// Writes the sum of file[from, to) after it, where the file goes that far.
void Repair(std::string& file, std::uint64_t from, std::uint64_t to) {
  if (from > to || to > file.size() || file.size() - to < sizeof(std::uint64_t)) return;
  kept::Checksum sum;
  sum.Add(std::string_view(file).substr(from, to - from));
  const std::uint64_t value = sum.Value();
  std::memcpy(file.data() + to, &value, sizeof(value));
}

std::string WithRightSums(std::string file) {
  kept::Head head;
  if (file.size() < sizeof(head)) return file;
  std::memcpy(&head, file.data(), sizeof(head));
  if (head.keyBytes > file.size() || head.offsets > file.size()) return file;
  const std::uint64_t index = sizeof(head) + head.keyBytes + head.offsets * sizeof(std::uint64_t);
  Repair(file, 0, index);
  if (file.size() >= 2 * sizeof(std::uint64_t)) {
    Repair(file, index + sizeof(std::uint64_t), file.size() - sizeof(std::uint64_t));
  }
  return file;
}

}  // namespace

void Overview(std::string_view bytes) {
  FakePorts fakes;
  fakes.files.Put("/a.cht", ChartFile());
  const std::string name = kept::Stem(kept::Folder(fakes.files), "/a.cht") + std::string(kept::kEnding);
  fakes.files.Put(name, WithRightSums(std::string(bytes)));
  ChartSource source(fakes.ports);
  source.KeepSurveys(1);
  ChartHeader header;
  source.Open("/a.cht", header);
  while (source.SurveyOn({})) {
  }
  Require(source.Survey().Complete());
  Require(source.Survey().Exact().BlockLength() > 0);
  for (int series = 0; series < 2; ++series) {
    const Extremes all = source.Survey().Over(series, 0, kPoints, kPoints);
    Require(all.Empty() || (std::isfinite(all.least) && std::isfinite(all.greatest)));
  }
  const WideRange range{0, kPoints, 10};
  Require(source.ReadWide(range, 2, kPoints).values[1].size() == kPoints / 10);
  (void)source.Read(kFirstLine + kPoints - 25, kFirstLine + kPoints, 2);
}

}  // namespace chartproject::fuzz
