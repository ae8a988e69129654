#include "plugin-core/panel/PanelProtocol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace fs = std::filesystem;
using nlohmann::json;
using plugincore::PanelProtocol;
using plugincore::Services;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PanelProtocolTest : public testing::Test {
protected:
    void SetUp() override
    {
        FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
        FontTestHome::CopyFont("DejaVuSerif", mHome.GetLibrary() / "House");
        FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetLibrary() / "House");
        FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetUserFonts());
        mServices.Start();
    }
    void TearDown() override { mServices.Stop(); }

    json Ask(const json& request) { return json::parse(mProtocol.Serve(request.dump()).line); }
    json Activate(const std::vector<std::string>& names)
    {
        return Ask(json::object({{"op", "activate"}, {"fonts", names}}));
    }
    json Deactivate(const std::vector<std::string>& names)
    {
        return Ask(json::object({{"op", "deactivate"}, {"fonts", names}}));
    }

    FontTestHome mHome;
    Services mServices{plugincore::GetLocations()};
    PanelProtocol mProtocol{mServices};
};

TEST_F(PanelProtocolTest, ListsLibraries)
{
    const std::string house = mHome.GetLibrary() / "House";
    const json library = {{"name", "House"}, {"path", house}, {"selected", false}, {"fonts", 2}};
    EXPECT_EQ(json({{"ok", true}, {"id", "x"}, {"libraries", json::array({library})}}),
              Ask({{"op", "libraries"}, {"id", "x"}}));
    mServices.folders.Select(house);
    EXPECT_EQ(true, Ask({{"op", "libraries"}}).at("libraries")[0].at("selected"));
}

TEST_F(PanelProtocolTest, ListsFontsWithTheirStates)
{
    Activate({"DejaVuSerif"});
    const json answer = Ask(json::object({{"op", "fonts"}}));
    EXPECT_EQ(3, answer.at("total"));
    EXPECT_EQ(
        "[{\"PostScriptName\":\"DejaVuSans\",\"state\":\"inactive\"},"
        "{\"PostScriptName\":\"DejaVuSans-Bold\",\"state\":\"active\"},"
        "{\"PostScriptName\":\"DejaVuSerif\",\"state\":\"activated\"}]",
        answer.at("fonts").dump());
}

TEST_F(PanelProtocolTest, ListsAPageOfOneLibrary)
{
    const std::string house = mHome.GetLibrary() / "House";
    const json answer = Ask({{"op", "fonts"}, {"library", house}, {"offset", 1}, {"limit", 1}});
    EXPECT_EQ(2, answer.at("total"));
    ASSERT_EQ(1U, answer.at("fonts").size());
    EXPECT_EQ("DejaVuSerif", answer.at("fonts")[0].at("PostScriptName"));
}

TEST_F(PanelProtocolTest, ListsFontsOfTheSelectedLibrary)
{
    mServices.folders.Select(mHome.GetLibrary() / "House");
    EXPECT_EQ(2, Ask(json::object({{"op", "fonts"}})).at("total"));
    EXPECT_EQ(json({"DejaVuSans"}), Activate({"DejaVuSans"}).at("missing"));
}

TEST_F(PanelProtocolTest, ActivatesAndDeactivates)
{
    EXPECT_EQ(json({{"ok", true},
                    {"activated", json::array({"DejaVuSans"})},
                    {"alreadyActive", json::array({"DejaVuSans-Bold"})},
                    {"missing", json::array({"Nowhere"})}}),
              Activate({"DejaVuSans", "DejaVuSans", "DejaVuSans-Bold", "Nowhere"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSans-Bold"));
    EXPECT_EQ(json({{"ok", true},
                    {"deactivated", json::array({"DejaVuSans"})},
                    {"held", json::array()},
                    {"notActivated", json::array({"DejaVuSans-Bold"})}}),
              Deactivate({"DejaVuSans", "DejaVuSans-Bold"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans-Bold"));
}

TEST_F(PanelProtocolTest, FontThatADocumentHoldsRemainsActive)
{
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(json({"DejaVuSans"}), Deactivate({"DejaVuSans"}).at("notActivated"));
    EXPECT_EQ(json({"DejaVuSans"}), Activate({"DejaVuSans"}).at("alreadyActive"));
    EXPECT_EQ(json({"DejaVuSans"}), Deactivate({"DejaVuSans"}).at("held"));
    EXPECT_THAT(mServices.activation.GetActive(), ElementsAre("DejaVuSans"));
}

TEST_F(PanelProtocolTest, FontThatThePanelHoldsOutlivesADocument)
{
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    Activate({"DejaVuSans"});
    mServices.activation.Release("/a.ai");
    EXPECT_THAT(mServices.activation.GetActive(), ElementsAre("DejaVuSans"));
    mServices.Stop();
    EXPECT_THAT(mServices.activation.GetActive(), IsEmpty());
}

TEST_F(PanelProtocolTest, AnswersInvalidRequestsWithTheReason)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "the line isn't a JSON object"},
        {"[1", "the line isn't a JSON object"},
        {"[]", "the line isn't a JSON object"},
        {"{\"op\":7}", "\"op\" isn't a string"},
        {"{\"op\":\"burn\"}", "there is no such operation"},
        {"{\"op\":\"fonts\",\"limit\":1001}", "\"limit\" isn't a number from 0 to 1000"},
        {"{\"op\":\"fonts\",\"offset\":-1}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"offset\":1e3}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"library\":[]}", "\"library\" isn't a string"},
        {"{\"op\":\"activate\"}", "\"fonts\" isn't an array of names"},
        {"{\"op\":\"activate\",\"fonts\":[1]}", "\"fonts\" isn't an array of names"},
        {"{\"op\":\"deactivate\",\"fonts\":\"A\"}", "\"fonts\" isn't an array of names"},
    };
    for (const auto& [line, reason] : cases) {
        const json answer = json::parse(mProtocol.Serve(line).line);
        EXPECT_EQ(answer, json({{"ok", false}, {"error", reason}})) << line;
    }
    EXPECT_THAT(Activate(std::vector<std::string>(1001, "A")).at("error"),
                HasSubstr("more than 1000 names"));
}

TEST_F(PanelProtocolTest, AnswersInvalidUtf8AndDeepNesting)
{
    const std::string line = "{\"op\":\"\xff\xfe\"}";
    EXPECT_EQ(false, json::parse(mProtocol.Serve(line).line).at("ok"));
    const std::string deep(60000, '[');
    EXPECT_EQ(false, json::parse(mProtocol.Serve(deep + std::string(60000, ']')).line).at("ok"));
}

TEST_F(PanelProtocolTest, EventsBeginWithBeginEvents)
{
    Activate({"DejaVuSans"});
    mProtocol.BeginEvents();
    EXPECT_THAT(mProtocol.TakeEvents(), IsEmpty());
    Deactivate({"DejaVuSans"});
    EXPECT_THAT(mProtocol.TakeEvents(), testing::SizeIs(1));
    EXPECT_THAT(mProtocol.TakeEvents(), IsEmpty());
}

}  // namespace
