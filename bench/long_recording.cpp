// What the chart window does with a recording of 2,000,000,000 points, whose bytes are worked out when they are read:
// no disk takes part. Usage: long_recording [POINTS]; prints processor times and memory.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include "window_on_files.h"

namespace chartproject {
namespace {

constexpr std::int64_t kRows = 10'000;
constexpr const char* kName = CHARTPROJECT_BINARY_DIR "/bench/generated.cht";
constexpr const char* kCache = CHARTPROJECT_BINARY_DIR "/bench/long-cache";

GeneratedRecording Recording(std::int64_t points) {
  GeneratedRecording recording{.header = HeaderOf(points), .rows = {}, .rowCount = kRows, .times = points / kRows};
  for (std::int64_t i = 0; i < kRows; ++i) {
    const double load = std::sin(6.2832 * static_cast<double>(i) / kRows);
    char text[80];
    std::snprintf(text, sizeof(text), "%02d:%02d:%02d#%03d#%.1f#%d#%d##\r\n", static_cast<int>(i / 3600),
                  static_cast<int>(i / 60 % 60), static_cast<int>(i % 60), static_cast<int>(i % 900), 4 + load,
                  static_cast<int>(60 + 20 * load), static_cast<int>(40 + i / 200));
    recording.rows += text;
  }
  return recording;
}

/// Processor time of the process in milliseconds.
double Now() {
  return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void Say(const char* what, double milliseconds) {
  std::printf("%-52s %12.2f ms\n", what, milliseconds);
  std::fflush(stdout);
}

template <typename Action>
void Measure(const char* what, Action action) {
  const double before = Now();
  action();
  Say(what, Now() - before);
}

void Check(bool holds, const char* what) {
  if (holds) return;
  std::printf("FAILED: %s\n", what);
  std::exit(1);
}

void Press(ChartForm& form, char character) {
  form.mscChart1.KeyPressed({.key = Key::kCharacter, .character = character});
}

void FireUntil(ChartForm& form, const char* what, bool (*until)(ChartForm&)) {
  double longest = 0;
  Measure(what, [&] {
    while (form.overview.tmrSurvey.Enabled() && !until(form)) {
      const double before = Now();
      form.overview.tmrSurvey.Fire();
      longest = std::max(longest, Now() - before);
    }
  });
  Say("    its longest piece", longest);
}

bool Never(ChartForm& /*form*/) {
  return false;
}
bool Refined(ChartForm& form) {
  return !form.View().Refining();
}
bool Coarse(ChartForm& form) {
  const std::int32_t points = form.View().Points();
  return !form.View().Survey().Over(0, points - points / 100, points, points).Empty();
}

/// From all of it to some thousand points a division: each step as it is shown at first, and until it is exact.
void ZoomIn(ChartForm& form) {
  while (form.View().Division() > 2 * kMostPointsPerDivision) {
    Measure("zoom in", [&] { Press(form, '+'); });
    std::printf("    to %lld points a division\n", static_cast<long long>(form.View().Division()));
    if (form.View().Refining()) FireUntil(form, "    until it is exact", &Refined);
  }
}

void FirstOpening(Bench& bench, std::int64_t points, std::int64_t peakLine) {
  ChartForm form(bench.component);
  form.Load();
  Measure("open, first slice", [&] { Check(form.OpenFile(kName), "opened"); });
  FireUntil(form, "coarse strip", &Coarse);
  FireUntil(form, "exact strip", &Never);
  const Envelope& exact = form.View().Survey().Exact();
  Check(exact.Lines() == points, "all the lines");
  Check(form.View().Survey().Over(0, 0, points, points).greatest == 999, "the peak");
  Check(exact.Over(0, peakLine / exact.BlockLength() * exact.BlockLength(), peakLine + 1).greatest == 999,
        "the peak's place");
  double bytes = 0;
  for (int s = 0; s < exact.SeriesCount(); ++s) bytes += static_cast<double>(exact.Blocks(s).size_bytes());
  std::printf("envelope: %.1f MiB, blocks of %lld lines\n", bytes / 1024 / 1024,
              static_cast<long long>(exact.BlockLength()));
  Measure("Fit", [&] { Press(form, 'F'); });
  Check(form.View().Division() >= points / kDivisions, "fitted");
  ZoomIn(form);
  Measure("last point", [&] { form.mscChart1.KeyPressed({.key = Key::kEnd}); });
}

void SecondOpening(Bench& bench, std::int64_t points) {
  ChartForm form(bench.component);
  form.Load();
  Measure("second opening, first slice", [&] { Check(form.OpenFile(kName), "opened"); });
  FireUntil(form, "its whole strip", &Never);
  Check(form.View().Survey().Exact().Lines() == points, "all the lines");
  Measure("last point", [&] { form.mscChart1.KeyPressed({.key = Key::kEnd}); });
  Check(form.mscChart1.Model().firstRowLabel + 24 == points, "at the end");
  Measure("Fit", [&] { Press(form, 'F'); });
}

}  // namespace
}  // namespace chartproject

int main(int argc, char** argv) {
  using namespace chartproject;
  const std::int64_t points = argc > 1 ? std::atoll(argv[1]) / kRows * kRows : 2'000'000'000;
  const double empty = PeakMebibytes();
  std::filesystem::remove_all(kCache);
  KeepSurveysIn(kCache);
  Bench bench(true);
  bench.files.name = kName;
  bench.files.recording = Recording(points);
  const std::int64_t peakLine = points / 3 + 123;
  bench.files.recording.SetPeak(peakLine, std::string("00:00:00#").size(), "999");
  std::printf("%lld points, %.1f GB\n", static_cast<long long>(points),
              static_cast<double>(bench.files.recording.Size()) / 1e9);
  FirstOpening(bench, points, peakLine);
  SecondOpening(bench, points);
  std::printf("memory at most: %.1f MiB, %.1f of them the empty program\n", PeakMebibytes(), empty);
  std::filesystem::remove_all(kCache);
}
