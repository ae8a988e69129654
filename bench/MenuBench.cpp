#include <benchmark/benchmark.h>

#include <nlohmann/json.hpp>

#include "BenchCore.h"
#include "BenchHost.h"
#include "BenchMenus.h"
#include "MenuHandler.h"
#include "PluginStartup.h"
#include "TypeloftSPEA.h"

namespace {

SGlobals sGlobals = {};

void UseTree(int nodes)
{
    bench_host::Use({1, 1, {"Family-Regular"}, "/bench/small.ai"});
    bench_core::Use();
    sSPBasic = bench_host::GetBasicSuite();
    gGlobals = &sGlobals;
    static int sAdded = 0;
    MenuItemHelp help;
    for (; sAdded <= nodes; ++sAdded) {
        const std::string id = "id" + std::to_string(sAdded);
        // The menu suite of the benchmark never fails.
        (void)AddIllustratorMenu(id.c_str(), id.c_str(), "Item", false, true, false, "Group",
                                 &help);
    }
    bench_core::SetMenus(bench_menus::MakeTree(nodes));
}

// The lower bound of an update: parsing the text once.
void ParseMenus(benchmark::State& state)
{
    const std::string text = bench_menus::MakeTree(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(text));
}
BENCHMARK(ParseMenus)->Arg(10)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

void UpdateMenus(benchmark::State& state)
{
    UseTree(static_cast<int>(state.range(0)));
    AIMenuMessage message = {};
    for (auto _ : state) benchmark::DoNotOptimize(updateMenuItem(&message));
}
BENCHMARK(UpdateMenus)->Arg(10)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

}  // namespace
