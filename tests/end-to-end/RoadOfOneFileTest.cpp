#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

#include "EndToEnd.h"

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

}  // namespace

// Compares the journal of a whole run, without the number and time of its lines, with the golden
// file. UPDATE_GOLDEN=1 in the environment writes the golden file.
TEST_F(EndToEnd, TheJournalOfOneFileEqualsTheGoldenFile)
{
    ASSERT_EQ(0, Open(Sample("leaflet.eps") + " --json --journal journal")) << errors;
    std::string road;
    std::istringstream lines(ReadFile(scratch / "journal"));
    for (std::string line; std::getline(lines, line);) {
        auto entry = nlohmann::json::parse(line);
        // What is there for replays, such as the times of files, differs from run to run.
        const std::string side = entry.at("side");
        const std::string operation = entry.at("op");
        if (side == "world" || operation == "journal" || operation == "rebuild menu") continue;
        if (side == "host" && entry.at("args").is_object()) {
            entry["args"].erase("handle");
            entry["args"].erase("pathHandle");
        }
        if (operation == "GetSocketPort") entry["result"] = "a port";
        road += side + " | " + operation + " | " + entry.at("args").dump() + " | " +
                entry.at("result").dump() + "\n";
    }
    ReplaceAll(road, scratch.string(), "SCRATCH");
    const std::filesystem::path golden = std::string(GOLDEN_FOLDER) + "/road-of-one-file.txt";
    if (std::getenv("UPDATE_GOLDEN") != nullptr) WriteFile(golden, road);
    EXPECT_EQ(road, ReadFile(golden));
}
