#include <cstdlib>
#include <regex>
#include <sstream>
#include <vector>

#include "SessionFiles.h"
#include "SessionNames.h"

namespace fs = std::filesystem;

namespace {

// The journal without the suite calls, the numbers and times of lines, and everything else that
// differs from run to run.
std::string Condense(const std::string& journal, const std::string& scratch)
{
    std::string text;
    std::istringstream lines(journal);
    for (std::string line; std::getline(lines, line);) {
        auto entry = nlohmann::json::parse(line);
        if (entry.at("side") == "suite") continue;
        if (entry.at("op") == "GetSocketPort") entry["result"] = "a port";
        text += entry.at("side").get<std::string>() + " | " + entry.at("op").get<std::string>() +
                " | " + entry.at("args").dump() + " | " + entry.at("result").dump() + "\n";
    }
    for (size_t at = text.find(scratch); at != std::string::npos; at = text.find(scratch, at)) {
        text.replace(at, scratch.size(), "SCRATCH");
    }
    // Persistent ids of documents, and numbers of handles.
    text = std::regex_replace(text, std::regex("[0-9a-f]{32}"), "ID");
    text = std::regex_replace(
        text, std::regex("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"), "ID");
    return std::regex_replace(text, std::regex("#[0-9]+"), "#N");
}

// Leaves one of several ticks that follow one another: PluginCore serves the panel in a thread of
// its own, so that the number of ticks until an answer differs from run to run.
std::string LeaveOneTick(const std::string& road)
{
    std::vector<std::string> kept;
    std::istringstream lines(road);
    for (std::string line; std::getline(lines, line);) {
        kept.push_back(line);
        const size_t count = kept.size();
        if (count < 4 || line.find("\"selector\":\"AI Go\"") == std::string::npos) continue;
        if (line != kept[count - 3] || kept[count - 2] != kept[count - 4]) continue;
        kept.resize(count - 2);
    }
    std::string text;
    for (const std::string& line : kept) text += line + "\n";
    return text;
}

}  // namespace

class Session : public SessionFiles, public testing::WithParamInterface<const char*> {};

TEST_P(Session, JournalEqualsTheGoldenFile)
{
    const std::string name = GetParam();
    CopySession(name);
    EXPECT_EQ(0, Run("script session --journal journal")) << output << errors;
    std::string road = Condense(ReadFile(scratch / "journal"), scratch.string());
    if (name == "panel") road = LeaveOneTick(road);
    const fs::path golden = fs::path(SESSIONS_FOLDER) / "golden" / (name + ".txt");
    if (std::getenv("UPDATE_GOLDEN") != nullptr) WriteFile(golden, road);
    EXPECT_EQ(road, ReadFile(golden));
    EXPECT_THAT(FontFilesInHome(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, Session, testing::ValuesIn(kSessionNames),
                         [](const auto& information) {
                             std::string name = information.param;
                             for (char& c : name) {
                                 if (c == '-') c = '_';
                             }
                             return name;
                         });
