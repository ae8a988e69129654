#include "SessionFixture.h"
#include "session/Actions.h"
#include "session/SessionWords.h"

using headless::LineOutcome;
using headless::SplitSessionLine;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(SessionWordsTest, BlanksQuotesAndComments)
{
    EXPECT_THAT(SplitSessionLine("  a\t b\r").words, ElementsAre("a", "b"));
    EXPECT_THAT(SplitSessionLine(R"(x "a \"b\" \\" 'c "d"' e"f g"h)").words,
                ElementsAre("x", R"(a "b" \)", "c \"d\"", "ef gh"));
    EXPECT_THAT(SplitSessionLine("a#b #c d").words, ElementsAre("a#b"));
    EXPECT_THAT(SplitSessionLine("# all of it").words, testing::IsEmpty());
    EXPECT_THAT(SplitSessionLine("a ''").words, ElementsAre("a", ""));
    EXPECT_NE(SplitSessionLine("a 'b").error, "");
    EXPECT_NE(SplitSessionLine(std::string("a\0b", 3)).error, "");
}

TEST(SessionWordsTest, AQuotedWordIsReadAsItWas)
{
    for (const std::string word : {"plain", "two words", "a\"b", "it's", "", "#x", "a \\ b"}) {
        EXPECT_THAT(SplitSessionLine(headless::QuoteSessionWord(word)).words, ElementsAre(word));
    }
}

class SessionTest : public SessionFixture {};

TEST_F(SessionTest, EmptyLinesAndCommentsDoNothing)
{
    Do("");
    Do("   # nothing");
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(SessionTest, EveryWrongLineSaysWhatWasExpected)
{
    Do("new");
    (void)TakeMessages();
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"opn a", "\"opn\" is no action; expected is one of open, new"},
        {"open", "expected is: open PATH"},
        {"open a b", "expected is: open PATH"},
        {"new x", "expected is: new"},
        {"text", "expected is: text FONT [WORDS]"},
        {"text ''", "expected is the name of a font"},
        {"save", "expected is: save PATH"},
        {"current 2", "expected is a name or a number from 1 to 1"},
        {"close nobody", "no open document is \"nobody\""},
        {"show fonts", "expected is menu or documents"},
        {"tick x", "expected is one up to 1000000"},
        {"tick 2000000", "expected is one up to 1000000"},
        {"wait soon", "expected are seconds"},
        {"wait -1", "expected are seconds"},
        {"panel {", "expected is a JSON object"},
        {"text 'a", "a quote isn't closed"},
        {"expect luck", "expected is one of no font"},
        {"expect font", "expected is: expect font NAME STATE"},
        {"expect font A gone", "expected is one of default, active, activated, missing"},
        {"expect calls x y", "is no number of calls"},
        {"expect documents many", "is no number of documents"},
        {"expect dialog x", "expected is one of none, dismissed, shown"},
        {"expect menu Plain ticked", "is no state of a menu item"},
    };
    for (const auto& [line, text] : wrong) {
        const headless::LineResult result = Try(line);
        EXPECT_EQ(result.outcome, LineOutcome::kWrong) << line;
        EXPECT_THAT(result.text, HasSubstr(text)) << line;
        EXPECT_EQ(result.text.find('\n'), std::string::npos) << line;
    }
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(SessionTest, WhatNeedsADocumentSaysSo)
{
    for (const char* const line : {"text F", "place a", "change", "save a.pdf", "close"}) {
        EXPECT_EQ(Try(line).outcome, LineOutcome::kWrong) << line;
        EXPECT_THAT(Try(line).text, HasSubstr("no document is open; expected is one")) << line;
    }
}

TEST_F(SessionTest, FontsCanBeExpected)
{
    fonts.active = {"Default-Regular", "Here"};
    Do("new");
    for (const char* const name : {"Default-Regular", "Here", "Comes", "Gone"}) {
        Do("text " + std::string(name));
    }
    fonts.active.insert("Comes");
    Do("expect font Default-Regular default");
    Do("expect font Here active");
    Do("expect font Comes activated");
    Do("expect font Gone missing");
    Do("expect no font Gone");
    EXPECT_EQ(Try("expect font Here missing").text,
              "expected is font Here missing, found is active");
    EXPECT_EQ(Try("expect no font Here").outcome, LineOutcome::kNotAsExpected);
    EXPECT_THAT(Try("expect font Other active").text, HasSubstr("no such font"));
    Do("close");
    EXPECT_THAT(Try("expect font Here active").text, HasSubstr("no document open"));
}

TEST_F(SessionTest, FilesDialogsAndDocumentsCanBeExpected)
{
    MakeFile("a b.pdf");
    AddFrame({"Gone"});
    content.document.linkedFiles = {"x.eps"};
    Do("open 'a b.pdf'");
    Do("expect dialog shown");
    Do("expect documents 1");
    Do("expect file \"a b.pdf\"");
    Do("expect no file c");
    Do("expect placed x.eps");
    for (const char* const line :
         {"expect dialog none", "expect documents 0", "expect file c", "expect no file 'a b.pdf'",
          "expect placed y.eps", "expect panel x"}) {
        const headless::LineResult result = Try(line);
        EXPECT_EQ(result.outcome, LineOutcome::kNotAsExpected) << line;
        EXPECT_THAT(result.text, HasSubstr(", found is ")) << line;
    }
}

TEST_F(SessionTest, CallsCanBeExpected)
{
    Do("tick 2");
    Do("expect call send \"every tick\"");
    Do("expect calls send 2");
    EXPECT_EQ(Try("expect calls send 3").text, "expected is number of calls send 3, found is 2");
    EXPECT_EQ(Try("expect call NoSuchCall").outcome, LineOutcome::kNotAsExpected);
    EXPECT_EQ(Try("expect call send nonsense").outcome, LineOutcome::kNotAsExpected);
}

TEST_F(SessionTest, QuitEndsTheSession) { EXPECT_EQ(Try("quit").outcome, LineOutcome::kQuit); }

TEST_F(SessionTest, HelpNamesEveryActionAndExpectation)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(session->RunLine("help").outcome, LineOutcome::kDone);
    const std::string text = testing::internal::GetCapturedStdout();
    for (const auto& row : headless::kActions) EXPECT_THAT(text, HasSubstr(GetUsage(row)));
    for (const auto& row : headless::kExpectations) EXPECT_THAT(text, HasSubstr(GetUsage(row)));
}

TEST_F(SessionTest, CompletesActionsPathsAndForms)
{
    MakeFile("one.ai");
    MakeFile("other.ai");
    EXPECT_THAT(session->Complete("", "cl"), ElementsAre("close"));
    EXPECT_THAT(session->Complete("open ", "o"), ElementsAre("one.ai", "other.ai"));
    EXPECT_THAT(session->Complete("show ", ""), ElementsAre("documents", "menu"));
    EXPECT_THAT(session->Complete("expect ", "cal"), ElementsAre("call", "calls"));
    EXPECT_THAT(session->Complete("expect no ", ""), ElementsAre("file", "font"));
    EXPECT_THAT(session->Complete("menu ", "More/"), ElementsAre("More/Deep"));
    EXPECT_THAT(session->Complete("nonsense ", ""), testing::IsEmpty());
}
