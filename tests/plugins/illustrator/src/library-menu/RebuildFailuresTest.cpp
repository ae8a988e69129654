#include <stdexcept>

#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class RebuildFailures : public LibraryMenuTest {
protected:
    RebuildFailures()
    {
        Rebuild(With(Libraries({"A", "B"})));
        Forget();
    }
    static void ExpectExitTraced()
    {
        EXPECT_EQ(Traces().back().indentChange, -1);
        EXPECT_THAT(Traces().back().text, HasSubstr("RebuildWorkgroupsMenu"));
    }
};

TEST_F(RebuildFailures, RefusedSuiteIsToldAndLeavesEverything)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces(kNoHandle), 1U);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls("AIMenuSuite."), IsEmpty());
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
}

TEST_F(RebuildFailures, RebuildWorksAgainOnceTheSuiteIsThere)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    Rebuild(With(Libraries({"C"})));
    host.AllowSuite("AI Menu Suite", 1011);
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

TEST_F(RebuildFailures, FailingGroupIsToldAndLeavesEverything)
{
    host.FailCall("AIMenuSuite.GetItemSubMenuGroup", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces(kNoGroup), 1U);
    EXPECT_FALSE(HasTrace(kNoHandle));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item Libraries)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

TEST_F(RebuildFailures, NullGroupIsToldAndLeavesEverything)
{
    EXPECT_EQ(Add("flat", kLibraryLabel, "Flat", nullptr, false), 0U);
    Forget();
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces(kNoGroup), 1U);
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectExitTraced();
}

TEST_F(RebuildFailures, ItemThatCannotBeRemovedStaysUnknown)
{
    const AIMenuItemHandle stuck = Item("A").handle;
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces("Error 4711 in clearing workgroups menu"), 1U);
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_THAT(
        host.Calls("AIMenuSuite.RemoveMenuItem"),
        ElementsAre("AIMenuSuite.RemoveMenuItem(item A)", "AIMenuSuite.RemoveMenuItem(item B)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "C"));
    EXPECT_EQ(IdPassedFor(stuck), "\"\"");
}

TEST_F(RebuildFailures, ItemThatCannotBeRemovedIsNotTriedAgain)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    Forget();
    Rebuild(With(Libraries({"D"})));
    EXPECT_THAT(host.Calls("AIMenuSuite.RemoveMenuItem"),
                ElementsAre("AIMenuSuite.RemoveMenuItem(item C)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "D"));
}

TEST_F(RebuildFailures, ItemThatCannotBeRemovedIsNotUpdated)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    Forget();
    Update(With(Libraries({"A", "C"})), "C");
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item A)"), 0U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.EnableItem(item C)"), 1U);
}

TEST_F(RebuildFailures, AllItemsMayStay)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 0, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces("Error 4711 in clearing workgroups menu"), 2U);
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(RebuildFailures, OtherExceptionsOfARemovalPassOnceTheEntryIsGone)
{
    host.OnCall("AIMenuSuite.RemoveMenuItem", [] { throw std::runtime_error("x"); });
    const AIMenuItemHandle item = Item("A").handle;
    EXPECT_TRUE(RebuildThrows<std::runtime_error>(With({})));
    ExpectNothingIsOut();
    EXPECT_EQ(IdPassedFor(item), "\"\"");
    EXPECT_EQ(IdPassedFor(Item("B").handle), "\"lib B\"");
}

struct BadText {
    const char* name;
    const char* text;
    const char* code;
};
void PrintTo(const BadText& row, std::ostream* out) { *out << row.name; }

class RebuildBadText : public RebuildFailures, public ::testing::WithParamInterface<BadText> {};

TEST_P(RebuildBadText, IsToldAndLeavesTheSubmenuEmpty)
{
    RebuildFromText(GetParam().text);
    EXPECT_EQ(CountTraces(std::string("Error ") + GetParam().code +
                          " when retrieving select library menu items"),
              1U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.RemoveMenuItem"), 2U);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.AddMenuItem"), 0U);
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
    ExpectExitTraced();
}

INSTANTIATE_TEST_SUITE_P(Texts, RebuildBadText,
                         ::testing::Values(BadText{"NotJSON", "no JSON", "67108864"},
                                           BadText{"Empty", "", "67108864"},
                                           BadText{"CutOff", "{\"child\":[", "67108864"},
                                           BadText{"Comment", "// c\n{\"child\":[]}", "67108864"},
                                           BadText{"NoChild", "{\"id\":\"root\"}", "117440512"},
                                           BadText{"EmptyObject", "{}", "117440512"},
                                           BadText{"EmptyArray", "[]", "117440512"},
                                           BadText{"Null", "null", "117440512"},
                                           BadText{"Array", "[{\"child\":[]}]", "67108864"},
                                           BadText{"Number", "5", "67108864"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RebuildFailures, FailingGetMenusIsABadText)
{
    FailSecondGetMenus();
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(CountTraces("Error 67108864 when retrieving select library menu items"), 1U);
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

TEST_F(RebuildFailures, NoTextAtAllIsABadText)
{
    AnswerFirstGetMenus(0);
    EXPECT_NO_THROW(RebuildWorkgroupsMenu());
    EXPECT_EQ(CountTraces("Error 67108864 when retrieving select library menu items"), 1U);
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

TEST_F(RebuildFailures, GoodTextAfterABadOneFillsTheSubmenu)
{
    RebuildFromText("no JSON");
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

}  // namespace
