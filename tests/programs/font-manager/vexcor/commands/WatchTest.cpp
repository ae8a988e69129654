#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <thread>

#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// The time limit of the test ends what never comes.
void WaitUntil(const std::function<bool()>& isSo)
{
    while (!isSo()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

class WatchTest : public VexcorScene {
protected:
    std::vector<std::string> ListIndex()
    {
        OpenServices().ApplyLibraryChoice();
        return OpenServices().library.ListNames("", 0, 100);
    }
    void ExpectInIndex(const std::vector<std::string>& names)
    {
        WaitUntil([&] { return ListIndex() == names; });
    }
    static int End(ChildProcess& daemon, int signal)
    {
        daemon.Send(signal);
        return daemon.Wait();
    }
};

TEST_F(WatchTest, EndsCleanlyWhenAsked)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        const auto daemon = StartDaemon();
        EXPECT_EQ(End(*daemon, signal), vexcor::kDone);
        EXPECT_TRUE(OpenServices().programs.ListGone().empty());
    }
}

TEST_F(WatchTest, TheIndexFollowsTheLibrary)
{
    const auto daemon = StartDaemon();
    const fs::path file = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    ExpectInIndex({"DejaVuSans"});
    FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary() / "new/deep");
    ExpectInIndex({"DejaVuSans", "DejaVuSerif"});
    fs::remove(file);
    fs::rename(home.GetLibrary() / "new", home.GetLibrary() / "other");
    ExpectInIndex({"DejaVuSerif"});
    EXPECT_EQ(OpenServices().library.Find("DejaVuSerif"),
              home.GetLibrary() / "other/deep/DejaVuSerif.ttf");
    EXPECT_EQ(End(*daemon, SIGTERM), vexcor::kDone);
}

TEST_F(WatchTest, FoldersThatAreAddedAreKeptToo)
{
    const auto daemon = StartDaemon();
    const fs::path folder = home.GetPath() / "mine";
    fs::create_directory(folder);
    EXPECT_EQ(Run({"add", folder}), vexcor::kDone);
    FontTestHome::CopyFont("DejaVuSans", folder);
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(End(*daemon, SIGTERM), vexcor::kDone);
}

TEST_F(WatchTest, ALibraryThatComesLaterIsKept)
{
    fs::remove(home.GetLibrary());
    const auto daemon = StartDaemon();
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(End(*daemon, SIGTERM), vexcor::kDone);
}

TEST_F(WatchTest, ASecondOneIsToldOfTheFirst)
{
    const auto daemon = StartDaemon();
    EXPECT_EQ(Run({"watch"}), vexcor::kNegative);
    EXPECT_EQ(output, "Vexcor: runs already: Vexcor watch (process " +
                          std::to_string(daemon->GetNumber()) + ")\n");
    EXPECT_EQ(End(*daemon, SIGKILL), -SIGKILL);
    const auto next = StartDaemon();
    EXPECT_EQ(End(*next, SIGTERM), vexcor::kDone);
}

TEST_F(WatchTest, NoticesThatAHolderWasKilled)
{
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const std::string log = home.GetPath() / "log";
    const auto daemon = StartDaemon({"--log", log});
    const pid_t child = fork();
    if (child == 0) {
        (void)prctl(PR_SET_PDEATHSIG, SIGKILL);  // ends with the test at the latest
        plugincore::Services services(plugincore::GetLocations());
        (void)services.Start("a host");  // what it repairs isn't asked for
        services.activation.Activate("/a.ai", {"DejaVuSans"});
        pause();
        _exit(0);
    }
    WaitUntil([] { return !FontTestHome::ListOfOtherProcess().empty(); });
    // It stays active for as long as the holder runs: a look or two change nothing.
    WaitUntil([&] { return Run({"why", "DejaVuSans"}) == vexcor::kDone; });
    kill(child, SIGKILL);
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
    WaitUntil([] { return FontTestHome::ListOfOtherProcess().empty(); });
    WaitUntil([&] { return ReadFile(log).find("nobody holds it") != std::string::npos; });
    EXPECT_THAT(ReadFile(log), HasSubstr("a program is gone: a host (process "));
    EXPECT_EQ(End(*daemon, SIGTERM), vexcor::kDone);
}

TEST_F(WatchTest, ADatabaseInUseIsWaitedFor)
{
    const auto daemon = StartDaemon();
    {
        const plugincore::Transaction busy(OpenServices().database);
        FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(End(*daemon, SIGTERM), vexcor::kDone);
}

}  // namespace
