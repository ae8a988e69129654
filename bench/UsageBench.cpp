#include <benchmark/benchmark.h>

#include "BenchCore.h"
#include "BenchHost.h"
#include "DebugUtils.h"
#include "FileFormatHook.h"
#include "IllustratorUtilities.h"

namespace {

constexpr int kFrames = 1000;
constexpr int kRunsOfFrame = 100;
constexpr int kFonts = 300;

void UseLargeDocument()
{
    bench_host::Document document;
    document.frames = kFrames;
    document.runsOfFrame = kRunsOfFrame;
    document.path = "/bench/large.ai";
    for (int font = 0; font < kFonts; ++font) {
        document.fonts.push_back("Family" + std::to_string(font) + "-Regular");
    }
    bench_host::Use(document);
    bench_core::Use();
}

void SetRunCounter(benchmark::State& state)
{
    state.counters["runs/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * kFrames * kRunsOfFrame,
                           benchmark::Counter::kIsRate);
}

void OneTraceCall(benchmark::State& state)
{
    for (auto _ : state) {
        OutputIndentedAndFormattedString(0, "%s(..., '%s') returning %d", "GetTextRunFaceStyle",
                                         "Family1-Regular", 0);
    }
}
BENCHMARK(OneTraceCall);

void BareWalk(benchmark::State& state)
{
    UseLargeDocument();
    for (auto _ : state) {
        bench_host::WalkBare([](const char* name) { benchmark::DoNotOptimize(name); });
    }
    SetRunCounter(state);
}
BENCHMARK(BareWalk)->Unit(benchmark::kMillisecond);

// The lower bound: the walk and the four trace lines of each run.
void BareWalkWithTraces(benchmark::State& state)
{
    UseLargeDocument();
    for (auto _ : state) {
        bench_host::WalkBare([](const char* name) {
            OutputIndentedAndFormattedString(0, "%s(..., '%s') returning %d", "GetTextRunFaceStyle",
                                             name, 0);
            OutputIndentedAndFormattedString(1, "Entering %s('%s')", "CreateFontDataForOneFont",
                                             name);
            OutputIndentedAndFormattedString(-1, "%s() returning '%s'", "CreateFontDataForOneFont",
                                             name);
            OutputIndentedAndFormattedString(
                0, "AddNewFontNameFromTextArt() ignored duplicate font '%s'", name);
        });
    }
    SetRunCounter(state);
}
BENCHMARK(BareWalkWithTraces)->Unit(benchmark::kMillisecond);

void UsageReport(benchmark::State& state)
{
    UseLargeDocument();
    for (auto _ : state) benchmark::DoNotOptimize(CurrentDocumentFontUsage());
    SetRunCounter(state);
}
BENCHMARK(UsageReport)->Unit(benchmark::kMillisecond);

void FileCheck(benchmark::State& state)
{
    UseLargeDocument();
    for (auto _ : state) HandleCheckFileFormat("/bench/large.ai", json());
}
BENCHMARK(FileCheck)->Unit(benchmark::kMicrosecond);

}  // namespace
