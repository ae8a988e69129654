#include <type_traits>

#include "LoggerFixture.h"

namespace {

static_assert(!std::is_copy_constructible_v<GLogger> && !std::is_copy_assignable_v<GLogger>);
static_assert(!std::is_convertible_v<GLogger*, GNoncopyable*>, "the base isn't public");
static_assert(std::is_same_v<std::underlying_type_t<GLogger::LoggingLevel>, int>);

class LoggerLevels : public LoggerFixture {};

TEST_F(LoggerLevels, DefaultLetsErrorsAndWarningsPass)
{
    EXPECT_TRUE(logger.ShouldLog("anything", kError));
    EXPECT_TRUE(logger.ShouldLog("anything", kWarning));
    EXPECT_FALSE(logger.ShouldLog("anything", kInfo));
    EXPECT_FALSE(logger.ShouldLog("anything", kDebug));
}

TEST_F(LoggerLevels, NoneAndUnknownNeverPass)
{
    logger.SetLoggingLevelForIdentifier("default", kDebug);
    EXPECT_FALSE(logger.ShouldLog("anything", kNone));
    EXPECT_FALSE(logger.ShouldLog("anything", kUnknown));
}

TEST_F(LoggerLevels, IdentifierOfItsOwnLevel)
{
    logger.SetLoggingLevelForIdentifier("Lockable", kDebug);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("Lockable"), kDebug);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("LOCKABLE"), kDebug);
    EXPECT_TRUE(logger.ShouldLog("lockable", kDebug));
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("Lockables"), kWarning);
}

TEST_F(LoggerLevels, IdentifierThatIsOffStaysOff)
{
    for (const GLogger::LoggingLevel level : {kNone, kUnknown}) {
        logger.SetLoggingLevelForIdentifier("FileSystem", level);
        EXPECT_FALSE(logger.ShouldLog("FileSystem", kError));
        EXPECT_TRUE(logger.ShouldLog("Miscellaneous", kError));
    }
}

TEST_F(LoggerLevels, LevelOfAnErrorLetsNoWarningPass)
{
    logger.SetLoggingLevelForIdentifier("x", kError);
    EXPECT_TRUE(logger.ShouldLog("x", kError));
    EXPECT_FALSE(logger.ShouldLog("x", kWarning));
}

TEST_F(LoggerLevels, DefaultIdentifierIsFoundInAnyCase)
{
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("DEFAULT"), kWarning);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("Default"), kWarning);
    EXPECT_EQ(logger.GetDefaultLoggingIdentifier(), "default");
    EXPECT_EQ(&logger.GetDefaultLoggingIdentifier(), &logger.GetDefaultLoggingIdentifier());
}

TEST_F(LoggerLevels, UnknownDefaultSilencesEveryIdentifierWithoutALevel)
{
    logger.SetLoggingLevelForIdentifier("default", kUnknown);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("anything"), kUnknown);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("default"), kUnknown);
    logger.LogError("anything", "text");
    EXPECT_TRUE(record.lines.empty());
}

TEST_F(LoggerLevels, ResetForgetsAllButTheDefault)
{
    logger.SetLoggingLevelForIdentifier("x", kDebug);
    logger.SetLoggingLevelForIdentifier("default", kNone);
    logger.ResetAllLoggingLevels();
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("x"), kWarning);
    EXPECT_EQ(logger.GetLoggingLevelForIdentifier("default"), kWarning);
}

TEST_F(LoggerLevels, HaveTexts)
{
    EXPECT_EQ(logger.LevelToString(kNone), "None");
    EXPECT_EQ(logger.LevelToString(kError), "Error");
    EXPECT_EQ(logger.LevelToString(kWarning), "Warning");
    EXPECT_EQ(logger.LevelToString(kInfo), "Info");
    EXPECT_EQ(logger.LevelToString(kDebug), "Debug");
    for (const int level : {-1, -2, 5, 6, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(logger.LevelToString(GLogger::LoggingLevel(level)), "") << level;
    }
}

}  // namespace
