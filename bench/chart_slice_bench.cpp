// How fast the chart window opens and scrolls a chart file of 20,000,000 points, beside a plain loop over its bytes,
// and what memory it takes. The file is made once, under the build folder.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <string>

#include "chart/file/chart_source.h"
#include "chart/measure/point_search.h"
#include "chart/measure/range_statistics.h"
#include "chart/view/scroll_range.h"
#include "window_on_files.h"

namespace chartproject {
namespace {

constexpr std::int32_t kLongFile = 20'000'000;
constexpr std::int32_t kShortFile = kLongFile / 10;

/// The file of so many points; made when it is not there yet.
std::string ChartFile(std::int32_t points) {
  std::string name = CHARTPROJECT_BINARY_DIR "/bench/points-" + std::to_string(points) + ".cht";
  if (std::filesystem::exists(name)) return name;
  const std::string command = "'" CHARTPROJECT_BINARY_DIR "/bench/make_chart_file' '" + name + "' ";
  if (std::system((command + std::to_string(points)).c_str()) != 0) {
    std::cerr << "cannot make " << name << "\n";
    std::exit(1);
  }
  return name;
}

/// The system reads a file from the disk again.
void ForgetBytes(const std::string& name) {
  const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  fdatasync(file);
  posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
  close(file);
}

/// Where surveys are kept: nowhere, unless a benchmark is about them.
constexpr const char* kCache = CHARTPROJECT_BINARY_DIR "/bench/cache";

void OpenAndFirstSlice(benchmark::State& state) {
  Bench bench;
  const std::string name = ChartFile(static_cast<std::int32_t>(state.range(0)));
  for (auto _ : state) {
    ChartForm form(bench.component);
    form.Load();
    if (!form.OpenFile(name)) state.SkipWithError("cannot open the file");
    benchmark::DoNotOptimize(form.mscChart1.Model().rowCount);
  }
}
BENCHMARK(OpenAndFirstSlice)->Arg(kShortFile)->Arg(kLongFile)->Unit(benchmark::kMillisecond);

/// Reads the whole file and counts its line feeds: what the first jump to the end cannot do without.
void PlainCount(benchmark::State& state) {
  PosixFileSystem files;
  const std::string name = ChartFile(kLongFile);
  std::vector<char> block(std::size_t{256} * 1024);
  std::int64_t bytes = 0;
  for (auto _ : state) {
    const auto file = files.OpenForReading(name);
    std::int64_t feeds = 0;
    for (std::size_t count = file->Read(block); count > 0; count = file->Read(block)) {
      feeds += std::count(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count), '\n');
      bytes += static_cast<std::int64_t>(count);
    }
    benchmark::DoNotOptimize(feeds);
  }
  state.SetBytesProcessed(bytes);
}
BENCHMARK(PlainCount)->Unit(benchmark::kMillisecond);

void FirstJumpToTheEnd(benchmark::State& state) {
  Bench bench;
  const std::string name = ChartFile(kLongFile);
  const auto size = static_cast<std::int64_t>(std::filesystem::file_size(name));
  for (auto _ : state) {
    state.PauseTiming();
    ChartForm form(bench.component);
    form.Load();
    if (!form.OpenFile(name)) state.SkipWithError("cannot open the file");
    state.ResumeTiming();
    form.scroll.hsbGraph.SetValue(form.scroll.hsbGraph.Maximum());
    if (form.mscChart1.Model().firstRowLabel + 24 != kLongFile) state.SkipWithError("not at the end");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * size);
}
BENCHMARK(FirstJumpToTheEnd)->Unit(benchmark::kMillisecond);

/// Every row of the file read for the strip and for Fit.
void SurveyOfTheWholeFile(benchmark::State& state) {
  Bench bench;
  ChartHeader header;
  for (auto _ : state) {
    ChartSource source(bench.ports);
    source.Open(ChartFile(kLongFile), header);
    while (source.SurveyOn({})) {
    }
    if (source.Survey().Exact().Lines() != kLongFile) state.SkipWithError("not all of it");
  }
}
BENCHMARK(SurveyOfTheWholeFile)->Unit(benchmark::kMillisecond);

/// From 25 points to all of them and back, the chart's model included; the survey is complete.
void FitAndBack(benchmark::State& state) {
  Bench bench;
  ChartForm form(bench.component);
  form.Load();
  if (!form.OpenFile(ChartFile(kLongFile))) state.SkipWithError("cannot open the file");
  while (form.overview.tmrSurvey.Enabled()) form.overview.tmrSurvey.Fire();
  for (auto _ : state) {
    form.mscChart1.KeyPressed({.key = Key::kCharacter, .character = 'F'});
    if (form.View().Division() != kLongFile / kDivisions) state.SkipWithError("not fitted");
    form.mscChart1.KeyPressed({.key = Key::kBackspace});
  }
}
BENCHMARK(FitAndBack)->Unit(benchmark::kMillisecond);

/// Opens the file with its survey kept, shows the whole recording and jumps to the last point.
void SecondOpening(benchmark::State& state) {
  Bench bench;
  KeepSurveysIn(kCache);
  const auto open = [&](ChartForm& form) {
    form.Load();
    if (!form.OpenFile(ChartFile(kLongFile))) state.SkipWithError("cannot open the file");
    while (form.overview.tmrSurvey.Enabled()) form.overview.tmrSurvey.Fire();
    form.mscChart1.KeyPressed({.key = Key::kEnd});
    if (form.View().Survey().Exact().Lines() != kLongFile) state.SkipWithError("not all of it");
  };
  {
    ChartForm first(bench.component);
    open(first);
  }
  for (auto _ : state) {
    ChartForm form(bench.component);
    open(form);
  }
  KeepSurveysIn(kNowhere);
}
BENCHMARK(SecondOpening)->Unit(benchmark::kMillisecond);

/// After SecondOpening; End is pressed before the window had any idle time.
void FirstJumpWithAKeptIndex(benchmark::State& state) {
  Bench bench;
  KeepSurveysIn(kCache);
  for (auto _ : state) {
    state.PauseTiming();
    ChartForm form(bench.component);
    form.Load();
    if (!form.OpenFile(ChartFile(kLongFile))) state.SkipWithError("cannot open the file");
    state.ResumeTiming();
    form.mscChart1.KeyPressed({.key = Key::kEnd});
    if (form.mscChart1.Model().firstRowLabel + 24 != kLongFile) state.SkipWithError("not at the end");
  }
  KeepSurveysIn(kNowhere);
}
BENCHMARK(FirstJumpWithAKeptIndex)->Unit(benchmark::kMillisecond);

/// How long a key waits for the window's idle work: survey, drawing of the strip's model, keeping the survey.
struct Pieces {
  double longest = 0;           ///< by the clock on the wall, other programs' turns included
  double longestProcessor = 0;  ///< milliseconds, as the other one
  double count = 0;

