// main() of the tests over GNUstep. The tests run in a child with a home folder of its own; when it
// has ended, however it did, whatever it has started ends as well.

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

// Ends what the child has left running. Each has a moment to take its own files away.
void ReapTheRest()
{
    for (int tries = 0; tries < 200; ++tries) {
        const pid_t ended = waitpid(-1, nullptr, WNOHANG);
        if (ended == -1) return;
        if (ended == 0) (void)usleep(10000);
    }
    std::fprintf(stderr, "a process of the test doesn't end\n");
    std::abort();
}

int Supervise(char** arguments)
{
    const GNUstepHome home;
    // Processes that outlive the child come to this one.
    if (prctl(PR_SET_CHILD_SUBREAPER, 1) != 0) return 2;
    home.Enter();
    if (setenv(kInside, "1", 1) != 0) return 2;
    const pid_t child = fork();
    if (child == 0) RunInside(arguments);
    int status = 0;
    if (child == -1 || waitpid(child, &status, 0) != child) return 2;
    ReapTheRest();
    if (WIFSIGNALED(status)) std::fprintf(stderr, "ended by signal %d\n", WTERMSIG(status));
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace

int main(int count, char** arguments)
{
    // googletest takes its own arguments out of the list; the child wants them all.
    std::vector<char*> all(arguments, arguments + count + 1);
    testing::InitGoogleMock(&count, arguments);
    const bool isInside = getenv(kInside) != nullptr;
    if (isInside || testing::GTEST_FLAG(list_tests)) return RunTests();
    return Supervise(all.data());
}
