#include <stdexcept>

#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class RebuildFailures : public LibraryMenuFixture {
protected:
    RebuildFailures()
    {
        Rebuild(With(Libraries({"A", "B"})));
        Forget();
    }
    static void ExpectExitTraced()
    {
        EXPECT_EQ(-1, Traces().back().indentChange);
        EXPECT_THAT(Traces().back().text, HasSubstr("RebuildWorkgroupsMenu"));
    }
};

TEST_F(RebuildFailures, TracesARefusedSuiteAndChangesNothing)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(1U, CountTraces(kNoHandle));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls("AIMenuSuite."), IsEmpty());
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
}

TEST_F(RebuildFailures, RebuildsAgainWhenTheSuiteIsAvailable)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    Rebuild(With(Libraries({"C"})));
    host.AllowSuite("AI Menu Suite", 1011);
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

TEST_F(RebuildFailures, TracesAFailureToGetTheGroupAndChangesNothing)
{
    host.FailCall("AIMenuSuite.GetItemSubMenuGroup", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(1U, CountTraces(kNoGroup));
    EXPECT_FALSE(HasTrace(kNoHandle));
    EXPECT_THAT(host.Calls("AIMenuSuite."),
                ElementsAre("AIMenuSuite.GetItemSubMenuGroup(item Libraries)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectIdsPassed();
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

TEST_F(RebuildFailures, TracesANullGroupAndChangesNothing)
{
    EXPECT_EQ(0U, Add("flat", kSelectLibrary, "Flat", nullptr, false));
    Forget();
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(1U, CountTraces(kNoGroup));
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetMenus", "GetMenus"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B"));
    ExpectExitTraced();
}

TEST_F(RebuildFailures, ForgetsAnItemThatCannotBeRemoved)
{
    const AIMenuItemHandle stuck = Item("A").handle;
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(1U, CountTraces("Error 4711 in clearing workgroups menu"));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_THAT(
        host.Calls("AIMenuSuite.RemoveMenuItem"),
        ElementsAre("AIMenuSuite.RemoveMenuItem(item A)", "AIMenuSuite.RemoveMenuItem(item B)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "C"));
    EXPECT_EQ("\"\"", IdPassedFor(stuck));
}

TEST_F(RebuildFailures, DoesNotTryAgainToRemoveAnItem)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    Forget();
    Rebuild(With(Libraries({"D"})));
    EXPECT_THAT(host.Calls("AIMenuSuite.RemoveMenuItem"),
                ElementsAre("AIMenuSuite.RemoveMenuItem(item C)"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "D"));
}

TEST_F(RebuildFailures, DoesNotUpdateAnItemThatCannotBeRemoved)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 1, kHostError);
    Rebuild(With(Libraries({"C"})));
    Forget();
    Update(With(Libraries({"A", "C"})), "C");
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.EnableItem(item A)"));
    EXPECT_EQ(1U, host.CountCalls("AIMenuSuite.EnableItem(item C)"));
}

TEST_F(RebuildFailures, ContinuesIfNoItemCanBeRemoved)
{
    host.FailCall("AIMenuSuite.RemoveMenuItem", 0, kHostError);
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(2U, CountTraces("Error 4711 in clearing workgroups menu"));
    EXPECT_THAT(Submenu(), ElementsAre("A", "B", "C"));
}

TEST_F(RebuildFailures, OtherExceptionsPassThroughAfterTheEntryIsErased)
{
    host.OnCall("AIMenuSuite.RemoveMenuItem", [] { throw std::runtime_error("x"); });
    const AIMenuItemHandle item = Item("A").handle;
    EXPECT_TRUE(RebuildThrows<std::runtime_error>(With({})));
    ExpectAllReleased();
    EXPECT_EQ("\"\"", IdPassedFor(item));
    EXPECT_EQ("\"lib B\"", IdPassedFor(Item("B").handle));
}

TEST_F(RebuildFailures, DoesNotRemoveAnItemTwiceAfterAnotherException)
{
    int calls = 0;
    host.OnCall("AIMenuSuite.RemoveMenuItem", [&calls] {
        if (++calls == 2) throw std::runtime_error("x");
    });
    EXPECT_TRUE(RebuildThrows<std::runtime_error>(With({})));
    Forget();
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.RemoveMenuItem"));
    EXPECT_THAT(Submenu(), ElementsAre("B", "C"));
}

struct BadText {
    const char* name;
    const char* text;
    const char* code;
};
void PrintTo(const BadText& row, std::ostream* out) { *out << row.name; }

class RebuildBadText : public RebuildFailures, public ::testing::WithParamInterface<BadText> {};

TEST_P(RebuildBadText, IsTracedAndLeavesTheSubmenuEmpty)
{
    RebuildFromText(GetParam().text);
    EXPECT_EQ(1U, CountTraces(std::string("Error ") + GetParam().code +
                              " when retrieving select library menu items"));
    EXPECT_EQ(2U, host.CountCalls("AIMenuSuite.RemoveMenuItem"));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.AddMenuItem"));
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

TEST_F(RebuildFailures, TreatsAFailureOfGetMenusAsMalformedText)
{
    FailSecondGetMenus();
    Rebuild(With(Libraries({"C"})));
    EXPECT_EQ(1U, CountTraces("Error 67108864 when retrieving select library menu items"));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

TEST_F(RebuildFailures, TreatsNoTextAsMalformedText)
{
    AnswerFirstGetMenus(0);
    EXPECT_NO_THROW(RebuildWorkgroupsMenu());
    EXPECT_EQ(1U, CountTraces("Error 67108864 when retrieving select library menu items"));
    EXPECT_THAT(LiveTexts(), ElementsAre("Libraries"));
}

TEST_F(RebuildFailures, FillsTheSubmenuAfterMalformedText)
{
    RebuildFromText("no JSON");
    Rebuild(With(Libraries({"C"})));
    EXPECT_THAT(Submenu(), ElementsAre("C"));
}

}  // namespace
