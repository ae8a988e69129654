#include "base/ReadWrite.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "base/FileDescriptor.h"

using base::FileDescriptor;

namespace {

// More than a pipe or a socket of the system holds, so that one call doesn't transfer all.
const std::string kLongText = std::string(1 << 20, 'a') + "end";

struct Ends {
    FileDescriptor reader;
    FileDescriptor writer;
};

Ends MakePipe()
{
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Ends MakeSocketPair()
{
    int ends[2] = {-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

// Interrupts the calls of the thread that made it, until it is destroyed.
class Interrupter {
public:
    Interrupter()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { ++sCount; };  // without SA_RESTART
        EXPECT_EQ(sigaction(SIGUSR1, &action, &mBefore), 0);
        mThread = std::thread([this, target = pthread_self()] {
            while (!mIsDone) {
                (void)pthread_kill(target, SIGUSR1);
                std::this_thread::sleep_for(std::chrono::microseconds(200));
            }
        });
    }
    ~Interrupter()
    {
        mIsDone = true;
        mThread.join();
        (void)sigaction(SIGUSR1, &mBefore, nullptr);
    }
    Interrupter(const Interrupter&) = delete;
    Interrupter& operator=(const Interrupter&) = delete;

    static bool HasInterrupted() { return sCount > 3; }

private:
    static inline std::atomic<int> sCount = 0;
    struct sigaction mBefore = {};
    std::atomic<bool> mIsDone = false;
    std::thread mThread;
};

TEST(WriteAllTest, AllBytesReachAReaderThatIsSlow)
{
    Ends ends = MakePipe();
    std::string bytes;
    std::thread reader(
        [&] { EXPECT_FALSE(base::ReadUpTo(ends.reader.Get(), kLongText.size(), bytes)); });
    EXPECT_FALSE(base::WriteAll(ends.writer.Get(), kLongText));
    reader.join();
    EXPECT_EQ(bytes, kLongText);
}

TEST(WriteAllTest, ItContinuesAfterASignal)
{
    const Ends ends = MakePipe();
    std::string bytes;
    std::thread reader([&] {
        while (!Interrupter::HasInterrupted()) std::this_thread::yield();
        EXPECT_FALSE(base::ReadUpTo(ends.reader.Get(), kLongText.size(), bytes));
    });
    {
        const Interrupter interrupter;
        EXPECT_FALSE(base::WriteAll(ends.writer.Get(), kLongText));
        reader.join();
    }
    EXPECT_EQ(bytes, kLongText);
}

TEST(WriteAllTest, AFullDiskIsAnError)
{
    const FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    ASSERT_TRUE(full.IsValid());
    EXPECT_EQ(base::WriteAll(full.Get(), "text"), std::errc::no_space_on_device);
}

TEST(WriteAllTest, NothingToWriteIsNoError) { EXPECT_FALSE(base::WriteAll(-1, "")); }

TEST(SendAllTest, AReaderThatVanishesIsAnErrorAndNoSignal)
{
    Ends ends = MakeSocketPair();
    std::thread reader([&] {
        std::array<char, 10> bytes;
        EXPECT_TRUE(base::ReadExactly(ends.reader.Get(), bytes.data(), bytes.size()));
        EXPECT_FALSE(ends.reader.Close());
    });
    const std::error_code error = base::SendAll(ends.writer.Get(), kLongText);
    reader.join();
    // The second error occurs if the socket still held unread bytes.
    EXPECT_TRUE(error == std::errc::broken_pipe || error == std::errc::connection_reset) << error;
    EXPECT_EQ(base::SendAll(ends.writer.Get(), "x"), std::errc::broken_pipe);
}

TEST(ReadExactlyTest, ShortDataIsAFailure)
{
    Ends ends = MakePipe();
    ASSERT_FALSE(base::WriteAll(ends.writer.Get(), "abcdef"));
    ASSERT_FALSE(ends.writer.Close());
    std::array<char, 4> bytes = {};
    ASSERT_TRUE(base::ReadExactly(ends.reader.Get(), bytes.data(), bytes.size()));
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), "abcd");
    EXPECT_FALSE(base::ReadExactly(ends.reader.Get(), bytes.data(), bytes.size()));
    EXPECT_TRUE(base::ReadExactly(ends.reader.Get(), bytes.data(), 0));
}

TEST(ReadExactlyTest, ItContinuesAfterASignal)
{
    const Ends ends = MakePipe();
    std::thread writer([&] {
        while (!Interrupter::HasInterrupted()) std::this_thread::yield();
        EXPECT_FALSE(base::WriteAll(ends.writer.Get(), "ab"));
    });
    std::array<char, 2> bytes = {};
    {
        const Interrupter interrupter;
        EXPECT_TRUE(base::ReadExactly(ends.reader.Get(), bytes.data(), bytes.size()));
        writer.join();
    }
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), "ab");
}

TEST(ReadUpToTest, ItAppendsUpToTheSizeOrTheEnd)
{
    Ends ends = MakePipe();
    ASSERT_FALSE(base::WriteAll(ends.writer.Get(), "abcdef"));
    ASSERT_FALSE(ends.writer.Close());
    std::string bytes;
    EXPECT_FALSE(base::ReadUpTo(ends.reader.Get(), 2, bytes));
    EXPECT_EQ(bytes, "ab");
    EXPECT_FALSE(base::ReadUpTo(ends.reader.Get(), 2, bytes));
    EXPECT_EQ(bytes, "ab");
    EXPECT_FALSE(base::ReadUpTo(ends.reader.Get(), 100, bytes));
    EXPECT_EQ(bytes, "abcdef");
}

TEST(ReadUpToTest, AnErrorIsReported)
{
    const FileDescriptor folder(open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::string bytes = "ab";
    EXPECT_EQ(base::ReadUpTo(folder.Get(), 10, bytes), std::errc::is_a_directory);
    EXPECT_EQ(bytes, "ab");
}

}  // namespace
