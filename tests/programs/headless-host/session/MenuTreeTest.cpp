#include "session/MenuTree.h"

#include "SessionFixture.h"

using headless::LineOutcome;

class MenuTreeTest : public SessionFixture {};

TEST_F(MenuTreeTest, DrawsMarksSeparatorsAndSubmenus)
{
    EXPECT_EQ(
        "Type\n"
        "      Plain\n"
        "      Gray  (disabled)\n"
        "      --------\n"
        "      More >\n"
        "      [x] Deep\n",
        headless::DrawMenus(*host));
}

TEST_F(MenuTreeTest, FindsItemsByTextAndByPath)
{
    EXPECT_EQ("More/Deep", headless::FindMenuItem(*host, "Deep").path);
    EXPECT_EQ("More/Deep", headless::FindMenuItem(*host, "More/Deep").path);
    EXPECT_EQ(nullptr, headless::FindMenuItem(*host, "Type/Deep").item);
    EXPECT_EQ(nullptr, headless::FindMenuItem(*host, "").item) << "a separator cannot be chosen";
}

TEST_F(MenuTreeTest, DisabledItemsAndSubmenusCannotBeChosen)
{
    EXPECT_EQ("the menu item \"Gray\" is disabled", Try("menu Gray").text);
    EXPECT_EQ("the menu item \"More\" is a submenu; choose an item in it", Try("menu More").text);
    EXPECT_EQ("no menu item is called \"None\"", Try("menu None").text);
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(MenuTreeTest, ExpectChecksTheStateOfAnItem)
{
    Do("expect menu Deep checked");
    Do("expect menu Plain unchecked");
    Do("expect menu Plain enabled");
    Do("expect menu Gray disabled");
    Do("expect menu None absent");
    EXPECT_EQ("expected menu item None checked, found absent",
              Try("expect menu None checked").text);
}
