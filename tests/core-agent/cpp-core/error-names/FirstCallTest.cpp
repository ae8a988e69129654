#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "CppCoreMacros.h"
#include "FreshProcess.h"
#include "GLogger.h"
#include "GMutex.h"
#include "InThreads.h"

namespace {

constexpr int kThreads = 64;

TEST(FirstCall, OfManyThreadsReturnsTheNameToEach)
{
    InFreshProcess([] {
        std::vector<std::string> names(kThreads);
        InThreads(kThreads,
                  [&](int index) { names[index] = GetNameForErrorCode(GMutex::kMutexInvalidErr); });
        for (const std::string& name : names) EXPECT_EQ("GMutex::kMutexInvalidErr", name);
    });
}

TEST(FirstCall, OfManyThreadsMakesOneLogger)
{
    InFreshProcess([] {
        std::vector<GLogger*> loggers(kThreads);
        InThreads(kThreads, [&](int index) { loggers[index] = GLogger::GetSharedInstance(); });
        EXPECT_NE(nullptr, loggers[0]);
        for (GLogger* const logger : loggers) EXPECT_EQ(loggers[0], logger);
    });
}

TEST(FirstCall, OfManyThreadsCanBeAReport)
{
    InFreshProcess([] {
        std::atomic<int> done{0};
        InThreads(kThreads, [&](int index) {
            ReportCoreError("Miscellaneous", 1, CoreErrorCodes::kError, "err", "file", index);
            ++done;
        });
        EXPECT_EQ(kThreads, done);
        EXPECT_EQ("CoreErrorCodes::kError", GetNameForErrorCode(CoreErrorCodes::kError));
    });
}

}  // namespace
