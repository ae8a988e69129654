#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>

using base::FileDescriptor;

namespace {

bool IsOpen(int descriptor) { return fcntl(descriptor, F_GETFD) >= 0; }

FileDescriptor OpenNull() { return FileDescriptor(open("/dev/null", O_RDWR | O_CLOEXEC)); }

TEST(FileDescriptorTest, TheDestructorCloses)
{
    int number = -1;
    {
        const FileDescriptor file = OpenNull();
        number = file.Get();
        ASSERT_TRUE(file.IsValid());
        EXPECT_TRUE(IsOpen(number));
    }
    EXPECT_FALSE(IsOpen(number));
}

TEST(FileDescriptorTest, CloseIsIdempotent)
{
    FileDescriptor file = OpenNull();
    const int number = file.Get();
    EXPECT_FALSE(file.Close());
    EXPECT_FALSE(IsOpen(number));
    EXPECT_FALSE(file.IsValid());
    EXPECT_FALSE(file.Close());
}

TEST(FileDescriptorTest, CloseReportsTheError)
{
    FileDescriptor file = OpenNull();
    ASSERT_EQ(close(file.Get()), 0);
    EXPECT_EQ(file.Close(), std::errc::bad_file_descriptor);
    EXPECT_FALSE(file.IsValid());
}

TEST(FileDescriptorTest, AMoveLeavesOneOwner)
{
    FileDescriptor first = OpenNull();
    const int number = first.Get();
    FileDescriptor second(std::move(first));
    EXPECT_EQ(second.Get(), number);
    FileDescriptor third;
    EXPECT_FALSE(third.IsValid());
    third = std::move(second);
    EXPECT_EQ(third.Get(), number);
    EXPECT_TRUE(IsOpen(number));
}

}  // namespace
