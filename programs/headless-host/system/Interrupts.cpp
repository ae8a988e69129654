#include "system/Interrupts.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace headless {

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
