#include "plugin-core/panel/PanelProtocol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

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

    json Ask(const json& request) { return json::parse(mProtocol.Serve(request.dump()).text); }
    // The names with the states, in the order of the answer.
    static json ListStates(const json& answer)
    {
        json states = json::array();
        for (const json& font : answer.at("fonts")) {
            states.push_back({font.at("PostScriptName"), font.at("state")});
        }
        return states;
    }
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
    const json library = {{"name", "House"},
                          {"path", house},
                          {"selected", false},
                          {"fonts", 2},
                          {"removable", false}};
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
    ASSERT_EQ(3U, answer.at("fonts").size());
    for (json font : answer.at("fonts")) {
        EXPECT_NE("", font.at("id")) << font;
        EXPECT_THAT(font.at("family").get<std::string>(), testing::StartsWith("DejaVu S"));
    }
    EXPECT_EQ("DejaVu Sans", answer.at("fonts")[1].at("family"));
    EXPECT_EQ("Bold", answer.at("fonts")[1].at("style"));
    EXPECT_EQ(
        R"([["DejaVuSans","inactive"],["DejaVuSans-Bold","active"],["DejaVuSerif","activated"]])",
        ListStates(answer).dump());
}

TEST_F(PanelProtocolTest, SearchesNamesFamiliesAndStyles)
{
    const auto search = [this](const std::string& text) {
        return ListStates(Ask({{"op", "fonts"}, {"search", text}})).dump();
    };
    EXPECT_EQ(3U, Ask({{"op", "fonts"}, {"search", ""}}).at("fonts").size());
    EXPECT_EQ(R"([["DejaVuSerif","inactive"]])", search("dejavu SERIF"));
    EXPECT_EQ(R"([["DejaVuSans-Bold","active"]])", search("sans-b"));
    EXPECT_EQ(R"([["DejaVuSans-Bold","active"]])", search("  bold  sans "));
    EXPECT_EQ("[]", search("bold serif"));
    const json page = Ask({{"op", "fonts"}, {"search", "dejavu"}, {"offset", 1}, {"limit", 1}});
    EXPECT_EQ(3, page.at("total"));
    EXPECT_EQ(R"([["DejaVuSans-Bold","active"]])", ListStates(page).dump());
}

TEST_F(PanelProtocolTest, ListsFamiliesWithoutReadingTheFiles)
{
    FontTestHome::DamageUnnoticed(mHome.GetLibrary() / "House/DejaVuSerif.ttf");
    const json answer = Ask({{"op", "fonts"}, {"search", "DejaVu serif book"}});
    ASSERT_EQ(1, answer.at("total"));
    EXPECT_EQ("DejaVu Serif", answer.at("fonts")[0].at("family"));
    EXPECT_EQ("Book", answer.at("fonts")[0].at("style"));
}

TEST_F(PanelProtocolTest, ListsFontsOfSomeStates)
{
    Activate({"DejaVuSerif"});
    const json answer = Ask({{"op", "fonts"}, {"states", {"activated", "active"}}});
    EXPECT_EQ(2, answer.at("total"));
    EXPECT_EQ(R"([["DejaVuSans-Bold","active"],["DejaVuSerif","activated"]])",
              ListStates(answer).dump());
}

TEST_F(PanelProtocolTest, AddsSelectsAndRemovesALibrary)
{
    const std::string added = mHome.GetPath() / "added";
    FontTestHome::CopyFont("DejaVuSansMono", added);
    EXPECT_EQ(json({{"ok", true}, {"added", true}}),
              Ask({{"op", "addLibrary"}, {"path", added + "/"}}));
    EXPECT_EQ(false, Ask({{"op", "addLibrary"}, {"path", added}}).at("added"));
    const json libraries = Ask(json::object({{"op", "libraries"}})).at("libraries");
    ASSERT_EQ(2U, libraries.size());
    EXPECT_EQ(json({{"name", "added"},
                    {"path", added},
                    {"selected", false},
                    {"fonts", 1},
                    {"removable", true}}),
              libraries[1]);
    EXPECT_EQ(json({{"ok", true}}), Ask({{"op", "selectLibrary"}, {"path", added}}));
    EXPECT_EQ(1, Ask(json::object({{"op", "fonts"}})).at("total"));
    EXPECT_EQ(json({{"ok", true}}),
              Ask({{"op", "selectLibrary"}, {"path", added}, {"selected", false}}));
    EXPECT_EQ(4, Ask(json::object({{"op", "fonts"}})).at("total"));
    EXPECT_EQ(json({"DejaVuSansMono"}), Activate({"DejaVuSansMono"}).at("activated"));
    EXPECT_EQ(json({{"ok", true}}), Ask({{"op", "removeLibrary"}, {"path", added}}));
    EXPECT_EQ(3, Ask(json::object({{"op", "fonts"}})).at("total"));
    EXPECT_THAT(mServices.activation.GetActive(), ElementsAre("DejaVuSansMono"));
}

