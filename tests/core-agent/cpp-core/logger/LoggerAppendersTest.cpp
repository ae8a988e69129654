#include <memory>

#include "CppCoreMacros.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

class LoggerAppenders : public LoggerFixture {};

TEST_F(LoggerAppenders, EachGetsTheSameLineInTheOrderOfTheKeys)
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

TEST_F(LoggerAppenders, SecondOneOfAKeyReplacesTheFirst)
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

TEST_F(LoggerAppenders, NullOneIsPassedOver)
{
    logger.AddAppender("a", nullptr);
    logger.LogError("x", "text");
    EXPECT_THAT(record.lines, SizeIs(1));
    logger.RemoveAllAppenders();
}

TEST_F(LoggerAppenders, WhatOneLogsItselfIsDropped)
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

TEST_F(LoggerAppenders, NoneIsAddedOrRemovedByOneThatIsWriting)
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

TEST_F(LoggerAppenders, OneMayChangeLevelsWhileItWrites)
{
    record.onAppend = [this] { logger.SetLoggingLevelForIdentifier("x", kNone); };
    logger.LogError("x", "first");
    logger.LogError("x", "second");
    EXPECT_THAT(record.lines, SizeIs(1));
}

// An appender whose end leads to a log call finds the appenders' lock held by its own thread.
class LoggingAtItsEnd : public GLogAppender {
public:
    explicit LoggingAtItsEnd(GLogger& logger) : mLogger(logger) {}
    ~LoggingAtItsEnd() override { mLogger.LogError("x", "at the end"); }
    void Append(std::string) override {}

private:
    GLogger& mLogger;
};

TEST_F(LoggerAppenders, WhatOneLogsAtItsEndIsDropped)
{
    logger.AddAppender("a", new LoggingAtItsEnd(logger));
    logger.RemoveAllAppenders();
    EXPECT_THAT(record.lines, SizeIs(0));
}

// The failed lock is then a line of its own, which must not be reported for ever.
TEST_F(LoggerAppenders, WhatOneLogsAtItsEndIsDroppedAtTheLevelOfDebuggingToo)
{
    GLogger& shared = *GLogger::GetSharedInstance();
    shared.SetLoggingLevelForIdentifier("default", kDebug);
    shared.AddAppender("a", new LoggingAtItsEnd(shared));
    shared.RemoveAllAppenders();
    shared.ResetAllLoggingLevels();
    EXPECT_EQ(shared.GetLoggingLevelForIdentifier("x"), kWarning);
}

TEST(SharedLogger, IsOne)
{
    GLogger* const logger = GLogger::GetSharedInstance();
    ASSERT_NE(logger, nullptr);
    EXPECT_EQ(GLogger::GetSharedInstance(), logger);
    EXPECT_EQ(logger->GetLoggingLevelForIdentifier("anything"), kWarning);
}

}  // namespace
