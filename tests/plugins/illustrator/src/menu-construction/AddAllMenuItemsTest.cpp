#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

class AddAllMenuItems : public RunningMenuTest {
protected:
    AddAllMenuItems() { core->menus = R"({"id":"root"})"; }
    unsigned int AddAll()
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return AddAllCorvantaMenuItems(&message);
    }
    int Held() const { return host.SuiteReferences("AI Menu Suite", 1011); }
};

TEST_F(AddAllMenuItems, HandsTextAndCallbackToPluginCore)
{
    host.AddDocument("/a.ai");
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_THAT(core->calls,
                ElementsAre("GetMenus(\"/a.ai\", null, 0)", "GetMenus(\"/a.ai\", buffer, 14)",
                            "CreateMenusFromJSONBuffer(\"{\"id\":\"root\"}\")"));
    EXPECT_EQ(core->addIllustratorMenu, &AddIllustratorMenu);
    EXPECT_NE(core->menuItemHelp, nullptr);
}

TEST_F(AddAllMenuItems, HoldsTheSuiteWhilePluginCoreWalks)
{
    int held = 0;
    core->onCall["CreateMenusFromJSONBuffer"] = [&] { held = Held(); };
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_EQ(held, 1);
    EXPECT_EQ(Held(), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"), 1U);
}

TEST_F(AddAllMenuItems, ItemsThatPluginCoreCallsBackWithAreAdded)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        EXPECT_EQ(core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, true, nullptr,
                                           core->menuItemHelp),
                  0U);
        EXPECT_EQ(core->addIllustratorMenu("2", "Add", "Add...", false, true, false, "Fonts",
                                           core->menuItemHelp),
                  0U);
    };
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_EQ(Item("Fonts").group, kTopGroup);
    EXPECT_EQ(Item("Add...").group, "Fonts");
}

TEST_F(AddAllMenuItems, PluginCoresStatusIsTheResult)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(AddAll(), 0x04000000U);
    EXPECT_EQ(Held(), 0);
}

TEST_F(AddAllMenuItems, FailureToGetTheTextIsNotLookedAt)
{
    FailSecondGetMenus();
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_EQ(core->calls.back(), "CreateMenusFromJSONBuffer(\"\")");
}

TEST_F(AddAllMenuItems, WithoutATextPluginCoreGetsTheEmptyOne)
{
    AnswerFirstGetMenus(0);
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_THAT(core->calls, ElementsAre("CreateMenusFromJSONBuffer(\"\")"));
}

TEST_F(AddAllMenuItems, DoesNotSetTheLastKnownState)
{
    EXPECT_EQ(AddAll(), 0U);
    EXPECT_EQ(SendGo(nullptr), 0);
    EXPECT_EQ(LastSelection(), "HandleMenuSelection(\"\", \"\", \"\", \"\")");
}

TEST_F(AddAllMenuItems, RefusedSuiteIsThrown)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    int thrown = 0;
    try {
        (void)AddAll();
    } catch (int code) {
        thrown = code;
    }
    EXPECT_EQ(thrown, kHostError);
    EXPECT_THAT(core->calls, ::testing::IsEmpty());
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddAllMenuItems, ExceptionOfPluginCorePassesAndGivesTheSuiteBack)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [] { throw std::runtime_error("x"); };
    EXPECT_THROW((void)AddAll(), std::runtime_error);
    EXPECT_EQ(Held(), 0);
}

}  // namespace
