#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "CoreTestHome.h"
#include "plugin-core/services/Services.h"

namespace {

using plugincore::Services;
using testing::ElementsAre;
using testing::IsEmpty;

// Kills programs at the worst moment: the folder is changed and the tables aren't yet.
class KilledProcessTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"}) {
            FontTestHome::CopyFont(name, mHome.GetLibrary());
        }
    }

    // Starts a child process that calls `work` and then `last`, and is killed when `last` commits.
    template <class Work, class Last>
    static void RunKilled(Work work, Last last)
    {
        const pid_t child = fork();
        if (child == 0) {
            Services services(plugincore::GetLocations());
            (void)services.Start();  // the list of repairs isn't needed here
            work(services);
            sqlite3_commit_hook(
                services.database.GetConnection(), [](void*) { return raise(SIGKILL); }, nullptr);
            last(services);
            _exit(1);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    }

    static void DoNothing(Services&) {}
    static void ActivateTwo(Services& services)
    {
        services.activation.Activate("/killed.ai", {"DejaVuSans", "DejaVuSerif"});
    }

    FontTestHome mHome;
};

TEST_F(KilledProcessTest, StartRevertsAnUncommittedActivation)
{
    RunKilled(DoNothing, ActivateTwo);
    ASSERT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    Services services(plugincore::GetLocations());
    const plugincore::Activation::Repairs repairs = services.Start();
    EXPECT_EQ(1U, repairs.gonePrograms.size());
    EXPECT_THAT(repairs.folderChanges, ElementsAre("removed group 1, which isn't in the database"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(KilledProcessTest, ActivationOfAnotherProcessRevertsAnUncommittedOne)
{
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    RunKilled(DoNothing, ActivateTwo);
    const auto outcome = services.activation.Activate("/a.ai", {"DejaVuSansMono"});
    EXPECT_THAT(outcome.activated, ElementsAre("DejaVuSansMono"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
}

// A process that is killed between its change and the new time of the folder can leave the time
// that fontconfig's cache has.
TEST_F(KilledProcessTest, RepairShowsFontsToAFontconfigWhoseCacheHasTheTimeOfTheFolder)
{
    namespace fs = std::filesystem;
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    (void)services.activation.Activate("/a.ai", {"DejaVuSansMono"});
    const fs::path folder = services.locations.activationFolder / "01";
    const fs::file_time_type time = fs::last_write_time(folder) - std::chrono::hours(1);
    fs::rename(folder / "g1", mHome.GetPath() / "g1");
    fs::last_write_time(folder, time);
    ASSERT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    fs::rename(mHome.GetPath() / "g1", folder / "g1");
    fs::last_write_time(folder, time);
    ASSERT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    RunKilled(DoNothing, [](Services& killed) { killed.programs.Enter("killed"); });
    EXPECT_EQ(1U, services.activation.RepairIfNeeded().gonePrograms.size());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
}

TEST_F(KilledProcessTest, StartFinishesAnUncommittedDeactivation)
{
    RunKilled(ActivateTwo, [](Services& services) { services.activation.ReleaseAll(); });
    Services services(plugincore::GetLocations());
    EXPECT_THAT(services.activation.GetActive(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    const plugincore::Activation::Repairs repairs = services.Start();
    EXPECT_THAT(repairs.droppedHolds,
                ElementsAre("DejaVuSans for /killed.ai", "DejaVuSerif for /killed.ai"));
    EXPECT_THAT(services.activation.GetActive(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(KilledProcessTest, RepairRestoresFontsThatAnotherProcessHolds)
{
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    services.activation.Activate("/a.ai", {"DejaVuSansMono"});
    // The child removes the folder and is killed before it can record that.
    RunKilled(DoNothing, [this](Services& killed) {
        std::filesystem::remove_all(mHome.GetUserFonts() / "corvanta");
        killed.activation.Hold("/b.ai", {"DejaVuSansMono"});
    });
    const plugincore::Activation::Repairs repairs = services.activation.RepairIfNeeded();
    EXPECT_THAT(repairs.folderChanges, ElementsAre("restored group 1, 1 file"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
    EXPECT_TRUE(services.activation.RepairIfNeeded().IsEmpty());
}

TEST_F(KilledProcessTest, RepairDeletesBlankDocumentsOfAKilledProcess)
{
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    std::string id;
    RunKilled([](Services& killed) { EXPECT_NE("", killed.documentStore.AddBlank()); },
              ActivateTwo);
    EXPECT_EQ(1U, services.activation.RepairIfNeeded().gonePrograms.size());
    plugincore::Statement blanks(services.database, "SELECT COUNT(*) FROM document");
    ASSERT_TRUE(blanks.Step());
    EXPECT_EQ(0, blanks.GetNumber(0));
}

TEST_F(KilledProcessTest, IdleRepairsAfterAKilledProcess)
{
    const Framework core;
    ASSERT_TRUE(core.Start());
    RunKilled(ActivateTwo, [](Services&) { raise(SIGKILL); });
    ASSERT_FALSE(FontTestHome::ListOfOtherProcess().empty());
    while (!FontTestHome::ListOfOtherProcess().empty()) ASSERT_EQ(0U, core.pIdleEvent());
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
    EXPECT_EQ(0U, core.pTerminatePluginCoreInterface());
}

TEST_F(KilledProcessTest, FailedChangeLeavesFolderAndTablesUnchanged)
{
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    services.activation.Activate("/a.ai", {"DejaVuSans"});
    bool fails = true;
    const auto refuse = [](void* wanted) {
        const bool isWanted = *static_cast<bool*>(wanted);
        *static_cast<bool*>(wanted) = false;
        return isWanted ? 1 : 0;
    };
    sqlite3_commit_hook(services.database.GetConnection(), refuse, &fails);
    EXPECT_THROW(services.activation.Release("/a.ai"), plugincore::Failure);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    fails = true;
    EXPECT_THROW(services.activation.Activate("/b.ai", {"DejaVuSerif"}), plugincore::Failure);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    services.activation.Release("/a.ai");
    EXPECT_THAT(ListActivationFolder(mHome), IsEmpty());
}

TEST_F(KilledProcessTest, StopRemovesTheProgramFromTheList)
{
    Services services(plugincore::GetLocations());
    (void)services.Start("first name");  // there is nothing to repair
    EXPECT_EQ(1U, services.programs.List().size());
    EXPECT_THAT(services.programs.Describe(services.programs.List()[0].identity),
                testing::StartsWith("first name (process "));
    services.Stop();
    EXPECT_TRUE(services.programs.List().empty());
}

TEST_F(KilledProcessTest, EnterAloneGivesANameOnceAndAgainAfterAKill)
{
    Services services(plugincore::GetLocations());
    RunKilled([](Services& killed) { EXPECT_FALSE(killed.programs.EnterAlone("alone")); },
              ActivateTwo);
    EXPECT_FALSE(services.programs.EnterAlone("alone"));
    const pid_t child = fork();
    if (child == 0) {
        Services second(plugincore::GetLocations());
        _exit(second.programs.EnterAlone("alone") ? 0 : 1);
    }
    int status = -1;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    EXPECT_EQ(0, status);
    services.programs.Leave();
}

}  // namespace
