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
    EXPECT_EQ(Ask({{"op", "libraries"}, {"id", "x"}}),
              json({{"ok", true}, {"id", "x"}, {"libraries", json::array({library})}}));
    mServices.folders.Select(house);
    EXPECT_EQ(Ask({{"op", "libraries"}}).at("libraries")[0].at("selected"), true);
}

TEST_F(PanelProtocolTest, ListsFontsWithTheirStates)
{
    Activate({"DejaVuSerif"});
    const json answer = Ask(json::object({{"op", "fonts"}}));
    EXPECT_EQ(answer.at("total"), 3);
    EXPECT_EQ(answer.at("fonts").dump(),
              "[{\"PostScriptName\":\"DejaVuSans\",\"state\":\"inactive\"},"
              "{\"PostScriptName\":\"DejaVuSans-Bold\",\"state\":\"active\"},"
              "{\"PostScriptName\":\"DejaVuSerif\",\"state\":\"activated\"}]");
}

TEST_F(PanelProtocolTest, ListsAPageOfOneLibrary)
{
    const std::string house = mHome.GetLibrary() / "House";
    const json answer = Ask({{"op", "fonts"}, {"library", house}, {"offset", 1}, {"limit", 1}});
    EXPECT_EQ(answer.at("total"), 2);
    ASSERT_EQ(answer.at("fonts").size(), 1U);
    EXPECT_EQ(answer.at("fonts")[0].at("PostScriptName"), "DejaVuSerif");
}

TEST_F(PanelProtocolTest, FontsAreThoseOfTheSelectedLibrary)
{
    mServices.folders.Select(mHome.GetLibrary() / "House");
    EXPECT_EQ(Ask(json::object({{"op", "fonts"}})).at("total"), 2);
    EXPECT_EQ(Activate({"DejaVuSans"}).at("missing"), json({"DejaVuSans"}));
}

TEST_F(PanelProtocolTest, ActivatesAndDeactivates)
{
    EXPECT_EQ(Activate({"DejaVuSans", "DejaVuSans", "DejaVuSans-Bold", "Nowhere"}),
              json({{"ok", true},
                    {"activated", json::array({"DejaVuSans"})},
                    {"alreadyActive", json::array({"DejaVuSans-Bold"})},
                    {"missing", json::array({"Nowhere"})}}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSans-Bold"));
    EXPECT_EQ(Deactivate({"DejaVuSans", "DejaVuSans-Bold"}),
              json({{"ok", true},
                    {"deactivated", json::array({"DejaVuSans"})},
                    {"held", json::array()},
                    {"notActivated", json::array({"DejaVuSans-Bold"})}}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans-Bold"));
}

TEST_F(PanelProtocolTest, WhatADocumentHoldsStaysActive)
{
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(Deactivate({"DejaVuSans"}).at("notActivated"), json({"DejaVuSans"}));
    EXPECT_EQ(Activate({"DejaVuSans"}).at("alreadyActive"), json({"DejaVuSans"}));
    EXPECT_EQ(Deactivate({"DejaVuSans"}).at("held"), json({"DejaVuSans"}));
    EXPECT_THAT(mServices.activation.GetActive(), ElementsAre("DejaVuSans"));
}

TEST_F(PanelProtocolTest, WhatThePanelHoldsOutlivesADocument)
{
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    Activate({"DejaVuSans"});
    mServices.activation.Release("/a.ai");
    EXPECT_THAT(mServices.activation.GetActive(), ElementsAre("DejaVuSans"));
    mServices.Stop();
    EXPECT_THAT(mServices.activation.GetActive(), IsEmpty());
}

TEST_F(PanelProtocolTest, WrongRequestsAreAnsweredWithTheReason)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "the line isn't a JSON object"},
        {"[1", "the line isn't a JSON object"},
        {"[]", "the line isn't a JSON object"},
        {"{\"op\":7}", "\"op\" isn't a text"},
        {"{\"op\":\"burn\"}", "there is no such operation"},
        {"{\"op\":\"fonts\",\"limit\":1001}", "\"limit\" isn't a number from 0 to 1000"},
        {"{\"op\":\"fonts\",\"offset\":-1}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"offset\":1e3}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"library\":[]}", "\"library\" isn't a text"},
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

TEST_F(PanelProtocolTest, BytesThatAreNoTextAreAnsweredToo)
{
    const std::string line = "{\"op\":\"\xff\xfe\"}";
    EXPECT_EQ(json::parse(mProtocol.Serve(line).line).at("ok"), false);
    const std::string deep(60000, '[');
    EXPECT_EQ(json::parse(mProtocol.Serve(deep + std::string(60000, ']')).line).at("ok"), false);
}

TEST_F(PanelProtocolTest, EventsBeginWithTheSubscription)
{
    Activate({"DejaVuSans"});
    mProtocol.BeginEvents();
    EXPECT_THAT(mProtocol.TakeEvents(), IsEmpty());
    Deactivate({"DejaVuSans"});
    EXPECT_THAT(mProtocol.TakeEvents(), testing::SizeIs(1));
    EXPECT_THAT(mProtocol.TakeEvents(), IsEmpty());
}

}  // namespace
