// main() of the tests over GNUstep. The tests run in a child process with its own home folder. When
// the child has ended, normally or not, this process waits for all processes that it started.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "GNUstepHome.h"
#import "PoolOfEachTest.h"

namespace {

constexpr char kInside[] = "TYPELOFT_TEST_HOME";

int RunTests()
{
    testing::UnitTest::GetInstance()->listeners().Append(new PoolOfEachTest);
    return RUN_ALL_TESTS();
}

[[noreturn]] void RunInside(char** arguments)
{
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
    execv("/proc/self/exe", arguments);
    _exit(127);
}

// Waits up to two seconds until the processes that the child started have ended and removed their
// files. Aborts if one is still running.
void ReapTheRest()
{
    for (int tries = 0; tries < 200; ++tries) {
        const pid_t ended = waitpid(-1, nullptr, WNOHANG);
        if (ended == -1) return;
        if (ended == 0) (void)usleep(10000);
    }
    std::fprintf(stderr, "a process that the test started is still running\n");
    std::abort();
}

int Supervise(char** arguments)
{
    const GNUstepHome home;
    // This process becomes the parent of processes that outlive the child.
    if (prctl(PR_SET_CHILD_SUBREAPER, 1) != 0) return 2;
    home.Enter();
    if (setenv(kInside, "1", 1) != 0) return 2;
    const pid_t child = fork();
    if (child == 0) RunInside(arguments);
    int status = 0;
    if (child == -1 || waitpid(child, &status, 0) != child) return 2;
    ReapTheRest();
    if (WIFSIGNALED(status))
        std::fprintf(stderr, "the tests were ended by signal %d\n", WTERMSIG(status));
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace

int main(int count, char** arguments)
{
    // googletest removes its own arguments from the list, but the child needs all of them.
    std::vector<char*> all(arguments, arguments + count + 1);
    testing::InitGoogleMock(&count, arguments);
    const bool isInside = getenv(kInside) != nullptr;
    if (isInside || testing::GTEST_FLAG(list_tests)) return RunTests();
    return Supervise(all.data());
}
