#include <gmock/gmock.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ProgramFixture.h"

// Wrong plug-ins of kinds that no rule was written for: a sweep or random messages find them, and
// shrink what they found to a script of a few lines.
using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class FoundByChance : public ProgramFixture {
protected:
    // Validates a test plug-in, expects that it is found, and returns the lines of the shortest
    // script without the first two: what it is about, and "simulate".
    std::vector<std::string> Validate(const std::string& plugin, const std::string& options)
    {
        const std::string command =
            "cd '" + folder +
            "' && '" HEADLESS_HOST_PROGRAM "' validate '" TEST_PLUGINS_FOLDER "/" + plugin +
            ".aip' --profile any --output-dir found " + options + " >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        EXPECT_EQ(5, WEXITSTATUS(status)) << ReadFile("out") << ReadFile("err");
        std::vector<std::string> shortest;
        std::error_code ignored;
        for (const auto& entry : std::filesystem::directory_iterator(folder + "/found", ignored)) {
            if (entry.path().extension() != ".session") continue;
            std::vector<std::string> lines = ReadLines(entry.path());
            if (!shortest.empty() && lines.size() >= shortest.size()) continue;
            shortest = std::move(lines);
        }
        EXPECT_LE(2U, shortest.size()) << ReadFile("out");
        shortest.erase(shortest.begin(),
                       shortest.begin() + std::min<std::ptrdiff_t>(
                                              2, static_cast<std::ptrdiff_t>(shortest.size())));
        return shortest;
    }

private:
    static std::vector<std::string> ReadLines(const std::string& path)
    {
        std::vector<std::string> lines;
        std::ifstream stream(path);
        for (std::string line; std::getline(stream, line);) lines.push_back(line);
        return lines;
    }
};

}  // namespace

TEST_F(FoundByChance, TheRulesWithoutChanceFindNothing)
{
    for (const char* const plugin :
         {"stays-busy-after-failure", "forgets-fonts-between-saves", "runs-out-of-reminders"}) {
        const std::string command =
            "'" HEADLESS_HOST_PROGRAM "' validate '" TEST_PLUGINS_FOLDER "/" + std::string(plugin) +
            ".aip' --profile any --level 4 >'" + folder + "/out' 2>&1 </dev/null";
        EXPECT_EQ(0, std::system(command.c_str())) << plugin << ReadFile("out");
    }
}

TEST_F(FoundByChance, ASweepFindsALockThatAFailureLeavesTaken)
{
    const std::vector<std::string> lines = Validate("stays-busy-after-failure", "--rule 1501");
    EXPECT_GT(10U, lines.size()) << testing::PrintToString(lines);
    EXPECT_THAT(lines, Contains(StartsWith("fail-call ")));
    EXPECT_THAT(ReadFile("out"), HasSubstr("crashed: SIGABRT"));
}

TEST_F(FoundByChance, RandomMessagesFindAnOrderThatNoRuleHas)
{
    const std::vector<std::string> lines =
        Validate("forgets-fonts-between-saves", "--rule 1601 --seed 1 --count 4000");
    EXPECT_GT(10U, lines.size()) << testing::PrintToString(lines);
    EXPECT_THAT(lines, Contains("fonts-changed"));
    EXPECT_EQ(2, std::count_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line.rfind("save", 0) == 0; }))
        << testing::PrintToString(lines);
    // By a signal, or by the report of a sanitizer.
    EXPECT_THAT(ReadFile("out"), HasSubstr("broken: rule 302"));
}

TEST_F(FoundByChance, RandomMessagesFindACountThatNoRuleReaches)
{
    const std::vector<std::string> lines =
        Validate("runs-out-of-reminders", "--rule 1601 --seed 1 --count 4000");
    EXPECT_GT(10U, lines.size()) << testing::PrintToString(lines);
    EXPECT_THAT(lines, Contains(StartsWith("tick ")));
    EXPECT_THAT(ReadFile("out"), HasSubstr("broken: rule 302"));
}
