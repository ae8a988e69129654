#include "application/MissingFontsDialog.h"

#include <gtest/gtest.h>

using headless::MissingFontsDialog;

namespace {

SKeyEvent MakeKey(int type, unsigned short code)
{
    return {type, 0, 0, 0, 0, 1, "\n", "\n", false, code};
}

class MissingFontsDialogTest : public testing::Test {
protected:
    headless::Journal journal;
};

}  // namespace

TEST_F(MissingFontsDialogTest, IsKindOfTheHostsDialogClass)
{
    const MissingFontsDialog dialog(journal, "en", 1);
    EXPECT_TRUE(dialog.IsKindOfClass("DVAMacDialog"));
    EXPECT_FALSE(dialog.IsKindOfClass("NSPanel"));
    EXPECT_FALSE(dialog.IsKindOfClass(nullptr));
}

TEST_F(MissingFontsDialogTest, HasATitleInEachLanguage)
{
    const std::pair<const char*, const char*> words[] = {
        {"en", "Font"},      {"es", "fuente"},          {"fr", "police"},
        {"it", "Caratteri"}, {"de", "Schriftprobleme"}, {"ja", "フォント"}};
    for (const auto& [language, word] : words) {
        const std::string title = MissingFontsDialog(journal, language, 1).GetTitle();
        EXPECT_NE(title.find(word), std::string::npos) << title;
    }
    EXPECT_EQ("Missing Fonts", MissingFontsDialog(journal, "en", 1).GetTitle());
}

TEST_F(MissingFontsDialogTest, EscapeBeforeTheSessionDismissesIt)
{
    MissingFontsDialog dialog(journal, "en", 1);
    dialog.SendEvent(MakeKey(10, 53));
    dialog.Show();
    EXPECT_TRUE(dialog.IsDismissed());
    EXPECT_FALSE(dialog.WasShown());
}

TEST_F(MissingFontsDialogTest, OtherKeysDoNotDismissIt)
{
    MissingFontsDialog dialog(journal, "en", 1);
    dialog.SendEvent(MakeKey(10, 36));
    dialog.SendEvent(MakeKey(11, 53));
    dialog.Show();
    EXPECT_TRUE(dialog.WasShown());
}
