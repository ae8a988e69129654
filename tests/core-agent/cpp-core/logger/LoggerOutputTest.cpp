#include <regex>
#include <stdexcept>

#include "GDateTime.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LoggerOutput : public LoggerFixture {
protected:
    // Logs the text as an argument of "%s" and returns the line.
    std::string MessageOf(const std::string& text)
    {
        record.lines.clear();
        logger.LogError("x", "%s", text.c_str());
        return LinesWithoutTime().at(0);
    }
};

TEST_F(LoggerOutput, LineHasFourFields)
{
    logger.Log("FileSystem", kWarning, "%s is %d", "seven", 7);
    ASSERT_EQ(1U, record.lines.size());
    const std::regex form(
        R"(\[\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z\]\t\[FileSystem\]\t\[Warning\]\tseven is 7\n)");
    EXPECT_TRUE(std::regex_match(record.lines[0], form)) << record.lines[0];
}

TEST_F(LoggerOutput, TimeIsAValidDate)
{
    logger.LogError("x", "text");
    const std::string& line = record.lines.at(0);
    const GDateTime time(line.substr(1, line.find(']') - 1));
    EXPECT_FALSE(time.IsEmpty());
    EXPECT_EQ("[" + time.GetAsISO8601String(true) + "]", line.substr(0, line.find('\t')));
}

TEST_F(LoggerOutput, ErrorsAndWarningsHaveTheirLevels)
{
    logger.LogError("a", "%d", 1);
    logger.LogWarning("b", "%d", 2);
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[a]\t[Error]\t1\n", "\t[b]\t[Warning]\t2\n"));
}

TEST_F(LoggerOutput, IdentifierKeepsItsCase)
{
    logger.LogError("MixedCase", "text");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[MixedCase]\t[Error]\ttext\n"));
}

TEST_F(LoggerOutput, LevelWithoutATextHasEmptyBrackets)
{
    logger.SetLoggingLevelForIdentifier("x", GLogger::LoggingLevel(9));
    logger.Log("x", GLogger::LoggingLevel(7), "text");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[x]\t[]\ttext\n"));
}

TEST_F(LoggerOutput, RefusedLevelGivesNoLine)
{
    logger.Log("x", kInfo, "text");
    logger.Log("x", kNone, "text");
    EXPECT_THAT(record.lines, IsEmpty());
}

TEST_F(LoggerOutput, PercentInAnIdentifierIsAConversion)
{
    logger.LogError("100%d", "", 7);
    logger.LogError("5%%", "%s", "text");
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[1007]\t[Error]\t\n", "\t[5%]\t[Error]\ttext\n"));
}

// The buffer of 256 bytes holds the prefix "[x]\t[Error]\t" too.
TEST_F(LoggerOutput, TextsAroundTheStepsOfTheBufferAreNotTruncated)
{
    const std::string prefix = "[x]\t[Error]\t";
    for (const std::size_t size : {254U, 255U, 256U, 257U, 510U, 511U, 512U, 513U, 767U, 768U}) {
        const std::string text(size - prefix.size(), 'a');
        EXPECT_EQ("\t" + prefix + text + "\n", MessageOf(text)) << size;
    }
}

TEST_F(LoggerOutput, ShortTextAfterALongOneIsWhole)
{
    const std::string text(1000000, 'b');
    EXPECT_EQ("\t[x]\t[Error]\t" + text + "\n", MessageOf(text));
    EXPECT_EQ("\t[x]\t[Error]\tshort\n", MessageOf("short"));
}

TEST_F(LoggerOutput, ArgumentsAreFormattedAgainAfterTheBufferGrows)
{
    const std::string text(300, 'c');
    logger.LogError("x", "%d %s %.2f %s %u", -1, text.c_str(), 2.5, text.c_str(), 3U);
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[x]\t[Error]\t-1 " + text + " 2.50 " + text + " 3\n"));
}

TEST_F(LoggerOutput, FailedFormatGivesAnEmptyText)
{
    // A wide character that the "C" locale can't convert.
    logger.LogError("x", "%ls", L"\x4E2D");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t\n"));
}

TEST_F(LoggerOutput, LineBreaksInTheTextAreKept)
{
    logger.LogError("x", "first\n- %s", "second");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[x]\t[Error]\tfirst\n- second\n"));
}

TEST_F(LoggerOutput, WithoutAppendersNothingIsFormatted)
{
    logger.RemoveAllAppenders();
    int written = -1;
    logger.LogError("x", "text%n", &written);
    EXPECT_EQ(-1, written);
}

TEST_F(LoggerOutput, AppenderThatThrowsLosesNoLaterLine)
{
    record.onAppend = [] { throw std::runtime_error("full"); };
    logger.LogError("x", "first");
    record.onAppend = nullptr;
    logger.LogError("x", "second");
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[x]\t[Error]\tfirst\n", "\t[x]\t[Error]\tsecond\n"));
}

}  // namespace
