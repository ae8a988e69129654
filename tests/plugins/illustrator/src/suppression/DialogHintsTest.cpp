#include "SuppressionFixture.h"

namespace {

constexpr unsigned int kUntouched = 0xDEAD;

struct TitleTest {
    bool found;
    unsigned int keyCode;
};

TitleTest TryTitle(const std::string& title)
{
    FakeWindow window(title);
    TitleTest result = {false, kUntouched};
    result.found = isSuppressableDialog(&window, &result.keyCode);
    return result;
}

TEST(DialogHints, AreTracedWithTheirKeyCode)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("Meine Schriften", 0x1A2B);
        EXPECT_EQ(std::vector<std::string>{"AddDialogSuppressionHint(Meine Schriften, 0x00001a2b)"},
                  TraceTexts());
    });
}

TEST(DialogHints, UseTheEscapeKey) { EXPECT_EQ(53, sDismissalKeyCode); }

TEST(DialogHints, BuiltInHintsAreAddedInOrder)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        EXPECT_EQ(HintTracesOf(kBuiltInHints), HintTraces());
    });
}

class BuiltInHint : public testing::TestWithParam<std::string> {};

TEST_P(BuiltInHint, IsFoundInATitle)
{
    InFreshProcess([] {
        const std::string& hint = GetParam();
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        for (const std::string& title : {hint, "a " + hint + " b", hint + "s"}) {
            ClearTraces();
            const TitleTest result = TryTitle(title);
            EXPECT_TRUE(result.found) << title;
            EXPECT_EQ(53U, result.keyCode);
            EXPECT_EQ("Dialog '" + title +
                          "' is suppressable with key-event 0x00000035 because it contains '" +
                          hint + "'",
                      TraceTexts().back());
        }
    });
}

INSTANTIATE_TEST_SUITE_P(DialogHints, BuiltInHint, testing::ValuesIn(kBuiltInHints));

TEST(DialogHints, AreCaseSensitive)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        EXPECT_FALSE(TryTitle("MISSING FONTS").found);
        EXPECT_FALSE(TryTitle("SCHRIFTEN").found);
        EXPECT_FALSE(TryTitle("schriften").found);
        EXPECT_FALSE(TryTitle("Save as").found);
        EXPECT_FALSE(TryTitle("").found);
    });
}

TEST(DialogHints, WithoutAMatchDoNotChangeTheKeyCode)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        CreateListOfSuppressableDialogs();
        EXPECT_EQ(kUntouched, TryTitle("Save as").keyCode);
    });
}

TEST(DialogHints, AreTriedInOrderUntilOneMatches)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("zero", 1);
        AddDialogSuppressionHint("second", 2);
        AddDialogSuppressionHint("first", 3);
        ClearTraces();
        const TitleTest result = TryTitle("first and second");
        EXPECT_TRUE(result.found);
        EXPECT_EQ(2U, result.keyCode);
        EXPECT_EQ((std::vector<std::string>{
                      "Does 'first and second' contain 'zero'?",
                      "Does 'first and second' contain 'second'?",
                      "Dialog 'first and second' is suppressable with key-event 0x00000002 because "
                      "it contains 'second'"}),
                  TraceTexts());
    });
}

TEST(DialogHints, AreAllTriedWithoutAMatch)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("A", 1);
        AddDialogSuppressionHint("B", 2);
        ClearTraces();
        EXPECT_FALSE(TryTitle("c").found);
        EXPECT_EQ((std::vector<std::string>{"Does 'c' contain 'A'?", "Does 'c' contain 'B'?"}),
                  TraceTexts());
    });
}

TEST(DialogHints, CanRepeatAndTheFirstWins)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("A", 1);
        AddDialogSuppressionHint("A", 2);
        EXPECT_EQ(1U, TryTitle("A").keyCode);
    });
}

TEST(DialogHints, ThatAreEmptyNeverMatchAndKeepTheirKeyCode)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        AddDialogSuppressionHint("", 1);
        AddDialogSuppressionHint("A", 2);
        EXPECT_FALSE(TryTitle("b").found);
        EXPECT_FALSE(TryTitle("").found);
        EXPECT_EQ(2U, TryTitle("A").keyCode);
    });
}

TEST(DialogHints, AreCopied)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        std::string hint = "Fonts";
        AddDialogSuppressionHint(hint.c_str(), 1);
        hint.assign("XXXXX");
        EXPECT_TRUE(TryTitle("Missing Fonts").found);
    });
}

TEST(DialogHints, WithoutAnyWriteNoTrace)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        const TitleTest result = TryTitle("Missing Fonts");
        EXPECT_FALSE(result.found);
        EXPECT_EQ(kUntouched, result.keyCode);
        EXPECT_TRUE(Traces().empty());
    });
}

}  // namespace
