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
        if (entry.at("op") == "GetSocketPort") entry["result"] = "a port";
        road += entry.at("side").get<std::string>() + " | " + entry.at("op").get<std::string>() +
                " | " + entry.at("args").dump() + " | " + entry.at("result").dump() + "\n";
    }
    ReplaceAll(road, scratch.string(), "SCRATCH");
    const std::filesystem::path golden = std::string(GOLDEN_FOLDER) + "/road-of-one-file.txt";
    if (std::getenv("UPDATE_GOLDEN") != nullptr) WriteFile(golden, road);
    EXPECT_EQ(road, ReadFile(golden));
}
