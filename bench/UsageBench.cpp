#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>

#include "BenchCore.h"
#include "BenchHost.h"
#include "BenchTraces.h"
#include "DebugUtils.h"
#include "FileFormatHook.h"
#include "IllustratorUtilities.h"

namespace {

constexpr int kFrames = 1225;
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
    bench_core::SetFonts("");
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

// CPU time: other programs may run meanwhile.
double GetSeconds()
{
    timespec now = {};
    if (clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now) != 0) std::abort();
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void WalkBareDocument()
{
    bench_host::WalkBare([](const char* name) { benchmark::DoNotOptimize(name); });
}

// What the usage report takes, divided by what the bare walk takes, alternately measured: without
// the traces, which the host calls don't need, and with them.
void RatioOfReportToBareWalk(benchmark::State& state)
{
    UseLargeDocument();
    double walks = 0;
    double reports = 0;
    double reportsWithTraces = 0;
    const auto add = [](double& sum, const auto& work) {
        const double before = GetSeconds();
        work();
        sum += GetSeconds() - before;
    };
    const auto report = [] { benchmark::DoNotOptimize(CurrentDocumentFontUsage()); };
    for (auto _ : state) {
        add(walks, WalkBareDocument);
        add(reportsWithTraces, report);
        bench_traces::SetEnabled(false);
        add(reports, report);
        bench_traces::SetEnabled(true);
    }
    state.counters["without traces"] = reports / walks;
    state.counters["with traces"] = reportsWithTraces / walks;
}
BENCHMARK(RatioOfReportToBareWalk)->Unit(benchmark::kMillisecond);

void FileCheckWithoutFonts(benchmark::State& state)
{
    UseLargeDocument();
    for (auto _ : state) HandleCheckFileFormat("/bench/large.ai", json());
}
BENCHMARK(FileCheckWithoutFonts)->Unit(benchmark::kMicrosecond);

// With the filter, which removes the host's default font, the dialog and the activation.
void FileCheck(benchmark::State& state)
{
    UseLargeDocument();
    json fonts = json::array({json::object({{"PostScriptName", "HostSans-Regular"}})});
    for (int64_t font = 1; font < state.range(0); ++font) {
        fonts.push_back({{"PostScriptName", "Family" + std::to_string(font) + "-Regular"}});
    }
    bench_core::SetFonts(json::object({{"DocumentFonts", fonts}}).dump());
    const size_t before = bench_core::CountActivations();
    for (auto _ : state) HandleCheckFileFormat("/bench/large.ai", json());
    state.counters["activations"] =
        benchmark::Counter(static_cast<double>(bench_core::CountActivations() - before),
                           benchmark::Counter::kAvgIterations);
}
BENCHMARK(FileCheck)->Arg(3)->Arg(20)->Arg(kFonts)->Unit(benchmark::kMicrosecond);

}  // namespace
