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

// The table allocates at least one block per row.
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
    return CountAllocations([] { (void)GetNameForErrorCode(0); });  // only the cost is tested
}

TEST(TableCost, OnlyTheFirstNameBuildsTheTable)
{
    InFreshProcess([] {
        EXPECT_GE(CountForAName(), kRows);
        EXPECT_LT(CountForAName(), 4U);
        EXPECT_LT(CountAllocations([] { (void)GetNameForErrorCode(0xFF000001); }), 4U);
    });
}

// The table allocates one block per row and another one for nearly every name, so two tables would
// exceed the limit.
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
                        (void)GetNameForErrorCode(0);  // only the cost is tested
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
        EXPECT_EQ(CoreErrorCodes::kSuccess, now.SetFromISO8601String("2001-02-03T04:05"));
        GFileSystemSpec path("/a/b");
        EXPECT_EQ("/a", path.RemoveLastPathComponent().GetFullPath());
        json value;
        EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::Parse("{\"id\": \"1\"}", value));
        // No report has needed the shared logger either: it is made only now.
        EXPECT_GE(CountAllocations([] { (void)GLogger::GetSharedInstance(); }), 2U);
        EXPECT_GE(CountForAName(), kRows);
    });
}

TEST(TableCost, SilentReportBuildsTheTable)
{
    InFreshProcess([] {
        ReportCoreError("Miscellaneous", 0, CoreErrorCodes::kError, "err", "file", 1);
        EXPECT_LT(CountForAName(), 4U);
    });
}

// The plug-in opens a document, gets a timer tick and shuts down, without a failure.
class CleanRun : public MessageFixture {};

TEST_F(CleanRun, DocumentWithoutFailuresBuildsNoTable)
{
    InFreshProcess([&] {
        Start();
        (void)host.AddDocument("/documents/clean.ai");
        (void)SendCheck("/documents/clean.ai");
        (void)SendNotifier(kOpened, host.DocumentHandle(0));
        AITimerMessage tick = host.TimerMessage();
        EXPECT_EQ(0, host.Send(Main, "AI Timer", "AI Go", tick));
        EXPECT_EQ(0, SendInterface("Shutdown"));
        EXPECT_GE(CountForAName(), kRows);
    });
}

}  // namespace
