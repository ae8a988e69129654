#include "session/MenuTree.h"

#include "SessionFixture.h"

using headless::LineOutcome;

class MenuTreeTest : public SessionFixture {};

TEST_F(MenuTreeTest, DrawsMarksSeparatorsAndSubmenus)
{
    EXPECT_EQ(headless::DrawMenus(*host),
              "Type\n"
              "      Plain\n"
              "      Gray  (disabled)\n"
              "      --------\n"
              "      More >\n"
              "      [x] Deep\n");
}

TEST_F(MenuTreeTest, FindsItemsByTextAndByPath)
{
    EXPECT_EQ(headless::FindMenuItem(*host, "Deep").path, "More/Deep");
    EXPECT_EQ(headless::FindMenuItem(*host, "More/Deep").path, "More/Deep");
    EXPECT_EQ(headless::FindMenuItem(*host, "Type/Deep").item, nullptr);
    EXPECT_EQ(headless::FindMenuItem(*host, "").item, nullptr) << "a separator can't be chosen";
}

TEST_F(MenuTreeTest, WhatCanNotBeChosenIsToldSo)
{
    EXPECT_EQ(Try("menu Gray").text, "the menu item \"Gray\" is disabled; expected is another one");
    EXPECT_EQ(Try("menu More").text, "\"More\" is a submenu; expected is an item in it");
    EXPECT_EQ(Try("menu None").text, "no menu item is \"None\"");
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
}

TEST_F(MenuTreeTest, TheStatesCanBeExpected)
{
    Do("expect menu Deep checked");
    Do("expect menu Plain unchecked");
    Do("expect menu Plain enabled");
    Do("expect menu Gray disabled");
    Do("expect menu None absent");
    EXPECT_EQ(Try("expect menu None checked").text,
              "expected is menu item None checked, found is absent");
}
