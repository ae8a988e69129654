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

// Kills Vexcor or a host at random moments. The database must be intact after every kill, and the
// remaining programs must repair what the killed one left: tables, activation folder and fontconfig
// agree, and every active font has a holder.
TEST_F(KillScene, TheOtherProgramsRepairWhatAKilledOneLeft)
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
        // Waits without a limit of its own: the time limit of the test ends it.
        for (; !found.empty(); found = FindDisagreement()) {
            ASSERT_FALSE(HasFailure()) << "after kill " << kill << ", of " << victim;
            Sleep(10);
        }
        ASSERT_FALSE(HasFailure()) << "after kill " << kill << ", of " << victim;
        if (kill % 100 == 0) std::cout << "kills: " << kill << std::endl;
    }
    StartAll();
    EndAll();
    EXPECT_EQ("", FindDisagreement());
    EXPECT_TRUE(OpenServices().activation.GetActive().empty());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::ElementsAre("DejaVuSansMono"));
    // Otherwise the programs were idle and the kills proved nothing.
    EXPECT_GT(CountActivations(), static_cast<int64_t>(kills));
    std::cout << "activations: " << CountActivations() << std::endl;
    for (const auto& [victim, count] : victims)
        std::cout << "killed " << count << " times: " << victim << std::endl;
    for (const auto& [what, count] : CountRepairs())
        std::cout << "in Vexcor's log " << count << " times: " << what << std::endl;
    for (const auto& [what, count] : left)
        std::cout << "found immediately after " << count << " kills: " << what << std::endl;
}
