#include "base/ProcessGroup.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

#include "ScratchFolder.h"
#include "WithoutRootRights.h"
#include "base/FileDescriptor.h"
#include "base/ReadWrite.h"

using base::FileDescriptor;
using base::ProcessGroup;

namespace {

void PauseForEver()
{
    for (;;) pause();
}

// A pipe whose end is seen as soon as no process holds its other side any more.
struct EndNotice {
    EndNotice()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        reader = FileDescriptor(ends[0]);
        writer = FileDescriptor(ends[1]);
    }
    // Waits; the test's time limit ends it.
    std::string ReadToEnd()
    {
        EXPECT_FALSE(writer.Close());
        std::string bytes;
        EXPECT_FALSE(base::ReadUpTo(reader.Get(), 100, bytes));
        return bytes;
    }
    FileDescriptor reader;
    FileDescriptor writer;
};

TEST(ProcessGroupTest, TheExitStatusIsReturned)
{
    ProcessGroup process = ProcessGroup::Fork([] { _exit(3); });
    EXPECT_TRUE(process.IsRunning());
    const base::ProcessEnd end = process.Wait();
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(base::Describe(end), "ended with status 3");
    EXPECT_FALSE(process.IsRunning());
}

TEST(ProcessGroupTest, ASignalIsReported)
{
    ProcessGroup process = ProcessGroup::Fork([] { (void)raise(SIGKILL); });
    const base::ProcessEnd end = process.Wait();
    EXPECT_EQ(end.status, -1);
    EXPECT_EQ(end.signal, SIGKILL);
    EXPECT_EQ(base::Describe(end), "ended by Killed");
}

TEST(ProcessGroupTest, AFunctionThatReturnsEndsTheProcess)
{
    ProcessGroup process = ProcessGroup::Fork([] {});
    EXPECT_EQ(process.Wait().status, 127);
}

TEST(ProcessGroupTest, KillReportsTheEarlierEnd)
{
    ProcessGroup process = ProcessGroup::Fork([] { _exit(4); });
    while (!process.HasEnded()) usleep(1000);
    EXPECT_TRUE(process.IsRunning());
    EXPECT_EQ(process.Kill().status, 4);
}

TEST(ProcessGroupTest, KillEndsWhatTheProcessHasStarted)
{
    EndNotice notice;
    ProcessGroup process = ProcessGroup::Fork([&notice] {
        if (fork() == 0) PauseForEver();
        (void)base::WriteAll(notice.writer.Get(), "forked");
        PauseForEver();
    });
    std::string ready;
    ASSERT_FALSE(base::ReadUpTo(notice.reader.Get(), 6, ready));
    EXPECT_FALSE(process.HasEnded());
    EXPECT_EQ(process.Kill().signal, SIGKILL);
    EXPECT_EQ(notice.ReadToEnd(), "");
}

TEST(ProcessGroupTest, TheRestIsKilledAfterTheLeaderHasEnded)
{
    EndNotice notice;
    ProcessGroup process = ProcessGroup::Fork([] {
        if (fork() == 0) PauseForEver();
        _exit(5);
    });
    EXPECT_EQ(process.WaitAndKillRest().status, 5);
    EXPECT_EQ(notice.ReadToEnd(), "");
}

TEST(ProcessGroupTest, TheRestSurvivesWait)
{
    EndNotice notice;
    EndNotice order;
    ProcessGroup process = ProcessGroup::Fork([&] {
        if (fork() != 0) _exit(0);
        char byte = 0;
        // The parent's byte comes after the leader's end.
        if (base::ReadExactly(order.reader.Get(), &byte, 1)) {
            (void)base::WriteAll(notice.writer.Get(), "alive");
        }
        _exit(0);
    });
    EXPECT_EQ(process.Wait().status, 0);
    ASSERT_FALSE(base::WriteAll(order.writer.Get(), "x"));
    EXPECT_EQ(notice.ReadToEnd(), "alive");
}

TEST(ProcessGroupTest, TheDestructorKills)
{
    EndNotice notice;
    {
        const ProcessGroup process = ProcessGroup::Fork(PauseForEver);
    }
    EXPECT_EQ(notice.ReadToEnd(), "");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(ProcessGroupTest, ASignalReachesTheGroup)
{
    ProcessGroup process = ProcessGroup::Fork(PauseForEver);
    process.SendSignal(SIGTERM);
    EXPECT_EQ(process.Wait().signal, SIGTERM);
    process.SendSignal(SIGTERM);
}

TEST(ProcessGroupTest, WaitContinuesAfterASignal)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};  // without SA_RESTART
    struct sigaction before = {};
    ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
    const pid_t parent = getpid();
    ProcessGroup process = ProcessGroup::Fork([parent] {
        for (int i = 0; i < 20; ++i) {
            (void)kill(parent, SIGUSR1);
            usleep(1000);
        }
        _exit(6);
    });
    EXPECT_EQ(process.Wait().status, 6);
    ASSERT_EQ(sigaction(SIGUSR1, &before, nullptr), 0);
}

TEST(ProcessGroupTest, WithoutAProcessThereIsNothingToWaitFor)
{
    ProcessGroup process;
    EXPECT_FALSE(process.IsRunning());
    EXPECT_EQ(process.Wait().status, -1);
    EXPECT_EQ(process.Kill().status, -1);
    EXPECT_EQ(process.WaitAndKillRest().status, -1);
}

TEST(ProcessGroupTest, AMoveLeavesOneOwner)
{
    ProcessGroup first = ProcessGroup::Fork(PauseForEver);
    ProcessGroup second(std::move(first));
    ProcessGroup third;
    third = std::move(second);
    EXPECT_TRUE(third.IsRunning());
    EXPECT_EQ(third.Kill().signal, SIGKILL);
}

// In a process of its own: a limit can't be raised again.
TEST(ProcessGroupTest, ALimitOfProcessesIsReported)
{
    const ScratchFolder folder;
    const auto start = [&folder] {
        const WithoutRootRights nobody(folder.Path());
        base::LimitResource(RLIMIT_NPROC, 0);
        const ProcessGroup process = ProcessGroup::Fork([] { _exit(0); });
        std::_Exit(!process.IsRunning() && errno == EAGAIN ? 0 : 1);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0), "");
}

TEST(ProcessGroupTest, ALimitHoldsForTheChild)
{
    ProcessGroup process = ProcessGroup::Fork([] {
        base::LimitResource(RLIMIT_CORE, 0);
        base::LimitResource(RLIMIT_FSIZE, 4096);
        struct rlimit limit = {};
        (void)getrlimit(RLIMIT_FSIZE, &limit);
        _exit(limit.rlim_cur == 4096 && limit.rlim_max == 4096 ? 0 : 1);
    });
    EXPECT_EQ(process.Wait().status, 0);
}

// The process that called Fork is killed; its child must end as well.
TEST(ProcessGroupTest, TheChildEndsWithItsParent)
{
    EndNotice notice;
    ProcessGroup parent = ProcessGroup::Fork([&notice] {
        const ProcessGroup child = ProcessGroup::Fork([&notice] {
            (void)base::WriteAll(notice.writer.Get(), "ready");
            PauseForEver();
        });
        PauseForEver();
    });
    std::string ready;
    ASSERT_FALSE(base::ReadUpTo(notice.reader.Get(), 5, ready));
    (void)parent.Kill();  // doesn't reach the child, which leads a group of its own
    EXPECT_EQ(notice.ReadToEnd(), "");
}

}  // namespace
