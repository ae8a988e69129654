#include <atomic>
#include <future>
#include <map>
#include <thread>
#include <utility>

#include "InThreads.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

class LoggerThreads : public LoggerFixture {};

// Alternates short and long lines, so that the shared buffer grows while other threads log.
TEST_F(LoggerThreads, LinesOfManyThreadsNeverMix)
{
    constexpr int kThreads = 100;
    constexpr int kLines = 20;
    std::atomic<int> inside{0};
    std::atomic<int> meetings{0};
    record.onAppend = [&] {
        if (inside.fetch_add(1) != 0) ++meetings;
        std::this_thread::yield();
        --inside;
    };
    const auto text = [](int thread, int line) {
        return std::string(size_t(line) * 50, char('a' + thread % 26));
    };
    InThreads(kThreads, [&](int thread) {
        for (int line = 0; line < kLines; ++line) {
            logger.LogError("x", "%d %d %s", thread, line, text(thread, line).c_str());
        }
    });
    EXPECT_EQ(0, meetings);
    std::map<std::string, int> counts;
    for (const std::string& line : LinesWithoutTime()) ++counts[line];
    EXPECT_THAT(record.lines, SizeIs(kThreads * kLines));
    for (int thread = 0; thread < kThreads; ++thread) {
        for (int line = 0; line < kLines; ++line) {
            const std::string expected = "\t[x]\t[Error]\t" + std::to_string(thread) + " " +
                                         std::to_string(line) + " " + text(thread, line) + "\n";
            EXPECT_EQ(1, counts[expected]) << thread << " " << line;
        }
    }
}

TEST_F(LoggerThreads, LevelsMayChangeWhileOtherThreadsLog)
{
    InThreads(40, [&](int thread) {
        const std::string own = "own" + std::to_string(thread);
        for (int round = 0; round < 50; ++round) {
            logger.SetLoggingLevelForIdentifier(own, round % 2 == 0 ? kDebug : kNone);
            logger.Log(own, kDebug, "text");
        }
    });
    EXPECT_THAT(record.lines, SizeIs(40 * 25));
}

TEST_F(LoggerThreads, AppendersMayBeAddedAndRemovedWhileOtherThreadsLog)
{
    constexpr int kAdders = 10;
    std::vector<AppenderRecord> others(kAdders);
    GLogger own;
    InThreads(40, [&](int thread) {
        for (int round = 0; round < 30; ++round) {
            if (thread < kAdders) {
                own.AddAppender("other" + std::to_string(thread),
                                new ScriptedAppender(others[size_t(thread)]));
            } else if (thread == kAdders) {
                own.RemoveAllAppenders();
            } else {
                own.LogError("x", "text");
            }
        }
    });
    own.RemoveAllAppenders();
    for (const AppenderRecord& other : others) EXPECT_TRUE(other.isDeleted);
}

// The second thread logs while the first one is in the output stage: its line must follow the first
// one's. The line that the first thread logs from inside the stage is dropped.
TEST_F(LoggerThreads, LineOfAnotherThreadWaitsAndInnerLineIsDropped)
{
    std::future<void> second;
    std::promise<void> started;
    bool isFirst = true;
    record.onAppend = [&] {
        if (!std::exchange(isFirst, false)) return;
        second = std::async(std::launch::async, [&] {
            started.set_value();
            logger.LogError("x", "second");
        });
        started.get_future().wait();
        logger.LogError("x", "inner");
        EXPECT_THAT(record.lines, SizeIs(1));
    };
    logger.LogError("x", "first");
    ASSERT_TRUE(second.valid());
    second.get();
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[x]\t[Error]\tfirst\n", "\t[x]\t[Error]\tsecond\n"));
}

TEST_F(LoggerThreads, OnlyInnerLinesAreDropped)
{
    constexpr int kThreads = 50;
    record.onAppend = [this] { logger.LogError("x", "inner"); };
    InThreads(kThreads, [&](int) { logger.LogError("x", "outer"); });
    EXPECT_THAT(LinesWithoutTime(), testing::Each("\t[x]\t[Error]\touter\n"));
    EXPECT_THAT(record.lines, SizeIs(kThreads));
}

}  // namespace
