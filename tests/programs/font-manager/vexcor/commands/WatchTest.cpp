#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <thread>

#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// Waits without a limit of its own: the time limit of the test ends it.
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

TEST_F(WatchTest, EndsInOrderAfterASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        const auto daemon = StartDaemon();
        EXPECT_EQ(vexcor::kSuccess, End(*daemon, signal));
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
    EXPECT_EQ(home.GetLibrary() / "other/deep/DejaVuSerif.ttf",
              OpenServices().library.Find("DejaVuSerif"));
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
}

// What a host that starts now has to do for the index: the files it reads and those it removes.
int64_t StartHost()
{
    plugincore::Services host(plugincore::GetLocations());
    (void)host.Start("a host");  // there is nothing to repair
    const plugincore::FontLibrary::Counts counts = host.library.GetCounts();
    host.Stop();
    return counts.filesRead + counts.filesGone;
}

TEST_F(WatchTest, AHostThatStartsAfterAChangeFindsTheIndexFresh)
{
    const fs::path aside = FontTestHome::CopyFont("DejaVuSans", home.GetPath() / "aside");
    const fs::path serif = FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary() / "House");
    const fs::path sans = home.GetLibrary() / "DejaVuSans.ttf";
    const std::string log = home.GetPath() / "log";
    const auto daemon = StartDaemon({"--log", log});
    EXPECT_EQ(0, StartHost());
    // Each is one event, so that the index is refreshed once and afterwards.
    const std::vector<std::function<void()>> changes = {
        [&] { fs::rename(aside, sans); },
        [&] { std::ofstream(sans, std::ios::app) << "more"; },
        [&] { fs::last_write_time(sans, fs::last_write_time(sans) - std::chrono::hours(1)); },
        [&] { fs::rename(serif, home.GetLibrary() / "House/Other.ttf"); },
        [&] { fs::rename(home.GetLibrary() / "House", home.GetLibrary() / "Home"); },
        [&] { fs::remove(sans); }};
    for (size_t change = 0; change < changes.size(); ++change) {
        const size_t before = ReadFile(log).size();
        changes[change]();
        WaitUntil([&] { return ReadFile(log).find("index: ", before) != std::string::npos; });
        EXPECT_EQ(0, StartHost()) << change;
    }
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
    // Without Vexcor watch the host itself reads what has changed.
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    EXPECT_EQ(1, StartHost());
    EXPECT_EQ(0, StartHost());
}

TEST_F(WatchTest, WatchesFoldersThatAreAdded)
{
    const auto daemon = StartDaemon();
    const fs::path folder = home.GetPath() / "mine";
    fs::create_directory(folder);
    EXPECT_EQ(vexcor::kSuccess, Run({"add", folder}));
    FontTestHome::CopyFont("DejaVuSans", folder);
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
}

TEST_F(WatchTest, WatchesALibraryThatIsCreatedLater)
{
    fs::remove(home.GetLibrary());
    const auto daemon = StartDaemon();
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
}

TEST_F(WatchTest, ASecondDaemonNamesTheFirstAndEnds)
{
    const auto daemon = StartDaemon();
    EXPECT_EQ(vexcor::kNegative, Run({"watch"}));
    EXPECT_EQ("Vexcor: already running: Vexcor watch (process " +
                  std::to_string(daemon->GetNumber()) + ")\n",
              output);
    EXPECT_EQ(-SIGKILL, End(*daemon, SIGKILL));
    const auto next = StartDaemon();
    EXPECT_EQ(vexcor::kSuccess, End(*next, SIGTERM));
}

TEST_F(WatchTest, DeactivatesTheFontsOfAKilledProgram)
{
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const std::string log = home.GetPath() / "log";
    const auto daemon = StartDaemon({"--log", log});
    const pid_t child = fork();
    if (child == 0) {
        (void)prctl(PR_SET_PDEATHSIG, SIGKILL);  // never outlives the test
        plugincore::Services services(plugincore::GetLocations());
        (void)services.Start("a host");  // what it repairs doesn't matter
        services.activation.Activate("/a.ai", {"DejaVuSans"});
        pause();
        _exit(0);
    }
    WaitUntil([] { return !FontTestHome::ListOfOtherProcess().empty(); });
    // The font remains active while the holder runs, also after a check or two.
    WaitUntil([&] { return Run({"why", "DejaVuSans"}) == vexcor::kSuccess; });
    kill(child, SIGKILL);
    EXPECT_EQ(child, waitpid(child, nullptr, 0));
    WaitUntil([] { return FontTestHome::ListOfOtherProcess().empty(); });
    WaitUntil([&] { return ReadFile(log).find("nobody holds it") != std::string::npos; });
    EXPECT_THAT(ReadFile(log), HasSubstr("a program is gone: a host (process "));
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
}

TEST_F(WatchTest, WaitsForABusyDatabase)
{
    const auto daemon = StartDaemon();
    {
        const plugincore::Transaction busy(OpenServices().database);
        FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    ExpectInIndex({"DejaVuSans"});
    EXPECT_EQ(vexcor::kSuccess, End(*daemon, SIGTERM));
}

}  // namespace
