#include "batch/OrderedReading.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <new>
#include <string>
#include <utility>
#include <vector>

using namespace batch;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

FileWalk MakeWalk(std::vector<std::string> paths)
{
    FileChoice choice;
    choice.paths = std::move(paths);
    return FileWalk(std::move(choice));
}

std::vector<FileAnswer> ReadThem(std::vector<std::string> paths, const ReadingLimits& limits,
                                 const FileReader& read)
{
    FileWalk walk = MakeWalk(std::move(paths));
    std::vector<FileAnswer> answers;
    EXPECT_TRUE(ReadInOrder(
        walk, limits, read, [&](FileAnswer answer) { answers.push_back(std::move(answer)); },
        [] { return false; }));
    return answers;
}

std::vector<std::string> MakeNumbers(int count)
{
    std::vector<std::string> numbers;
    for (int i = 0; i < count; ++i) numbers.push_back(std::to_string(i));
    return numbers;
}

}  // namespace

TEST(OrderedReading, AnswersInTheOrderOfTheFiles)
{
    const std::vector<FileAnswer> answers =
        ReadThem(MakeNumbers(2000), {4, 30}, [](const std::string& path, size_t) {
            if (path == "0") (void)usleep(200000);
            return path + "!";
        });
    ASSERT_EQ(2000U, answers.size());
    for (size_t i = 0; i < answers.size(); ++i) {
        EXPECT_EQ(std::to_string(i), answers[i].path);
        EXPECT_EQ(std::to_string(i) + "!", answers[i].text);
    }
}

TEST(OrderedReading, DoesNotRunAheadWithoutBound)
{
    // The number of files that were read, by all processes together.
    void* const memory = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(MAP_FAILED, memory);
    auto* const readCount = new (memory) std::atomic<int>(0);
    int before = -1;  // how many were read when the first one, which is late, was delivered
    int delivered = 0;
    FileWalk walk = MakeWalk(MakeNumbers(100));
    EXPECT_TRUE(ReadInOrder(
        walk, {2, 30},
        [&](const std::string& path, size_t) {
            if (path == "0") (void)usleep(700000);
            ++*readCount;
            return std::string(size_t{1} << 20, 'x');
        },
        [&](const FileAnswer&) {
            if (delivered++ == 0) before = *readCount;
        },
        [] { return false; }));
    EXPECT_EQ(100, delivered);
    EXPECT_GT(25, before);
    EXPECT_LT(5, before);
    (void)munmap(memory, sizeof(std::atomic<int>));
}

TEST(OrderedReading, ReadsAFileAloneThatLacksMemory)
{
    // The helper's share tells how many processes share the memory.
    const std::vector<FileAnswer> answers =
        ReadThem({"a", "b", "c", "d"}, {2, 30}, [](const std::string& path, size_t helperBytes) {
            if (path != "c" && helperBytes < (size_t{100} << 20)) throw std::bad_alloc();
            if (path == "c" && helperBytes < (size_t{150} << 20)) throw std::bad_alloc();
            return path;
        });
    ASSERT_EQ(4U, answers.size());
    for (const FileAnswer& answer : answers) EXPECT_EQ(answer.path, answer.text) << answer.error;
}

TEST(OrderedReading, ReportsWhatFails)
{
    const std::vector<FileAnswer> answers =
        ReadThem({"late", "dead", "large", "good"}, {2, 0.3}, [](const std::string& path, size_t) {
            while (path == "late") (void)pause();
            if (path == "dead") _exit(3);
            if (path == "large") throw std::bad_alloc();
            return path;
        });
    std::vector<std::string> errors;
    for (const FileAnswer& answer : answers) errors.push_back(answer.error);
    EXPECT_THAT(errors, ElementsAre("takes longer than 0.3 s to read",
                                    "the process that read it ended with status 3",
                                    "too large: not enough memory", ""));
}

TEST(OrderedReading, EndsWhenAsked)
{
    FileWalk walk = MakeWalk(MakeNumbers(10));
    EXPECT_FALSE(ReadInOrder(
        walk, {}, [](const std::string& path, size_t) { return path; },
        [](const FileAnswer&) { FAIL(); }, [] { return true; }));
}
