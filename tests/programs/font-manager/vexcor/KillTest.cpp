#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>
#include <thread>

#include "KillScene.h"

namespace {

unsigned GetNumber(const char* variable, unsigned fallback)
{
    const char* const text = std::getenv(variable);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : fallback;
}

void Sleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace

// With Vexcor or a host killed at a random moment the others put right what it left: the database
// is whole at every look, and before long tables, folder and fontconfig agree and no font is active
// that nobody holds.
TEST_F(KillScene, WhoeverIsKilledTheOthersPutItRight)
{
    const unsigned kills = GetNumber("KILLS", 15);
    const unsigned seed = GetNumber("SEED", std::random_device()());
    std::cout << "KILLS=" << kills << " SEED=" << seed << std::endl;
    Begin(seed);
    std::map<std::string, int> victims;
    std::map<std::string, int> left;
    for (unsigned kill = 1; kill <= kills; ++kill) {
        StartAll();
        const std::string victim = KillOne();
        ++victims[victim];
        std::string found = FindDisagreement();
        if (!found.empty()) ++left[found.substr(0, found.find(':'))];
        // The time limit of the test ends what never comes right.
        for (; !found.empty(); found = FindDisagreement()) {
            ASSERT_FALSE(HasFailure()) << "after kill " << kill << ", of " << victim;
            Sleep(10);
        }
        ASSERT_FALSE(HasFailure()) << "after kill " << kill << ", of " << victim;
    }
    StartAll();
    EndAll();
    EXPECT_EQ(FindDisagreement(), "");
    EXPECT_TRUE(OpenServices().activation.GetActive().empty());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::ElementsAre("DejaVuSansMono"));
    // Kills of programs that do nothing would show nothing.
    EXPECT_GT(CountActivations(), static_cast<int64_t>(kills));
    std::cout << "activations: " << CountActivations() << std::endl;
    for (const auto& [victim, count] : victims)
        std::cout << "killed " << count << " times: " << victim << std::endl;
    for (const auto& [what, count] : CountRepairs())
        std::cout << "in Vexcor's log " << count << " times: " << what << std::endl;
    for (const auto& [what, count] : left)
        std::cout << "found right after " << count << " kills: " << what << std::endl;
}
