#include "base/Progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

#include "base/FileDescriptor.h"

using base::FileDescriptor;
using base::Progress;

namespace {

// Makes `descriptor` standard error until it is destroyed.
class StandardError {
public:
    explicit StandardError(int descriptor) : mBefore(dup(STDERR_FILENO))
    {
        EXPECT_EQ(dup2(descriptor, STDERR_FILENO), STDERR_FILENO);
    }
    ~StandardError() { (void)dup2(mBefore.Get(), STDERR_FILENO); }
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;

private:
    FileDescriptor mBefore;
};

class ProgressTest : public testing::Test {
protected:
    ProgressTest() : mScreen(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        EXPECT_EQ(grantpt(mScreen.Get()), 0);
        EXPECT_EQ(unlockpt(mScreen.Get()), 0);
        mTerminal = FileDescriptor(open(ptsname(mScreen.Get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
        EXPECT_TRUE(mTerminal.IsValid());
    }

    // What was printed on the terminal since the last call.
    std::string ReadScreen() const
    {
        std::string text;
        pollfd entry = {mScreen.Get(), POLLIN, 0};
        while (poll(&entry, 1, 0) > 0) {
            std::array<char, 1000> part;
            const ssize_t count = read(mScreen.Get(), part.data(), part.size());
            if (count <= 0) break;
            text.append(part.data(), static_cast<size_t>(count));
        }
        return text;
    }

    FileDescriptor mScreen;
    FileDescriptor mTerminal;
};

TEST_F(ProgressTest, EachLineReplacesTheOneBefore)
{
    const StandardError standardError(mTerminal.Get());
    {
        Progress progress(20, 2);
        EXPECT_EQ(ReadScreen(), "");
        progress.Show(3, "a\x1B.ai");
        EXPECT_EQ(ReadScreen(), "\r\033[K3 of 20  a?.ai");
        progress.Show(4, "b.ai");
        EXPECT_EQ(ReadScreen(), "\r\033[K4 of 20  b.ai");
    }
    EXPECT_EQ(ReadScreen(), "\r\033[K");
}

TEST_F(ProgressTest, OnlyALineThatIsShownIsCleared)
{
    const StandardError standardError(mTerminal.Get());
    Progress progress(20, 2);
    progress.Clear();
    EXPECT_EQ(ReadScreen(), "");
    progress.Show(1, "a");
    progress.Clear();
    EXPECT_EQ(ReadScreen(), "\r\033[K1 of 20  a\r\033[K");
    progress.Clear();
    EXPECT_EQ(ReadScreen(), "");
}

TEST_F(ProgressTest, AFewThingsShowNothing)
{
    const StandardError standardError(mTerminal.Get());
    Progress few(5, 6);
    few.Show(1, "a");
    EXPECT_EQ(ReadScreen(), "");
    Progress enough(6, 6);
    enough.Show(1, "a");
    EXPECT_NE(ReadScreen(), "");
}

TEST(ProgressWithoutTerminalTest, ThereIsNoLine)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const FileDescriptor reader(ends[0]);
    const FileDescriptor writer(ends[1]);
    const StandardError standardError(writer.Get());
    {
        Progress progress(20, 2);
        progress.Show(1, "a");
    }
    char byte = 0;
    EXPECT_EQ(read(reader.Get(), &byte, 1), -1);
}

}  // namespace
