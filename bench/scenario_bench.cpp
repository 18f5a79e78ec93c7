// A long script: how fast it loads, and what a read in it costs.
#include <benchmark/benchmark.h>

#include "links/scenario_link.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr int kMillisecondsPerLine = 100;

void PutScript(FakePorts& fakes, std::int64_t lines) {
  std::string script;
  for (std::int64_t i = 0; i < lines; ++i) {
    script += "at " + std::to_string(i / 4 * kMillisecondsPerLine) + " 01 P00" + std::to_string(3 + i % 4) + " " +
              std::to_string(i) + ".5\n";
  }
  fakes.files.Put("/script", script);
}

std::unique_ptr<DriveLink> MakeLink(FakePorts& fakes) {
  static const LinkWait kNobodyWaits;
  const auto wait = [&fakes](Instant moment) { fakes.clock.AdvanceTo(moment); };
  return ScenarioLinkFactory(fakes.files, fakes.clock, wait, "/script").Create(kNobodyWaits);
}

void LoadScript(benchmark::State& state) {
  FakePorts fakes;
  PutScript(fakes, state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(MakeLink(fakes));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LoadScript)->Arg(1'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ReadInScript(benchmark::State& state) {
  FakePorts fakes;
  PutScript(fakes, state.range(0));
  const auto link = MakeLink(fakes);
  for (auto _ : state) {
    fakes.clock.Advance(std::chrono::milliseconds(7));
    benchmark::DoNotOptimize(link->ReadParameter(1, "8", 5, 7));
    benchmark::DoNotOptimize(link->GetText());
  }
}
BENCHMARK(ReadInScript)->Arg(1'000)->Arg(1'000'000);

}  // namespace
}  // namespace chartproject

BENCHMARK_MAIN();
