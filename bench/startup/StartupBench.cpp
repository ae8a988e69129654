// How long the plug-in takes from dlopen to the end of the startup message, and how long dlopen of
// an empty module takes. Each measurement is a process of its own, because a plug-in starts once.
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "BenchHost.h"
#include "HostPlatform_Linux.h"
#include "SuiteTable.h"

namespace {

namespace fs = std::filesystem;

constexpr int kNotifiers = 12;

int sAcquired = 0;
int sNotifiers = 0;
bool sHasTimer = false;

// What a startup takes, in seconds.
struct Times {
    double cpu = 0;
    double wall = 0;
    bool isStarted = false;
};

template <class Handle>
Handle MakeHandle()
{
    static char sPlace;
    return reinterpret_cast<Handle>(&sPlace);
}

AINotifierSuite sNotifierTable = {
    [](SPPluginRef, const char*, const char*, AINotifierHandle* notifier) -> AIErr {
        ++sNotifiers;
        *notifier = MakeHandle<AINotifierHandle>();
        return kHostSuccess;
    }};
AIFileFormatSuite sFormatTable = {
    [](SPPluginRef, const char*, PlatformAddFileFormatExData*, int32_t, AIFileFormatHandle* format,
       int32_t) -> AIErr {
        *format = MakeHandle<AIFileFormatHandle>();
        return kHostSuccess;
    },
    [](AIFileFormatHandle, int32_t) -> AIErr { return kHostSuccess; }};
AITimerSuite sTimerTable = {[](SPPluginRef, const char*, int32_t, AITimerHandle* timer) -> AIErr {
                                sHasTimer = true;
                                *timer = MakeHandle<AITimerHandle>();
                                return kHostSuccess;
                            },
                            [](AITimerHandle, bool* active) -> AIErr {
                                *active = true;
                                return kHostSuccess;
                            },
                            [](AITimerHandle, bool) -> AIErr { return kHostSuccess; }};

// The table of a suite; of one that is never called, any address.
void* FindTable(const char* name)
{
    if (std::strcmp(name, "AI Notifier Suite") == 0) return &sNotifierTable;
    if (std::strcmp(name, "AI File Format Suite") == 0) return &sFormatTable;
    if (std::strcmp(name, "AI Timer Suite") == 0) return &sTimerTable;
    for (const SuiteImport& suite : imports) {
        if (std::strcmp(suite.name, name) != 0) continue;
        void* const table = *static_cast<void**>(suite.target);
        return table != nullptr ? table : MakeHandle<void*>();
    }
    void* menus = nullptr;
    (void)bench_host::GetBasicSuite()->AcquireSuite(name, 0, &menus);
    return menus;
}

SPBasicSuite sBasic = {
    [](const char* name, int, void* suite) -> AIErr {
        ++sAcquired;
        *static_cast<void**>(suite) = FindTable(name);
        return kHostSuccess;
    },
    [](const char*, int) -> AIErr { return kHostSuccess; },
    [](const char* a, const char* b) -> int { return std::strcmp(a, b) == 0; },
};

SHostPlatform sPlatform = {[](ModalWindow*) -> ModalSession { return nullptr; }, nullptr, nullptr};

double GetSeconds(clockid_t clock)
{
    timespec now = {};
    if (clock_gettime(clock, &now) != 0) std::abort();
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Whether the plug-in has done all that belongs to a startup.
bool SendStartup(void* module)
{
    using PluginMainFunction = AIErr (*)(char*, char*, void*);
    const auto pluginMain = reinterpret_cast<PluginMainFunction>(dlsym(module, "PluginMain"));
    if (pluginMain == nullptr) return false;
    char caller[] = "SP Interface";
    char selector[] = "Startup";
    SPInterfaceMessage message = {{0, MakeHandle<SPPluginRef>(), nullptr, &sBasic}};
    return pluginMain(caller, selector, &message) == kHostSuccess && message.d.globals != nullptr &&
           sAcquired >= kSuiteCount && sNotifiers == kNotifiers && sHasTimer;
}

Times StartHere(const char* path, bool isPlugin)
{
    Times before = {GetSeconds(CLOCK_PROCESS_CPUTIME_ID), GetSeconds(CLOCK_MONOTONIC)};
    void* const module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    const bool isStarted = module != nullptr && (!isPlugin || SendStartup(module));
    return {GetSeconds(CLOCK_PROCESS_CPUTIME_ID) - before.cpu,
            GetSeconds(CLOCK_MONOTONIC) - before.wall, isStarted};
}

Times StartInChild(const char* path, bool isPlugin)
{
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const pid_t child = fork();
    if (child < 0) std::abort();
    if (child == 0) {
        const Times times = StartHere(path, isPlugin);
        _exit(write(ends[1], &times, sizeof times) == sizeof times ? 0 : 1);
    }
    close(ends[1]);
    Times times;
    if (read(ends[0], &times, sizeof times) != sizeof times) times = {};
    close(ends[0]);
    int status = 0;
    (void)waitpid(child, &status, 0);
    return times;
}

void Start(benchmark::State& state, const char* path, bool isPlugin)
{
    double wall = 0;
    for (auto _ : state) {
        const Times times = StartInChild(path, isPlugin);
        if (!times.isStarted) {
            state.SkipWithError("the module does not start");
            return;
        }
        state.SetIterationTime(times.cpu);
        wall += times.wall;
    }
    state.counters["wall"] = benchmark::Counter(wall, benchmark::Counter::kAvgIterations);
}
BENCHMARK_CAPTURE(Start, Plugin, PLUGIN_MODULE, true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, EmptyModule, EMPTY_MODULE, false)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Where the plug-in finds PluginCore.
class DataFolder {
public:
    DataFolder()
    {
        std::string path = fs::temp_directory_path() / "startup-bench-XXXXXX";
        if (mkdtemp(path.data()) == nullptr) std::abort();
        mPath = path;
        fs::create_directory(mPath / "Corvanta");
        std::ofstream(mPath / "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf")
            << "vexcor.path=" MANAGER_PROGRAM "\n";
        if (setenv("XDG_DATA_HOME", path.c_str(), 1) != 0) std::abort();
    }
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;
    ~DataFolder()
    {
        std::error_code ignored;
        (void)fs::remove_all(mPath, ignored);
    }

private:
    fs::path mPath;
};

}  // namespace

extern "C" SHostPlatform* GetHostPlatform() { return &sPlatform; }

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    bench_host::Use({1, 1, {"Family-Regular"}, "/bench/small.ai"});
    const DataFolder folder;
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
