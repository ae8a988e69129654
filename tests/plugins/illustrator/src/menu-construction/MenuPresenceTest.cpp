#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

constexpr unsigned int kItemAlreadyExists = 0x09000000;
const char* const kNth = "AIMenuSuite.GetNthMenuItem";
const char* const kKey = "AIMenuSuite.GetMenuItemKeyboardShortcutDictionaryKey";

// A top-level item isn't added twice.
class MenuPresence : public RunningMenuTest {
protected:
    static unsigned int AddTop(const char* label) { return Add("1", label, "Title", nullptr); }
    static std::size_t Told(const std::string& label)
    {
        return CountTraces("Error: '" + label + "' menu item already present.");
    }
};

TEST_F(MenuPresence, LabelThatAHostItemBearsAsItsKeyIsRefused)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
    EXPECT_EQ(Told("Fonts"), 1U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuItem"), 0U);
}

TEST_F(MenuPresence, RefusedItemGetsNoSubmenuEither)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(Add("1", "Fonts", "Title", nullptr, true), kItemAlreadyExists);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.Add"), 0U);
}

TEST_F(MenuPresence, RefusedItemLeavesNoEntry)
{
    EXPECT_EQ(Add("first", "Label", "First", nullptr), 0U);
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("under null", "Label", "x"), 4711U);
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(Add("refused", "Fonts", "Title", nullptr), kItemAlreadyExists);
    EXPECT_EQ(IdPassedFor(nullptr), "\"under null\"");
}

TEST_F(MenuPresence, KeyCountsAndNotTheText)
{
    (void)AddForeignItem("Key", "Fonts");
    EXPECT_EQ(AddTop("Fonts"), 0U);
    EXPECT_EQ(Told("Fonts"), 0U);
}

TEST_F(MenuPresence, KeysAreComparedByteForByte)
{
    (void)AddForeignItem("fonts");
    (void)AddForeignItem("Fonts ");
    EXPECT_EQ(AddTop("Fonts"), 0U);
}

TEST_F(MenuPresence, ItemWithAParentIsNotChecked)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(Add("1", "Fonts", "Title", "Group"), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.CountMenuItems"), 0U);
}

TEST_F(MenuPresence, ItemWithTheTopGroupAsItsParentIsNotChecked)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(Add("1", "Fonts", "Title", kTopGroup), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.CountMenuItems"), 0U);
}

TEST_F(MenuPresence, EveryItemOfTheHostIsLookedAt)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Last");
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
    EXPECT_EQ(Told("Fonts"), 2U);
    const std::string nth = kNth;
    EXPECT_THAT(host.Calls(nth), ElementsAre(nth + "(0)", nth + "(1)", nth + "(2)", nth + "(3)"));
    EXPECT_EQ(host.CountCalls(kKey), 4U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.CountMenuItems"), 1U);
}

TEST_F(MenuPresence, CallsComeInOrder)
{
    (void)AddForeignItem("Other");
    EXPECT_EQ(AddTop("Fonts"), 0U);
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.CountMenuItems()", std::string(kNth) + "(0)",
                            std::string(kKey) + "(item Other)",
                            "AIMenuSuite.AddMenuItem((null), \"Type Plugins1\", \"Title\", 1)"));
}

TEST_F(MenuPresence, FailingCountSkipsTheWalk)
{
    (void)AddForeignItem("Fonts");
    host.FailCall("AIMenuSuite.CountMenuItems", 1, kHostError);
    EXPECT_EQ(AddTop("Fonts"), 0U);
    EXPECT_EQ(host.CountCalls(kNth), 0U);
    EXPECT_EQ(Item("Title").group, kTopGroup);
}

TEST_F(MenuPresence, FailingItemIsSkipped)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kNth, 1, kHostError);
    EXPECT_EQ(AddTop("Fonts"), 0U);
    EXPECT_EQ(host.CountCalls(kNth), 2U);
    EXPECT_THAT(host.Calls(kKey), ElementsAre(std::string(kKey) + "(item Other)"));
}

TEST_F(MenuPresence, MatchBehindAFailingItemIsFound)
{
    (void)AddForeignItem("Other");
    (void)AddForeignItem("Fonts");
    host.FailCall(kNth, 1, kHostError);
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
}

TEST_F(MenuPresence, FailingKeyIsSkipped)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kKey, 1, kHostError);
    EXPECT_EQ(AddTop("Fonts"), 0U);
    EXPECT_EQ(host.CountCalls(kKey), 2U);
}

TEST_F(MenuPresence, FailureDoesNotUndoARefusal)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kNth, 2, kHostError);
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
}

TEST_F(MenuPresence, FailingKeyDoesNotLeaveTheKeyBeforeIt)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kKey, 2, kHostError);
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
    EXPECT_EQ(Told("Fonts"), 1U);
}

TEST_F(MenuPresence, NullKeyMatchesNothing)
{
    (void)AddForeignItem("Fonts");
    host.GiveNull(kKey);
    EXPECT_EQ(AddTop("Fonts"), 0U);
}

TEST_F(MenuPresence, RefusalOfOneLeavesTheNextAlone)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(AddTop("Fonts"), kItemAlreadyExists);
    EXPECT_EQ(AddTop("Others"), 0U);
}

}  // namespace