TEST_F(PanelProtocolTest, RefusesFoldersThatAreNoLibraries)
{
    const std::string house = mHome.GetLibrary() / "House";
    const std::string nowhere = mHome.GetPath() / "nowhere";
    for (const auto& [operation, path, reason] : std::vector<std::array<std::string, 3>>{
             {"addLibrary", "", "\"path\" isn't an absolute path"},
             {"addLibrary", "library", "\"path\" isn't an absolute path"},
             {"addLibrary", nowhere, nowhere + ": No such file or directory"},
             {"addLibrary", "/dev/null", "/dev/null: not a folder"},
             {"removeLibrary", house, house + ": not a folder that was added to the font library"},
             {"selectLibrary", nowhere, nowhere + ": not a font library"}}) {
        EXPECT_EQ(json({{"ok", false}, {"error", reason}}),
                  Ask({{"op", operation}, {"path", path}}));
    }
}

TEST_F(PanelProtocolTest, ListsDocumentsOfAllProcesses)
{
    EXPECT_EQ(json::array(), Ask(json::object({{"op", "documents"}})).at("documents"));
    Activate({"DejaVuSerif"});
    mServices.activation.Activate("/work/a.ai", {"DejaVuSans"});
    mServices.documentStore.SetOpen("/work/a.ai", {"Nowhere", "DejaVuSans", "DejaVuSans-Bold"});
    mServices.documentStore.SetOpen("/work/plain.ai", {});
    mServices.documentStore.SetOpen("Untitled-1", {"DejaVuSans"});
    const json documents = Ask(json::object({{"op", "documents"}})).at("documents");
    ASSERT_EQ(2U, documents.size());
    EXPECT_EQ("/work/plain.ai", documents[1].at("path"));
    EXPECT_EQ(json::array(), documents[1].at("fonts"));
    EXPECT_EQ("a.ai", documents[0].at("name"));
    EXPECT_EQ("/work/a.ai", documents[0].at("path"));
    EXPECT_THAT(documents[0].at("process").get<std::string>(), HasSubstr("(process "));
    EXPECT_EQ(R"([["DejaVuSans","activated"],["DejaVuSans-Bold","active"],["Nowhere","missing"]])",
              ListStates(documents[0]).dump());
    mServices.documentStore.SetClosed("/work/plain.ai");
    EXPECT_EQ(1U, Ask(json::object({{"op", "documents"}})).at("documents").size());
    mServices.Stop();
    EXPECT_EQ(json::array(), Ask(json::object({{"op", "documents"}})).at("documents"));
}

TEST_F(PanelProtocolTest, ListsNoDocumentOfAKilledProcess)
{
    mServices.database.Execute(
        "INSERT INTO program VALUES('1:gone:1', 'host');"
        "INSERT INTO open_document VALUES('/a.ai', '1:gone:1', 'DejaVuSans')");
    EXPECT_EQ(json::array(), Ask(json::object({{"op", "documents"}})).at("documents"));
    (void)mServices.activation.Repair();
    plugincore::Statement rest(mServices.database, "SELECT 1 FROM open_document");
    EXPECT_FALSE(rest.Step());
}

TEST_F(PanelProtocolTest, DocumentsThatOpenAndCloseAreEvents)
{
    mProtocol.BeginEvents();
    mServices.documentStore.SetOpen("/a.ai", {"Nowhere"});
    EXPECT_THAT(mProtocol.TakeEvents(), ElementsAre(R"({"event":"documents"})"));
    mServices.documentStore.SetClosed("/a.ai");
    EXPECT_THAT(mProtocol.TakeEvents(), ElementsAre(R"({"event":"documents"})"));
}

