#include <benchmark/benchmark.h>

#include "BenchCore.h"
#include "BenchHost.h"
#include "BenchTraces.h"
#include "DocumentHandlers.h"
#include "HostPlatform_Linux.h"
#include "PluginStartup.h"
#include "TimerHandler.h"
#include "TypeloftSPEA.h"

namespace {

SGlobals sGlobals = {};
SHostPlatform sPlatform = {nullptr, nullptr, PRIVATE_FRAMEWORKS_FOLDER};

void UseSmallDocument()
{
    bench_host::Use({1, 3, {"First-Regular", "Second-Regular", "Third-Regular"}, "/bench/a.ai"});
    bench_core::Use();
    gGlobals = &sGlobals;
}

// A tick while the plug-in is connected to the event bus. The first tick connects and isn't
// measured.
void IdleTick(benchmark::State& state)
{
    UseSmallDocument();
    AITimerMessage message = {};
    // GoTimer's result is always success.
    (void)GoTimer(&message);
    const size_t before = bench_host::GetAllocationCount();
    const size_t tracesBefore = bench_traces::GetCount();
    for (auto _ : state) benchmark::DoNotOptimize(GoTimer(&message));
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(bench_host::GetAllocationCount() - before),
                           benchmark::Counter::kAvgIterations);
    state.counters["traces"] =
        benchmark::Counter(static_cast<double>(bench_traces::GetCount() - tracesBefore),
                           benchmark::Counter::kAvgIterations);
}
BENCHMARK(IdleTick);

void Save(benchmark::State& state)
{
    UseSmallDocument();
    AINotifierMessage message = {};
    for (auto _ : state) benchmark::DoNotOptimize(HandleDocumentSavedNotifier(&message));
}
BENCHMARK(Save)->Unit(benchmark::kMicrosecond);

}  // namespace

extern "C" SHostPlatform* GetHostPlatform() { return &sPlatform; }
