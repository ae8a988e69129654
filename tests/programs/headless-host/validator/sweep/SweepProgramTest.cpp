#include <sys/wait.h>

#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ProgramFixture.h"

// Sweeps over the plug-in meets-faults: at its start it acquires one suite and allocates once, and
// it releases the suite at its shutdown.
class SweepProgram : public ProgramFixture {
protected:
    // The names of the cases of a rule, and how they ended.
    std::map<std::string, std::string> Validate(const std::string& rule)
    {
        const std::string command = "cd '" + folder +
                                    "' && '" HEADLESS_HOST_PROGRAM
                                    "' validate '" TEST_PLUGINS_FOLDER
                                    "/meets-faults.aip' --json --rule " +
                                    rule + " >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        EXPECT_EQ(0, WEXITSTATUS(status)) << ReadFile("out") << ReadFile("err");
        std::map<std::string, std::string> cases;
        std::istringstream lines(ReadFile("out"));
        for (std::string line; std::getline(lines, line);) {
            const nlohmann::json row = nlohmann::json::parse(line);
            if (!row.contains("case")) continue;
            cases[row.at("case")] = row.at("outcome");
        }
        return cases;
    }
};

TEST_F(SweepProgram, EachCountedCallFailsInEachWay)
{
    const std::map<std::string, std::string> cases = Validate("1502");
    for (const auto& [name, result] : cases) EXPECT_EQ("passed", result) << name;
    EXPECT_EQ(4U * 5, cases.size()) << "three scenarios start it, one shuts it down";
    EXPECT_EQ(1U, cases.count("startup: fail-call 1 throw:int"));
    EXPECT_EQ(1U, cases.count("shutdown: fail-call 1 throw:foreign"));
}

TEST_F(SweepProgram, EachCountedAllocationFails)
{
    const std::map<std::string, std::string> cases = Validate("1504");
    for (const auto& [name, result] : cases) EXPECT_EQ("passed", result) << name;
    EXPECT_EQ(3U, cases.size());
    EXPECT_EQ(1U, cases.count("startup: fail-allocation 1"));
}