TEST_F(PanelProtocolTest, ReadsAFontFileInPieces)
{
    const json fonts = Ask(json::object({{"op", "fonts"}})).at("fonts");
    const std::string id = fonts[0].at("id");
    const auto file = mHome.GetLibrary() / "DejaVuSans.ttf";
    const uint64_t size = std::filesystem::file_size(file);
    std::string bytes;
    while (bytes.size() < size) {
        const plugincore::PanelFontPiece piece = mProtocol.ReadFont(id, bytes.size());
        ASSERT_EQ(200, piece.status);
        EXPECT_EQ("font/ttf", piece.type);
        EXPECT_EQ(size, piece.size);
        EXPECT_EQ(0, piece.faceIndex);
        EXPECT_LE(piece.bytes.size(), 256U << 10);
        bytes += piece.bytes;
    }
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(bytes == std::string(std::istreambuf_iterator<char>(stream), {}));
    EXPECT_EQ(404, mProtocol.ReadFont(id, size).status);
}

TEST_F(PanelProtocolTest, ReadsNoFileThatIsNotInTheLibrary)
{
    const std::string id = Ask(json::object({{"op", "fonts"}})).at("fonts")[0].at("id");
    for (const std::string& bad :
         {std::string(), std::string("/etc/passwd"), std::string("../../etc/passwd"),
          std::string("1"), std::string("1-0"), "0" + id + "-", "-" + id, id + "0", id + " ",
          std::string("99999999999999999999-0-0"), std::string("1--1-0")}) {
        EXPECT_EQ(404, mProtocol.ReadFont(bad, 0).status) << bad;
    }
    // The file isn't that of the index any more.
    std::filesystem::remove(mHome.GetLibrary() / "DejaVuSans.ttf");
    EXPECT_EQ(404, mProtocol.ReadFont(id, 0).status);
    std::ofstream(mHome.GetLibrary() / "DejaVuSans.ttf") << "not a font";
    EXPECT_EQ(415, mProtocol.ReadFont(id, 0).status);
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
        {"", "the message isn't a JSON object"},
        {"[1", "the message isn't a JSON object"},
        {"[]", "the message isn't a JSON object"},
        {"{\"op\":7}", "\"op\" isn't a string"},
        {"{\"op\":\"burn\"}", "there is no such operation"},
        {"{\"op\":\"fonts\",\"limit\":1001}", "\"limit\" isn't a number from 0 to 1000"},
        {"{\"op\":\"fonts\",\"offset\":-1}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"offset\":1e3}", "\"offset\" isn't a number from 0 to 1000000000"},
        {"{\"op\":\"fonts\",\"library\":[]}", "\"library\" isn't a string"},
        {"{\"op\":\"fonts\",\"search\":1}", "\"search\" isn't a string"},
        {"{\"op\":\"fonts\",\"states\":\"active\"}", "\"states\" isn't an array of states"},
        {"{\"op\":\"fonts\",\"states\":[\"on\"]}", "\"states\" isn't an array of states"},
        {"{\"op\":\"fonts\",\"states\":[]}", "\"states\" is empty"},
        {"{\"op\":\"activate\"}", "\"fonts\" isn't an array of names"},
        {"{\"op\":\"activate\",\"fonts\":[1]}", "\"fonts\" isn't an array of names"},
        {"{\"op\":\"deactivate\",\"fonts\":\"A\"}", "\"fonts\" isn't an array of names"},
    };
    for (const auto& [line, reason] : cases) {
        const json answer = json::parse(mProtocol.Serve(line).text);
        EXPECT_EQ(answer, json({{"ok", false}, {"error", reason}})) << line;
    }
    EXPECT_THAT(Activate(std::vector<std::string>(1001, "A")).at("error"),
                HasSubstr("more than 1000 names"));
}

TEST_F(PanelProtocolTest, AnswersInvalidUtf8AndDeepNesting)
{
    const std::string line = "{\"op\":\"\xff\xfe\"}";
    EXPECT_EQ(false, json::parse(mProtocol.Serve(line).text).at("ok"));
    const std::string deep(60000, '[');
    EXPECT_EQ(false, json::parse(mProtocol.Serve(deep + std::string(60000, ']')).text).at("ok"));
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
