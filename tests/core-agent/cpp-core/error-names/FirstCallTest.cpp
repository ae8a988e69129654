#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "CppCoreMacros.h"
#include "FreshProcess.h"
#include "GLogger.h"
#include "InThreads.h"

namespace {

constexpr int kThreads = 64;

TEST(FirstCall, OfManyThreadsGivesTheNameToEach)
{
    InFreshProcess([] {
        std::vector<std::string> names(kThreads);
        InThreads(kThreads, [&](int index) { names[index] = GetNameForErrorCode(0x0200100B); });
        for (const std::string& name : names) EXPECT_EQ(name, "GMutex::kMutexInvalidErr");
    });
}

TEST(FirstCall, OfManyThreadsMakesOneLogger)
{
    InFreshProcess([] {
        std::vector<GLogger*> loggers(kThreads);
        InThreads(kThreads, [&](int index) { loggers[index] = GLogger::GetSharedInstance(); });
        EXPECT_NE(loggers[0], nullptr);
        for (GLogger* const logger : loggers) EXPECT_EQ(logger, loggers[0]);
    });
}

TEST(FirstCall, OfManyThreadsMayBeAWholeReport)
{
    InFreshProcess([] {
        std::atomic<int> done{0};
        InThreads(kThreads, [&](int index) {
            ReportCoreError("Miscellaneous", 1, CoreErrorCodes::kError, "err", "file", index);
            ++done;
        });
        EXPECT_EQ(done, kThreads);
        EXPECT_EQ(GetNameForErrorCode(CoreErrorCodes::kError), "CoreErrorCodes::kError");
    });
}

}  // namespace