  void Measure(Bench& bench, const std::string& name) {
    std::filesystem::remove_all(kCache);
    KeepSurveysIn(kCache);
    ChartForm form(bench.component);
    form.Load();
    if (!form.OpenFile(name)) std::exit(1);
    while (form.overview.tmrSurvey.Enabled()) {
      const auto before = std::chrono::steady_clock::now();
      const std::clock_t processor = std::clock();
      form.overview.tmrSurvey.Fire();
      longestProcessor =
          std::max(longestProcessor, 1e3 * static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC);
      const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - before;
      longest = std::max(longest, took.count());
      ++count;
    }
    KeepSurveysIn(kNowhere);
  }
  void Report(benchmark::State& state) const {
    state.counters["longest_ms"] = longest;
    state.counters["longest_processor_ms"] = longestProcessor;
    state.counters["pieces"] = count;
  }
};

/// @param range of the state: 1 when the file's bytes have to come from the disk
void IdleWork(benchmark::State& state) {
  Bench bench(true);
  Pieces pieces;
  for (auto _ : state) {
    if (state.range(0) != 0) ForgetBytes(ChartFile(kLongFile));
    pieces.Measure(bench, ChartFile(kLongFile));
  }
  pieces.Report(state);
}
BENCHMARK(IdleWork)->ArgName("cold")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The same over rows that are not as a recording writes them: with decimal commas, as long as a row may be, and two
/// bytes short.
void IdleWorkOnOtherRows(benchmark::State& state) {
  constexpr std::int64_t kBytes = 300'000'000;
  const std::array<std::string, 3> rows = {"12:00:00#1,5#2,25#-3,75#4 000##\n",
                                           "12:00:00#" + std::string(4000, '1') + "#2#3#4##\r\n", "'\n"};
  Bench bench(true);
  bench.files.name = CHARTPROJECT_BINARY_DIR "/bench/generated.cht";
  GeneratedRecording& recording = bench.files.recording;
  for (int i = 0; i < 1000; ++i) recording.rows += rows.at(static_cast<std::size_t>(state.range(0)));
  recording.rowCount = 1000;
  recording.times = kBytes / std::ssize(recording.rows);
  recording.header = HeaderOf(recording.times * recording.rowCount);
  Pieces pieces;
  for (auto _ : state) pieces.Measure(bench, bench.files.name);
  pieces.Report(state);
}
BENCHMARK(IdleWorkOnOtherRows)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

/// Anywhere in a file that was scrolled through before; the chart is rebuilt each time.
void LaterScroll(benchmark::State& state) {
  Bench bench;
  ChartForm form(bench.component);
  form.Load();
  if (!form.OpenFile(ChartFile(kLongFile))) state.SkipWithError("cannot open the file");
  form.scroll.sldPointsPerDivision.SetValue(static_cast<int>(state.range(0)));
  form.scroll.hsbGraph.SetValue(form.scroll.hsbGraph.Maximum());
  int step = 0;
  for (auto _ : state) {
    constexpr int kStride = 7919;  // a prime: positions all over the file
    form.scroll.hsbGraph.SetValue(++step * kStride % (form.scroll.hsbGraph.Maximum() + 1));
    benchmark::DoNotOptimize(form.mscChart1.Model().rowCount);
  }
}
BENCHMARK(LaterScroll)->ArgName("D")->Arg(1)->Arg(100)->Arg(kMostPointsPerDivision)->Unit(benchmark::kMillisecond);

/// Statistics over all the points of the file, its two passes included.
void StatisticsOfTheFile(benchmark::State& state) {
  Bench bench;
  ChartView view(bench.component.ports, bench.component.chartHeader);
  const std::string name = ChartFile(kLongFile);
  view.Open(name);
  for (auto _ : state) {
    const auto numbers = MeasureRange(view.Source(), {1, kLongFile, view.SeriesCount(), &view.Clock(), view.Failed()},
                                      bench.component.ports.locale.Numbers());
    if (!numbers || numbers->at(0).count != kLongFile) state.SkipWithError("not all the points");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * std::filesystem::file_size(name)));
}
BENCHMARK(StatisticsOfTheFile)->Unit(benchmark::kMillisecond);

