#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "CppCoreMacros.h"
#include "FreshProcess.h"
#include "GLogger.h"

namespace {

constexpr int kThreads = 64;

// Runs the body in many threads that begin together.
template <class Body>
void InManyThreads(Body body)
{
    std::atomic<bool> isOpen{false};
    std::vector<std::thread> threads;
    for (int index = 0; index < kThreads; ++index) {
        threads.emplace_back([&, index] {
            while (!isOpen) std::this_thread::yield();
            body(index);
        });
    }
    isOpen = true;
    for (std::thread& thread : threads) thread.join();
}

TEST(FirstCall, OfManyThreadsGivesTheNameToEach)
{
    InFreshProcess([] {
        std::vector<std::string> names(kThreads);
        InManyThreads([&](int index) { names[index] = GetNameForErrorCode(0x0200100B); });
        for (const std::string& name : names) EXPECT_EQ(name, "GMutex::kMutexInvalidErr");
    });
}

TEST(FirstCall, OfManyThreadsMakesOneLogger)
{
    InFreshProcess([] {
        std::vector<GLogger*> loggers(kThreads);
        InManyThreads([&](int index) { loggers[index] = GLogger::GetSharedInstance(); });
        EXPECT_NE(loggers[0], nullptr);
        for (GLogger* const logger : loggers) EXPECT_EQ(logger, loggers[0]);
    });
}

TEST(FirstCall, OfManyThreadsMayBeAWholeReport)
{
    InFreshProcess([] {
        std::atomic<int> done{0};
        InManyThreads([&](int index) {
            ReportCoreError("Miscellaneous", 1, CoreErrorCodes::kError, "err", "file", index);
            ++done;
        });
        EXPECT_EQ(done, kThreads);
        EXPECT_EQ(GetNameForErrorCode(CoreErrorCodes::kError), "CoreErrorCodes::kError");
    });
}

}  // namespace
