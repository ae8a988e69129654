#include "SessionFixture.h"
#include "session/ActionTable.h"
#include "session/ExpectAction.h"
#include "session/SessionLine.h"
#include "session/SessionWords.h"

using headless::LineOutcome;
using headless::SplitSessionLine;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(SessionWordsTest, SplitsAtSpacesOutsideOfQuotesAndComments)
{
    EXPECT_THAT(SplitSessionLine("  a\t b\r").words, ElementsAre("a", "b"));
    EXPECT_THAT(SplitSessionLine(R"(x "a \"b\" \\" 'c "d"' e"f g"h)").words,
                ElementsAre("x", R"(a "b" \)", "c \"d\"", "ef gh"));
    EXPECT_THAT(SplitSessionLine("a#b #c d").words, ElementsAre("a#b"));
    EXPECT_THAT(SplitSessionLine("# all of it").words, testing::IsEmpty());
    EXPECT_THAT(SplitSessionLine("a ''").words, ElementsAre("a", ""));
    EXPECT_NE("", SplitSessionLine("a 'b").error);
    EXPECT_NE("", SplitSessionLine(std::string("a\0b", 3)).error);
}

TEST(SessionWordsTest, AQuotedWordIsReadBackUnchanged)
{
    for (const std::string word : {"plain", "two words", "a\"b", "it's", "", "#x", "a \\ b"}) {
        EXPECT_THAT(SplitSessionLine(headless::QuoteSessionWord(word)).words, ElementsAre(word));
    }
}

TEST(SessionLineTest, AScriptAsksForCallsIfALineExpectsOne)
{
    using headless::AsksForCalls;
    EXPECT_TRUE(AsksForCalls("new\nexpect call GetMenus"));
    EXPECT_TRUE(AsksForCalls("expect\tcalls GetMenus 2\r\nnew\n"));
    EXPECT_TRUE(AsksForCalls("'expect' ca\"ll\" GetMenus\n"));
    EXPECT_TRUE(AsksForCalls("during GetMenus during GetMenus expect call GetMenus\n"));
    EXPECT_FALSE(AsksForCalls(""));
    EXPECT_FALSE(AsksForCalls("# expect call GetMenus\nexpect documents 0\ntext expect-call\n"));
    EXPECT_FALSE(AsksForCalls("expect\ncall GetMenus\n"));
}

class SessionTest : public SessionFixture {};

TEST_F(SessionTest, EmptyLinesAndCommentsDoNothing)
{
    Do("");
    Do("   # nothing");
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(SessionTest, AnInvalidLineGivesOneLineThatSaysWhatIsWrong)
{
    Do("new");
    (void)TakeMessages();
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"opn a", "unknown action \"opn\"; use one of open, new"},
        {"open", "usage: open PATH"},
        {"open a b", "usage: open PATH"},
        {"new x", "usage: new"},
        {"text", "usage: text FONT [WORDS]"},
        {"text ''", "the name of the font is empty"},
        {"show fonts", "use one of menu, documents"},
        {"tick x", "\"x\" is not a valid tick count (0 to 1000000)"},
        {"tick 2000000", "is not a valid tick count (0 to 1000000)"},
        {"wait soon", "\"soon\" is not a number of seconds (0 to 86400)"},
        {"wait -1", "is not a number of seconds"},
        {"panel {", "is not a JSON object"},
        {"exec", "usage: exec COMMAND"},
        {"fail", "usage: fail OPERATION [STATUS]"},
        {"fail EnableItem 0", "\"0\" is not a status of a failure"},
        {"fail EnableItem many", "\"many\" is not a status of a failure"},
        {"text 'a", "a quote is not closed"},
        {"expect luck", "unknown expectation \"luck\"; use one of no font"},
        {"expect font", "usage: expect font NAME STATE"},
        {"expect font A gone",
         "unknown font state \"gone\"; use one of default, active, activated, missing"},
        {"expect calls x y", "\"y\" is not a number"},
        {"expect documents many", "\"many\" is not a number"},
        {"expect dialog x", "use one of none, dismissed, shown"},
        {"expect menu Plain ticked", "unknown menu item state \"ticked\""},
    };
    for (const auto& [line, text] : wrong) {
        const headless::LineResult result = Try(line);
        EXPECT_THAT(result.outcome, testing::AnyOf(LineOutcome::kWrong, LineOutcome::kImpossible))
            << line;
        EXPECT_THAT(result.text, HasSubstr(text)) << line;
        EXPECT_EQ(result.text.find('\n'), std::string::npos) << line;
    }
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(SessionTest, ALineThatIsNotPossibleAtPresentIsNoInvalidOne)
{
    Do("new");
    (void)TakeMessages();
    const std::vector<std::pair<std::string, std::string>> impossible = {
        {"save", "save: \"Untitled-1\" has no file yet; use: save PATH"},
        {"current 2", "no open document is called \"2\"; use a name or a number from 1 to 1"},
        {"close nobody",
         "no open document is called \"nobody\"; use a name or a number from 1 to 1"},
        {"menu Nothing", "no menu item is called \"Nothing\""},
        {"menu Gray", "the menu item \"Gray\" is disabled"},
        {"menu More", "the menu item \"More\" is a submenu; choose an item in it"},
    };
    for (const auto& [line, text] : impossible) {
        const headless::LineResult result = Try(line);
        EXPECT_EQ(LineOutcome::kImpossible, result.outcome) << line;
        EXPECT_EQ(text, result.text) << line;
    }
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(SessionTest, ActionsOnADocumentFailWithoutOne)
{
    for (const char* const line : {"text F", "place a", "change", "save a.pdf", "close"}) {
        EXPECT_EQ(LineOutcome::kImpossible, Try(line).outcome) << line;
        EXPECT_THAT(Try(line).text, HasSubstr(": no document is open")) << line;
    }
}

TEST_F(SessionTest, ExpectChecksTheStateOfAFont)
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
    EXPECT_EQ("expected font Here missing, found active", Try("expect font Here missing").text);
    EXPECT_EQ(LineOutcome::kNotAsExpected, Try("expect no font Here").outcome);
    EXPECT_THAT(Try("expect font Other active").text, HasSubstr("no such font"));
    Do("close");
    EXPECT_THAT(Try("expect font Here active").text, HasSubstr("no document open"));
}

