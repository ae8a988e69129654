#include "system/Interrupts.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

namespace headless {

namespace {

volatile std::sig_atomic_t sInterrupted = 0;

void NoteInterrupt(int) { sInterrupted = 1; }

}  // namespace

void CatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;  // no SA_RESTART: waiting calls return EINTR
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        struct sigaction before = {};
        // Neither call can fail for a valid signal.
        (void)sigaction(signal, nullptr, &before);
        // nohup(1) ignores SIGHUP, and a shell ignores SIGINT for what it runs in the background.
        // An ignored SIGPIPE means nothing: many programs leave it ignored for their children.
        if (before.sa_handler == SIG_IGN && signal != SIGPIPE) continue;
        (void)sigaction(signal, &action, nullptr);
    }
}

bool IsInterrupted() { return sInterrupted != 0; }

void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick)
{
    using Clock = std::chrono::steady_clock;
    const auto step = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(1.0 / ticksPerSecond));
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                        std::chrono::duration<double>(seconds));
    while (!IsInterrupted() && Clock::now() < end) {
        // A late tick is not made up for.
        std::this_thread::sleep_for(std::min<Clock::duration>(step, end - Clock::now()));
        tick();
    }
}

}  // namespace headless
