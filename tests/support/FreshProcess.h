#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>

#ifdef TYPELOFT_CASE_IS_A_PROCESS

// Runs the body in this process, since macOS forbids AppKit in a child of fork(). Refuses to run it
// beside other tests: ctest starts a process for each.
template <class Body>
void InFreshProcess(Body body)
{
    ASSERT_EQ(1, testing::UnitTest::GetInstance()->test_to_run_count())
        << "this test changes its process; run it alone, as ctest does";
    body();
}

#else

// Runs the body in a child process, so that its changes to statics and to the environment don't
// reach other tests. A failure or an exception in the body, or a crash, fails the test.
template <class Body>
void InFreshProcess(Body body)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    ASSERT_NE(-1, child);
    if (child == 0) {
        int status = 0;
        try {
            body();
            status = testing::Test::HasFailure() ? 1 : 0;
        } catch (const std::exception& exception) {
            std::printf("exception in a fresh process: %s\n", exception.what());
            status = 2;
        } catch (...) {
            std::printf("exception in a fresh process\n");
            status = 2;
        }
        std::fflush(nullptr);
        _exit(status);
    }
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(0, WEXITSTATUS(status));
}

#endif
