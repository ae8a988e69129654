#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

constexpr unsigned int kItemAlreadyExists = CoreErrorCodes::kItemAlreadyExists;
const char* const kNth = "AIMenuSuite.GetNthMenuItem";
const char* const kKey = "AIMenuSuite.GetMenuItemKeyboardShortcutDictionaryKey";

// An item of the top level isn't added if the host already has an item with its label as the key.
class MenuPresence : public RunningMenuFixture {
protected:
    static unsigned int AddTop(const char* label) { return Add("1", label, "Title", nullptr); }
    static std::size_t RefusalTraces(const std::string& label)
    {
        return CountTraces("Error: '" + label + "' menu item already present.");
    }
};

TEST_F(MenuPresence, RefusesALabelThatIsTheKeyOfAHostItem)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
    EXPECT_EQ(1U, RefusalTraces("Fonts"));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.AddMenuItem"));
}

TEST_F(MenuPresence, AddsNoSubmenuToARefusedItem)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(kItemAlreadyExists, Add("1", "Fonts", "Title", nullptr, true));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.Add"));
}

TEST_F(MenuPresence, StoresNoIdForARefusedItem)
{
    EXPECT_EQ(0U, Add("first", "Label", "First", nullptr));
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("under null", "Label", "x"));
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(kItemAlreadyExists, Add("refused", "Fonts", "Title", nullptr));
    EXPECT_EQ("\"under null\"", IdPassedFor(nullptr));
}

TEST_F(MenuPresence, ComparesTheKeyAndNotTheText)
{
    (void)AddForeignItem("Key", "Fonts");
    EXPECT_EQ(0U, AddTop("Fonts"));
    EXPECT_EQ(0U, RefusalTraces("Fonts"));
}

TEST_F(MenuPresence, ComparesKeysByteForByte)
{
    (void)AddForeignItem("fonts");
    (void)AddForeignItem("Fonts ");
    EXPECT_EQ(0U, AddTop("Fonts"));
}

TEST_F(MenuPresence, DoesNotCheckAnItemWithAParent)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(0U, Add("1", "Fonts", "Title", "Group"));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.CountMenuItems"));
}

TEST_F(MenuPresence, DoesNotCheckAnItemInTheTopGroup)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(0U, Add("1", "Fonts", "Title", kTopGroup));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.CountMenuItems"));
}

TEST_F(MenuPresence, ChecksEveryItemOfTheHost)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Last");
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
    EXPECT_EQ(2U, RefusalTraces("Fonts"));
    const std::string nth = kNth;
    EXPECT_THAT(host.Calls(nth), ElementsAre(nth + "(0)", nth + "(1)", nth + "(2)", nth + "(3)"));
    EXPECT_EQ(4U, host.CountCalls(kKey));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.CountMenuItems"));
}

TEST_F(MenuPresence, CallsTheHostInOrder)
{
    (void)AddForeignItem("Other");
    EXPECT_EQ(0U, AddTop("Fonts"));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.CountMenuItems()", std::string(kNth) + "(0)",
                            std::string(kKey) + "(item Other)",
                            "AIMenuSuite.AddMenuItem((null), \"Type Plugins1\", \"Title\", 1)"));
}

TEST_F(MenuPresence, SkipsTheCheckIfTheCountFails)
{
    (void)AddForeignItem("Fonts");
    host.FailCall("AIMenuSuite.CountMenuItems", 1, kHostError);
    EXPECT_EQ(0U, AddTop("Fonts"));
    EXPECT_EQ(0U, host.CountCalls(kNth));
    EXPECT_EQ(kTopGroup, Item("Title").group);
}

TEST_F(MenuPresence, SkipsAnItemThatFails)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kNth, 1, kHostError);
    EXPECT_EQ(0U, AddTop("Fonts"));
    EXPECT_EQ(2U, host.CountCalls(kNth));
    EXPECT_THAT(host.Calls(kKey), ElementsAre(std::string(kKey) + "(item Other)"));
}

TEST_F(MenuPresence, FindsAMatchAfterAnItemThatFails)
{
    (void)AddForeignItem("Other");
    (void)AddForeignItem("Fonts");
    host.FailCall(kNth, 1, kHostError);
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
}

TEST_F(MenuPresence, SkipsAKeyThatFails)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kKey, 1, kHostError);
    EXPECT_EQ(0U, AddTop("Fonts"));
    EXPECT_EQ(2U, host.CountCalls(kKey));
}

TEST_F(MenuPresence, RefusesDespiteALaterFailure)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kNth, 2, kHostError);
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
}

TEST_F(MenuPresence, DoesNotReuseThePreviousKeyAfterAFailure)
{
    (void)AddForeignItem("Fonts");
    (void)AddForeignItem("Other");
    host.FailCall(kKey, 2, kHostError);
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
    EXPECT_EQ(1U, RefusalTraces("Fonts"));
}

TEST_F(MenuPresence, NullKeyMatchesNothing)
{
    (void)AddForeignItem("Fonts");
    host.GiveNull(kKey);
    EXPECT_EQ(0U, AddTop("Fonts"));
}

TEST_F(MenuPresence, AddsTheNextItemAfterARefusal)
{
    (void)AddForeignItem("Fonts");
    EXPECT_EQ(kItemAlreadyExists, AddTop("Fonts"));
    EXPECT_EQ(0U, AddTop("Others"));
}

}  // namespace