/// A search that finds nothing.
void SearchOfTheFile(benchmark::State& state) {
  Bench bench;
  ChartView view(bench.component.ports, bench.component.chartHeader);
  const std::string name = ChartFile(kLongFile);
  view.Open(name);
  const bool forward = state.range(0) != 0;
  for (auto _ : state) {
    const PointSearch search =
        FindPoint(view.Source(), {SearchFor::kCrossing, 0, 1e9, forward}, forward ? 0 : kLongFile + 1, kLongFile,
                  nullptr, bench.component.ports.locale.Numbers());
    if (search.found) state.SkipWithError("found what is not there");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * std::filesystem::file_size(name)));
}
BENCHMARK(SearchOfTheFile)->ArgName("forward")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// Runs last: what all of this has taken at most.
void PeakMemory(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(PeakMebibytes());
  state.counters["peak_MiB"] = PeakMebibytes();
}
BENCHMARK(PeakMemory)->Iterations(1);

}  // namespace
}  // namespace chartproject

int main(int argc, char** argv) {
  chartproject::KeepSurveysIn(chartproject::kNowhere);
  std::cout << "empty program: " << chartproject::PeakMebibytes() << " MiB\n";
  const bool all = argc == 1;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  const std::string peers =
      "'" CHARTPROJECT_SOURCE_DIR "/bench/chart_peers.py' '" + chartproject::ChartFile(chartproject::kLongFile) + "'";
  return all ? std::system(peers.c_str()) : 0;
}
