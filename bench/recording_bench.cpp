// How fast a long recording spools its rows, what memory it takes, and how fast the header and the rows of a large
// chart file are found. Each figure is printed beside the bare cost of the same bytes.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "acquire/dialog/acquire_form.h"
#include "backends/posix/files/posix_file_system.h"
#include "recording/file/chart_file.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr std::string_view kRow = "08:00:00#123.45#7####\r\n";

/// A folder that goes with the benchmark. CHARTPROJECT_BENCH_FOLDER names another disk than the temporary one.
class BenchFolder {
 public:
  BenchFolder() {
    const char* chosen = std::getenv("CHARTPROJECT_BENCH_FOLDER");
    const std::filesystem::path base = chosen != nullptr ? chosen : std::filesystem::temp_directory_path();
    path_ = base / ("chartproject-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  ~BenchFolder() { std::filesystem::remove_all(path_); }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;
  [[nodiscard]] std::string File(const std::string& name) const { return (path_ / name).string(); }
  [[nodiscard]] std::string Name() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

class InstantLink : public DriveLink {
 public:
  void SetP210Value(std::int16_t /*value*/) override {}
  void SetP529Value(std::int16_t /*value*/) override {}
  ReadOutcome ReadParameter(std::int16_t /*address*/, const std::string& /*modelCode*/, std::int16_t /*parameter*/,
                            std::int16_t /*unitCode*/) override {
    return {};
  }
  ReadOutcome ProbeParameter(std::int16_t /*address*/, const std::string& /*modelCode*/, std::int16_t /*parameter*/,
                             std::int16_t /*unitCode*/) override {
    return {};
  }
  void OpenLink() override {}
  void CloseLink() override {}
  double GetValue() override { return 123.45; }
  std::string GetText() override { return "123.45"; }
};

struct InstantLinks : DriveLinkFactory {
  std::unique_ptr<DriveLink> Create(const LinkWait& /*wait*/) override { return std::make_unique<InstantLink>(); }
};

double PeakMebibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// A whole run of the real dialog on the virtual clock, real files under it: ticks, reads, rows, chart file.
void RecordInSpoolMode(benchmark::State& state) {
  const BenchFolder folder;
  FakePorts fake;
  PosixFileSystem files;
  Ports ports{fake.settings, files,         fake.clock, fake.locale,    fake.codePage, fake.dialogs,
              fake.sound,    fake.keyboard, fake.help,  fake.clipboard, fake.printer,  fake.spreadsheets};
  InstantLinks links;
  Component component(ports, fake.forms, links);
  component.settings.strLanguage = "English";
  component.settings.strDrivers = component.settings.strFolder = component.settings.strBin = folder.Name();
  component.settings.intSelectedDrive = 1;
  component.settings.strSound = "No";
  component.language = Language::kEnglish;
  component.driveTable.At(1).Type = "LMX-01";
  std::ofstream(folder.File("LMX01E.wcd")) << "#3#Speed####DividedBy10F1#No#######\r\n";
  component.driveLink = links.Create(component.linkWait);
  AcquireForm form(component);
  form.Load();
  for (auto _ : state) {
    form.timing.cboTimeBetweenPointsUnit.SetListIndex(0);
    form.timing.txtTimeBetweenPoints.SetText("200");
    form.timing.txtNumberOfPoints.SetText(std::to_string(state.range(0)));
    form.panel.cmdStart.Press();
    TimerQueue& timers = fake.forms.Timers();
    while (form.Run().Active()) {
      fake.clock.AdvanceTo(*timers.NextDue());
      timers.FireOne();
    }
    if (form.LastRun().points != state.range(0)) state.SkipWithError("the run ended early");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.counters["peak MiB"] = PeakMebibytes();
}
BENCHMARK(RecordInSpoolMode)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RecordInSpoolMode)->Name("RecordFiveMillion")->Arg(5'000'000)->Iterations(1)->Unit(benchmark::kSecond);

/// The same bytes with the bare calls: open for appending, write, close for every row.
void BareOpenWriteClose(benchmark::State& state) {
  const BenchFolder folder;
  const std::string name = folder.File("bare");
  for (auto _ : state) {
    for (std::int64_t row = 0; row < state.range(0); ++row) {
      const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
      benchmark::DoNotOptimize(write(file, kRow.data(), kRow.size()));
      close(file);
    }
    unlink(name.c_str());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BareOpenWriteClose)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same bytes through the file port alone.
void AppendRows(benchmark::State& state) {
  const BenchFolder folder;
  PosixFileSystem files;
  const std::string name = folder.File("appended");
  for (auto _ : state) {
    auto side = files.MakeSideFile({.target = name, .ending = "", .names = 1});
    for (std::int64_t row = 0; row < state.range(0); ++row) side->AppendAndMeasure(kRow);
    side.reset();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AppendRows)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Opening a chart file of some MB: the time must not grow with the file.
void ReadHeaderAndLocateRows(benchmark::State& state) {
  const BenchFolder folder;
  const std::string name = folder.File("large.cht");
  {
    std::ofstream file(name, std::ios::binary);
    file << "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=2\r\n\r\n[TIME/CONTENT]\r\n";
    std::string block;
    while (block.size() < 1'000'000) block += kRow;
    for (std::int64_t i = 0; i < state.range(0); ++i) file << block;
  }
  PosixFileSystem files;
  CodePage1252 codePage;
  for (auto _ : state) {
    ChartHeader header;
    const auto file = files.OpenForReading(name);
    benchmark::DoNotOptimize(ReadChartHeader(*file, codePage, header));
    benchmark::DoNotOptimize(LocateRows(files, name));
  }
}
BENCHMARK(ReadHeaderAndLocateRows)->Arg(50)->Arg(500)->Unit(benchmark::kMicrosecond);

void SplitRows(benchmark::State& state) {
  for (auto _ : state) {
    auto row = SplitRow(kRow);
    benchmark::DoNotOptimize(row);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kRow.size()));
}
BENCHMARK(SplitRows);

}  // namespace
}  // namespace chartproject

BENCHMARK_MAIN();
