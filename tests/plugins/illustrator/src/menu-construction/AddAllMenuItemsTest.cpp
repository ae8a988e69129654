#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

class AddAllMenuItems : public RunningMenuFixture {
protected:
    AddAllMenuItems() { core->menus = R"({"id":"root"})"; }
    unsigned int AddAll()
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return AddAllCorvantaMenuItems(&message);
    }
    int SuiteReferences() const { return host.SuiteReferences("AI Menu Suite", 1011); }
};

TEST_F(AddAllMenuItems, PassesTextAndCallbackToPluginCore)
{
    host.AddDocument("/a.ai");
    EXPECT_EQ(0U, AddAll());
    EXPECT_THAT(core->calls,
                ElementsAre("GetMenus(\"/a.ai\", null, 0)", "GetMenus(\"/a.ai\", buffer, 14)",
                            "CreateMenusFromJSONBuffer(\"{\"id\":\"root\"}\")"));
    EXPECT_EQ(&AddIllustratorMenu, core->addIllustratorMenu);
    EXPECT_NE(nullptr, core->menuItemHelp);
}

TEST_F(AddAllMenuItems, HoldsTheSuiteDuringPluginCoresCall)
{
    int held = 0;
    core->onCall["CreateMenusFromJSONBuffer"] = [&] { held = SuiteReferences(); };
    EXPECT_EQ(0U, AddAll());
    EXPECT_EQ(1, held);
    EXPECT_EQ(0, SuiteReferences());
    EXPECT_EQ(1U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"));
}

TEST_F(AddAllMenuItems, AddsTheItemsOfTheCallbacks)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        EXPECT_EQ(0U, core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, true, nullptr,
                                               core->menuItemHelp));
        EXPECT_EQ(0U, core->addIllustratorMenu("2", "Add", "Add...", false, true, false, "Fonts",
                                               core->menuItemHelp));
    };
    EXPECT_EQ(0U, AddAll());
    EXPECT_EQ(kTopGroup, Item("Fonts").group);
    EXPECT_EQ("Fonts", Item("Add...").group);
}

TEST_F(AddAllMenuItems, ReturnsPluginCoresStatus)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(0x04000000U, AddAll());
    EXPECT_EQ(0, SuiteReferences());
}

TEST_F(AddAllMenuItems, IgnoresAFailureToGetTheText)
{
    FailSecondGetMenus();
    EXPECT_EQ(0U, AddAll());
    EXPECT_EQ("CreateMenusFromJSONBuffer(\"\")", core->calls.back());
}

TEST_F(AddAllMenuItems, PassesAnEmptyTextIfThereIsNone)
{
    AnswerFirstGetMenus(0);
    EXPECT_EQ(0U, AddAll());
    EXPECT_THAT(core->calls, ElementsAre("CreateMenusFromJSONBuffer(\"\")"));
}

TEST_F(AddAllMenuItems, DoesNotSetTheLastKnownState)
{
    EXPECT_EQ(0U, AddAll());
    EXPECT_EQ(0, SendGo(nullptr));
    EXPECT_EQ("HandleMenuSelection(\"\", \"\", \"\", \"\")", LastSelection());
}

TEST_F(AddAllMenuItems, ThrowsTheCodeOfARefusedSuite)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    int thrown = 0;
    try {
        (void)AddAll();
    } catch (int code) {
        thrown = code;
    }
    EXPECT_EQ(kHostError, thrown);
    EXPECT_THAT(core->calls, ::testing::IsEmpty());
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddAllMenuItems, ExceptionOfPluginCorePassesThroughAndReleasesTheSuite)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [] { throw std::runtime_error("x"); };
    EXPECT_THROW((void)AddAll(), std::runtime_error);
    EXPECT_EQ(0, SuiteReferences());
}

}  // namespace
