#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "AllocationCounter.h"
#include "CppCoreMacros.h"
#include "FreshProcess.h"
#include "GDateTime.h"
#include "GFileSystemSpec.h"
#include "GJSONUtils.h"
#include "GLogger.h"
#include "MessageFixture.h"

namespace {

// Each row is a block of its own, not counting those that long names need.
constexpr std::size_t kRows = 278;

template <class Body>
std::size_t CountAllocations(Body body)
{
    const std::size_t before = AllocationCounter::Allocations();
    body();
    return AllocationCounter::Allocations() - before;
}

std::size_t CountForAName()
{
    return CountAllocations([] { (void)GetNameForErrorCode(0); });  // only the cost counts
}

TEST(TableCost, FirstNameBuildsAllRowsAndLaterOnesNone)
{
    InFreshProcess([] {
        EXPECT_GE(CountForAName(), kRows);
        EXPECT_LT(CountForAName(), 4U);
        EXPECT_LT(CountAllocations([] { (void)GetNameForErrorCode(0xFF000001); }), 4U);
    });
}

// A table takes a block for each row and another for nearly every name.
TEST(TableCost, FirstCallOfManyThreadsBuildsOneTable)
{
    constexpr int kThreads = 8;
    for (int round = 0; round < 5; ++round) {
        InFreshProcess([] {
            AllocationCounter::YieldAtEach();
            const std::size_t allocations = CountAllocations([] {
                std::atomic<bool> isOpen{false};
                std::vector<std::thread> threads;
                for (int index = 0; index < kThreads; ++index) {
                    threads.emplace_back([&] {
                        while (!isOpen) std::this_thread::yield();
                        (void)GetNameForErrorCode(0);  // only the cost counts
                    });
                }
                isOpen = true;
                for (std::thread& thread : threads) thread.join();
            });
            EXPECT_GE(allocations, kRows);
            EXPECT_LT(allocations, 3 * kRows);
        });
    }
}

TEST(TableCost, CoreCallsThatSucceedBuildNothing)
{
    InFreshProcess([] {
        GDateTime now;
        EXPECT_EQ(now.SetFromISO8601String("2001-02-03T04:05"), 0U);
        GFileSystemSpec path("/a/b");
        EXPECT_EQ(path.RemoveLastPathComponent().GetFullPath(), "/a");
        json value;
        EXPECT_EQ(GJSONUtils::Parse("{\"id\": \"1\"}", value), 0U);
        // A first logger is made as well, since no report has needed one.
        EXPECT_GE(CountAllocations([] { (void)GLogger::GetSharedInstance(); }), 2U);
        EXPECT_GE(CountForAName(), kRows);
    });
}

TEST(TableCost, ReportBuildsTheTableThoughNobodyListens)
{
    InFreshProcess([] {
        ReportCoreError("Miscellaneous", 0, CoreErrorCodes::kError, "err", "file", 1);
        EXPECT_LT(CountForAName(), 4U);
    });
}

// The plug-in's life of one document, with nothing going wrong.
class CleanRun : public MessageFixture {};

TEST_F(CleanRun, BuildsNoTable)
{
    InFreshProcess([&] {
        Start();
        (void)host.AddDocument("/documents/clean.ai");
        (void)SendCheck("/documents/clean.ai");
        (void)SendNotifier(kOpened, host.DocumentHandle(0));
        AITimerMessage tick = host.TimerMessage();
        EXPECT_EQ(host.Send(Main, "AI Timer", "AI Go", tick), 0);
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        EXPECT_GE(CountForAName(), kRows);
    });
}

}  // namespace
