#include <memory>

#include "CppCoreMacros.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

class LoggerAppenders : public LoggerFixture {};

TEST_F(LoggerAppenders, AppendersAreCalledWithTheSameLineInTheOrderOfTheirKeys)
{
    std::vector<std::string> order;
    AppenderRecord first, second, third;
    GLogger sorted;
    for (AppenderRecord* const each : {&first, &second, &third}) each->order = &order;
    sorted.AddAppender("b", new ScriptedAppender(second, "b"));
    sorted.AddAppender("c", new ScriptedAppender(third, "c"));
    sorted.AddAppender("a", new ScriptedAppender(first, "a"));
    sorted.LogError("x", "text");
    EXPECT_THAT(order, ElementsAre("a", "b", "c"));
    ASSERT_THAT(first.lines, SizeIs(1));
    EXPECT_EQ(first.lines, second.lines);
    EXPECT_EQ(first.lines, third.lines);
}

TEST_F(LoggerAppenders, SecondAppenderOfAKeyReplacesTheFirst)
{
    AppenderRecord other;
    logger.AddAppender("recording", new ScriptedAppender(other));
    EXPECT_TRUE(record.isDeleted);
    logger.LogError("x", "text");
    EXPECT_THAT(record.lines, SizeIs(0));
    EXPECT_THAT(other.lines, SizeIs(1));
    logger.RemoveAllAppenders();
}

TEST_F(LoggerAppenders, AreDeletedWhenAllAreRemoved)
{
    logger.RemoveAllAppenders();
    EXPECT_TRUE(record.isDeleted);
    logger.LogError("x", "text");
    EXPECT_THAT(record.lines, SizeIs(0));
}

TEST_F(LoggerAppenders, AreDeletedWithTheLogger)
{
    AppenderRecord other;
    auto own = std::make_unique<GLogger>();
    own->AddAppender("other", new ScriptedAppender(other));
    EXPECT_FALSE(other.isDeleted);
    own.reset();
    EXPECT_TRUE(other.isDeleted);
}

TEST_F(LoggerAppenders, NullAppenderIsSkipped)
{
    logger.AddAppender("a", nullptr);
    logger.LogError("x", "text");
    EXPECT_THAT(record.lines, SizeIs(1));
    logger.RemoveAllAppenders();
}

TEST_F(LoggerAppenders, LinesThatAnAppenderLogsAreDropped)
{
    record.onAppend = [this] {
        logger.LogError("x", "inner");
        GLogger::GetSharedInstance()->LogError("x", "inner");
        ReportCoreError("Miscellaneous", 1, CoreErrorCodes::kError, "err", "file", 1);
    };
    logger.LogError("x", "outer");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[x]\t[Error]\touter\n"));
}

TEST_F(LoggerAppenders, LinesAfterADroppedOneAreWritten)
{
    record.onAppend = [this] { logger.LogError("x", "inner"); };
    logger.LogError("x", "first");
    logger.LogError("x", "second");
    EXPECT_THAT(record.lines, SizeIs(2));
}

TEST_F(LoggerAppenders, AppenderThatIsWritingCannotAddOrRemoveAppenders)
{
    AppenderRecord other;
    record.onAppend = [&] {
        logger.AddAppender("other", new ScriptedAppender(other));
        logger.RemoveAllAppenders();
    };
    logger.LogError("x", "first");
    EXPECT_TRUE(other.isDeleted);
    EXPECT_FALSE(record.isDeleted);
    record.onAppend = nullptr;
    logger.LogError("x", "second");
    EXPECT_THAT(record.lines, SizeIs(2));
}

TEST_F(LoggerAppenders, AppenderThatIsWritingCanChangeLevels)
{
    record.onAppend = [this] { logger.SetLoggingLevelForIdentifier("x", kNone); };
    logger.LogError("x", "first");
    logger.LogError("x", "second");
    EXPECT_THAT(record.lines, SizeIs(1));
}

// Logs in its destructor, while its own thread holds the appenders' lock.
class LoggingInDestructor : public GLogAppender {
public:
    explicit LoggingInDestructor(GLogger& logger) : mLogger(logger) {}
    ~LoggingInDestructor() override { mLogger.LogError("x", "in the destructor"); }
    void Append(std::string) override {}

private:
    GLogger& mLogger;
};

TEST_F(LoggerAppenders, LinesThatAnAppenderLogsInItsDestructorAreDropped)
{
    logger.AddAppender("a", new LoggingInDestructor(logger));
    logger.RemoveAllAppenders();
    EXPECT_THAT(record.lines, SizeIs(0));
}

// At debug level, the failed lock is reported too, which must not recurse endlessly.
TEST_F(LoggerAppenders, LogCallInADestructorReturnsAtDebugLevelToo)
{
    GLogger& shared = *GLogger::GetSharedInstance();
    shared.SetLoggingLevelForIdentifier("default", kDebug);
    shared.AddAppender("a", new LoggingInDestructor(shared));
    shared.RemoveAllAppenders();
    shared.ResetAllLoggingLevels();
    EXPECT_EQ(kWarning, shared.GetLoggingLevelForIdentifier("x"));
}

TEST(SharedLogger, IsTheSameObjectForEveryCall)
{
    GLogger* const logger = GLogger::GetSharedInstance();
    ASSERT_NE(nullptr, logger);
    EXPECT_EQ(logger, GLogger::GetSharedInstance());
    EXPECT_EQ(kWarning, logger->GetLoggingLevelForIdentifier("anything"));
}

}  // namespace
