#include <type_traits>

#include "LoggerFixture.h"

namespace {

static_assert(!std::is_copy_constructible_v<GLogger> && !std::is_copy_assignable_v<GLogger>);
static_assert(!std::is_convertible_v<GLogger*, GNoncopyable*>, "the base isn't public");
static_assert(std::is_same_v<std::underlying_type_t<GLogger::LoggingLevel>, int>);

class LoggerLevels : public LoggerFixture {};

TEST_F(LoggerLevels, DefaultPassesErrorsAndWarnings)
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

TEST_F(LoggerLevels, IdentifierMayHaveALevelOfItsOwn)
{
    logger.SetLoggingLevelForIdentifier("Lockable", kDebug);
    EXPECT_EQ(kDebug, logger.GetLoggingLevelForIdentifier("Lockable"));
    EXPECT_EQ(kDebug, logger.GetLoggingLevelForIdentifier("LOCKABLE"));
    EXPECT_TRUE(logger.ShouldLog("lockable", kDebug));
    EXPECT_EQ(kWarning, logger.GetLoggingLevelForIdentifier("Lockables"));
}

TEST_F(LoggerLevels, IdentifierThatIsOffIgnoresTheDefault)
{
    for (const GLogger::LoggingLevel level : {kNone, kUnknown}) {
        logger.SetLoggingLevelForIdentifier("FileSystem", level);
        EXPECT_FALSE(logger.ShouldLog("FileSystem", kError));
        EXPECT_TRUE(logger.ShouldLog("Miscellaneous", kError));
    }
}

TEST_F(LoggerLevels, ErrorLevelRefusesWarnings)
{
    logger.SetLoggingLevelForIdentifier("x", kError);
    EXPECT_TRUE(logger.ShouldLog("x", kError));
    EXPECT_FALSE(logger.ShouldLog("x", kWarning));
}

TEST_F(LoggerLevels, DefaultIdentifierIsCaseInsensitive)
{
    EXPECT_EQ(kWarning, logger.GetLoggingLevelForIdentifier("DEFAULT"));
    EXPECT_EQ(kWarning, logger.GetLoggingLevelForIdentifier("Default"));
    EXPECT_EQ("default", logger.GetDefaultLoggingIdentifier());
    EXPECT_EQ(&logger.GetDefaultLoggingIdentifier(), &logger.GetDefaultLoggingIdentifier());
}

TEST_F(LoggerLevels, UnknownDefaultSilencesEveryIdentifierWithoutALevel)
{
    logger.SetLoggingLevelForIdentifier("default", kUnknown);
    EXPECT_EQ(kUnknown, logger.GetLoggingLevelForIdentifier("anything"));
    EXPECT_EQ(kUnknown, logger.GetLoggingLevelForIdentifier("default"));
    logger.LogError("anything", "text");
    EXPECT_TRUE(record.lines.empty());
}

TEST_F(LoggerLevels, ResetRestoresTheDefaultLevelOnly)
{
    logger.SetLoggingLevelForIdentifier("x", kDebug);
    logger.SetLoggingLevelForIdentifier("default", kNone);
    logger.ResetAllLoggingLevels();
    EXPECT_EQ(kWarning, logger.GetLoggingLevelForIdentifier("x"));
    EXPECT_EQ(kWarning, logger.GetLoggingLevelForIdentifier("default"));
}

TEST_F(LoggerLevels, LevelsHaveNames)
{
    EXPECT_EQ("None", logger.LevelToString(kNone));
    EXPECT_EQ("Error", logger.LevelToString(kError));
    EXPECT_EQ("Warning", logger.LevelToString(kWarning));
    EXPECT_EQ("Info", logger.LevelToString(kInfo));
    EXPECT_EQ("Debug", logger.LevelToString(kDebug));
    for (const int level : {-1, -2, 5, 6, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ("", logger.LevelToString(GLogger::LoggingLevel(level))) << level;
    }
}

}  // namespace
