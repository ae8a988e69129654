#include <regex>
#include <stdexcept>

#include "GDateTime.h"
#include "LoggerFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LoggerOutput : public LoggerFixture {
protected:
    // What arrives of a text that is handed over as an argument.
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
    ASSERT_EQ(record.lines.size(), 1U);
    const std::regex form(
        R"(\[\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z\]\t\[FileSystem\]\t\[Warning\]\tseven is 7\n)");
    EXPECT_TRUE(std::regex_match(record.lines[0], form)) << record.lines[0];
}

TEST_F(LoggerOutput, TimeIsAValidOne)
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

// The prefix "[x]\t[Error]\t" is a part of the text that the buffer of 256 bytes must hold.
TEST_F(LoggerOutput, TextsAroundTheStepsOfTheBufferArriveWhole)
{
    const std::string prefix = "[x]\t[Error]\t";
    for (const std::size_t size : {254U, 255U, 256U, 257U, 510U, 511U, 512U, 513U, 767U, 768U}) {
        const std::string text(size - prefix.size(), 'a');
        EXPECT_EQ(MessageOf(text), "\t" + prefix + text + "\n") << size;
    }
}

TEST_F(LoggerOutput, LongTextsArriveWholeAndShortOnesBehindThem)
{
    const std::string text(1000000, 'b');
    EXPECT_EQ(MessageOf(text), "\t[x]\t[Error]\t" + text + "\n");
    EXPECT_EQ(MessageOf("short"), "\t[x]\t[Error]\tshort\n");
}

TEST_F(LoggerOutput, ManyArgumentsAreThereForTheSecondFormatToo)
{
    const std::string text(300, 'c');
    logger.LogError("x", "%d %s %.2f %s %u", -1, text.c_str(), 2.5, text.c_str(), 3U);
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[x]\t[Error]\t-1 " + text + " 2.50 " + text + " 3\n"));
}

TEST_F(LoggerOutput, FormatThatFailsCostsTheText)
{
    // A wide character that no byte of the plain locale stands for.
    logger.LogError("x", "%ls", L"\x4E2D");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t\n"));
}

TEST_F(LoggerOutput, LineBreaksOfTheTextStay)
{
    logger.LogError("x", "first\n- %s", "second");
    EXPECT_THAT(LinesWithoutTime(), ElementsAre("\t[x]\t[Error]\tfirst\n- second\n"));
}

TEST_F(LoggerOutput, WithoutAppendersNothingIsFormatted)
{
    logger.RemoveAllAppenders();
    int written = -1;
    logger.LogError("x", "text%n", &written);
    EXPECT_EQ(written, -1);
}

TEST_F(LoggerOutput, AppenderThatThrowsCostsTheLineAndNoLaterOne)
{
    record.onAppend = [] { throw std::runtime_error("full"); };
    logger.LogError("x", "first");
    record.onAppend = nullptr;
    logger.LogError("x", "second");
    EXPECT_THAT(LinesWithoutTime(),
                ElementsAre("\t[x]\t[Error]\tfirst\n", "\t[x]\t[Error]\tsecond\n"));
}

}  // namespace
