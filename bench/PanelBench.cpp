// panel-bench FRAMEWORK FONT [FONTS]: measures how long ProcessPanelMessages holds up the host
// while clients attack the panel's socket. FRAMEWORK is PluginCore's shared library, FONT the file
// of DejaVuSansMono-BoldOblique and FONTS (default 300) the size of the library. Prints for each
// attack the number of ticks and the longest tick: the time that passed, in which the machine may
// have done something else, and the time of the host's thread alone.
#include <dlfcn.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <thread>

#include "PanelAttacks.h"
#include "PanelHome.h"
#include "PluginCoreFunctions.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMostTicks = 400;
constexpr std::chrono::seconds kLongestAttack(10);
constexpr std::chrono::milliseconds kBetweenTicks(4);

class Framework {
public:
    explicit Framework(const char* file) : mLibrary(dlopen(file, RTLD_NOW | RTLD_LOCAL))
    {
        if (!mLibrary) throw std::runtime_error(dlerror());
#define LOAD(name) p##name = reinterpret_cast<name##Function>(dlsym(mLibrary, #name));
        PLUGIN_CORE_FUNCTIONS(LOAD)
#undef LOAD
        if (pInitializePluginCoreInterface("panel-bench", "24") != 0) {
            throw std::runtime_error(std::string(file) + ": does not start");
        }
    }
    ~Framework() { (void)pTerminatePluginCoreInterface(); }  // the measurements are printed
    Framework(const Framework&) = delete;
    Framework& operator=(const Framework&) = delete;

    int GetPort() const
    {
        int port = 0;
        if (pGetSocketPort(&port) != 0) throw std::runtime_error("PluginCore has no panel");
        return port;
    }

#define DECLARE(name) name##Function p##name = nullptr;
    PLUGIN_CORE_FUNCTIONS(DECLARE)
#undef DECLARE

private:
    void* mLibrary;
};

double GetThreadMilliseconds()
{
    timespec time = {};
    (void)clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);  // exists on every system of the bench
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// How often the thread has waited until now.
long CountWaits()
{
    rusage usage = {};
    (void)getrusage(RUSAGE_THREAD, &usage);  // fails for wrong arguments only
    return usage.ru_nvcsw;
}

void Measure(const Framework& core, const PanelAttack& attack)
{
    double longest = 0;
    double longestOfThread = 0;
    int ticks = 0;
    int ticksThatWaited = 0;
    const Clock::time_point start = Clock::now();
    for (; ticks < kMostTicks && Clock::now() - start < kLongestAttack; ++ticks) {
        attack.act(ticks);
        const long waits = CountWaits();
        const Clock::time_point before = Clock::now();
        const double beforeOfThread = GetThreadMilliseconds();
        (void)core.pProcessPanelMessages(1);  // its errors are part of the attack
        longestOfThread = std::max(longestOfThread, GetThreadMilliseconds() - beforeOfThread);
        const std::chrono::duration<double, std::milli> passed = Clock::now() - before;
        longest = std::max(longest, passed.count());
        ticksThatWaited += CountWaits() != waits ? 1 : 0;
        std::this_thread::sleep_for(kBetweenTicks);
    }
    std::printf("| %s | %d | %.2f | %.2f | %d |", attack.name.c_str(), ticks, longest,
                longestOfThread, ticksThatWaited);
    if (attack.answers) {
        std::printf(" %zu | %zu |\n", attack.answers->served, attack.answers->refused);
    } else {
        std::printf(" - | - |\n");
    }
    (void)std::fflush(stdout);
}

// Lets PluginCore notice that the clients of the last attack have gone.
void Rest(const Framework& core)
{
    for (int tick = 0; tick < 200; ++tick) {
        (void)core.pProcessPanelMessages(1);  // as in Measure
        std::this_thread::sleep_for(kBetweenTicks);
    }
}

int Run(int count, char** arguments)
{
    if (count < 3) throw std::runtime_error("expected FRAMEWORK FONT [FONTS]");
    const PanelHome home(arguments[2], count > 3 ? std::atoi(arguments[3]) : 300);
    const Framework core(arguments[1]);
    PanelPlace place;
    place.port = core.GetPort();
    place.tokenMessage = home.MakeTokenMessage();
    const std::string host = " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(place.port) + "\r\n";
    place.pageRequest = "GET /" + host + "\r\n";
    place.handshake = "GET /socket" + host +
                      "Upgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                      "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n";
    place.names = home.GetNames();
    std::printf(
        "| attack | ticks | longest tick, ms | of the thread, ms | ticks that waited | served "
        "| refused |\n"
        "|---|---|---|---|---|---|---|\n");
    for (const auto& make : ListPanelAttacks(place)) {
        Measure(core, make());
        Rest(core);
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments)
{
    try {
        return Run(count, arguments);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "panel-bench: %s\n", failure.what());
        return 1;
    }
}
