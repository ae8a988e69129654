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
    for (unsigned killed = 0; killed < kills;) {
        StartAll();
        std::string names;
        for (const std::string& victim : KillSome(kills - killed)) {
            ++victims[victim];
            names += " " + victim;
            if (++killed % 100 == 0) std::cout << "kills: " << killed << std::endl;
        }
        EXPECT_EQ("", FindBrokenSave(false)) << "after kill " << killed << ":" << names;
        std::string found = FindDisagreement();
        if (!found.empty()) ++left[found.substr(0, found.find(':'))];
        // Waits without a limit of its own: the time limit of the test ends it.
        for (int turn = 1; !found.empty(); found = FindDisagreement(), ++turn) {
            ASSERT_FALSE(HasFailure()) << "after kill " << killed << ":" << names;
            Sleep(10);
            // The others may have come to the end of their scripts.
            if (turn % 200 == 0) StartAll();
        }
        ASSERT_FALSE(HasFailure()) << "after kill " << killed << ":" << names;
    }
    StartAll();
    EndAll();
    EXPECT_EQ("", FindDisagreement());
    // The next start of any host removes what a saver that was killed had begun to write.
    ASSERT_EQ(0, PlayShortScript()) << output;
    EXPECT_EQ("", FindBrokenSave(true));
    EXPECT_TRUE(OpenServices().activation.GetActive().empty());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::ElementsAre("DejaVuSansMono"));
    // Otherwise the programs were idle and the kills proved nothing.
    EXPECT_GT(CountActivations(), static_cast<int64_t>(kills / 8));
    std::cout << "activations: " << CountActivations() << std::endl;
    for (const auto& [victim, count] : victims)
        std::cout << "killed " << count << " times: " << victim << std::endl;
    for (const auto& [what, count] : CountRepairs())
        std::cout << "in Vexcor's log " << count << " times: " << what << std::endl;
    for (const auto& [what, count] : left)
        std::cout << "found immediately after " << count << " kills: " << what << std::endl;
}