TEST_F(SessionTest, ExpectChecksFilesDialogsAndDocuments)
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
        EXPECT_EQ(LineOutcome::kNotAsExpected, result.outcome) << line;
        EXPECT_THAT(result.text, HasSubstr(", found ")) << line;
    }
}

TEST_F(SessionTest, ExpectChecksTheLinesOfTheJournal)
{
    Do("tick 2");
    Do("expect call send \"every tick\"");
    Do("expect calls send 2");
    EXPECT_EQ("expected number of calls send 3, found 2", Try("expect calls send 3").text);
    EXPECT_EQ(LineOutcome::kNotAsExpected, Try("expect call NoSuchCall").outcome);
    EXPECT_EQ(LineOutcome::kNotAsExpected, Try("expect call send nonsense").outcome);
}

TEST_F(SessionTest, ExecRunsACommandInTheFolderOfTheProgramsStart)
{
    Do("exec echo 'two  words' '>made'");
    Do("expect file made");
    Do("exec \"rm made && mkdir 'a b'\"");
    Do("expect no file made");
    const headless::LineResult result = Try("exec exit 7");
    EXPECT_EQ(LineOutcome::kNotAsExpected, result.outcome);
    EXPECT_EQ("exec: the command's exit status is 7", result.text);
    EXPECT_THAT(Try("exec 'kill -9 $$'").text, HasSubstr("ended by a signal"));
}

TEST_F(SessionTest, FailSetsTheStatusOfTheNextCall)
{
    Do("fail RemoveMenuItem");
    Do("fail AddMenuItem -5");
    EXPECT_THAT(host->failures, testing::ElementsAre(testing::Pair("AddMenuItem", -5),
                                                     testing::Pair("RemoveMenuItem", 1)));
}

TEST_F(SessionTest, LinesInsideOfCallsEndWithTheSession)
{
    Do("during GetTimerActive tick");
    EXPECT_EQ(1U, host->duringCalls.size());
    session.reset();
    EXPECT_EQ(0U, host->duringCalls.size());
}

TEST_F(SessionTest, QuitEndsTheSession) { EXPECT_EQ(LineOutcome::kQuit, Try("quit").outcome); }

TEST_F(SessionTest, HelpNamesEveryActionAndExpectation)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(LineOutcome::kDone, RunLine(*session, "help").outcome);
    const std::string text = testing::internal::GetCapturedStdout();
    for (const auto& row : headless::kActions) EXPECT_THAT(text, HasSubstr(GetUsage(row)));
    for (const auto& row : headless::kExpectations) EXPECT_THAT(text, HasSubstr(GetUsage(row)));
}

TEST_F(SessionTest, CompletesActionsPathsAndForms)
{
    MakeFile("one.ai");
    MakeFile("other.ai");
    EXPECT_THAT(CompleteLine(*session, "", "clos"), ElementsAre("close"));
    EXPECT_THAT(CompleteLine(*session, "open ", "o"), ElementsAre("one.ai", "other.ai"));
    EXPECT_THAT(CompleteLine(*session, "show ", ""), ElementsAre("documents", "menu"));
    EXPECT_THAT(CompleteLine(*session, "expect ", "cal"), ElementsAre("call", "calls"));
    EXPECT_THAT(CompleteLine(*session, "expect no ", ""), ElementsAre("file", "font"));
    EXPECT_THAT(CompleteLine(*session, "menu ", "More/"), ElementsAre("More/Deep"));
    EXPECT_THAT(CompleteLine(*session, "nonsense ", ""), testing::IsEmpty());
}
