#include "GFileLogAppender.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <sstream>

#include "LoggerFixture.h"
#include "ScratchFolder.h"

namespace {

std::string ReadAll(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class FileLogAppender : public testing::Test {
protected:
    ScratchFolder scratch;
    std::string path = scratch.Path("log");
};

TEST_F(FileLogAppender, CreatesItsFileAndWritesLinesUnchanged)
{
    GFileLogAppender appender(path);
    EXPECT_TRUE(appender.IsOpen());
    appender.Append("first\n");
    EXPECT_EQ("first\n", ReadAll(path));
    appender.Append("second\n");
    EXPECT_EQ("first\nsecond\n", ReadAll(path));
}

TEST_F(FileLogAppender, AppendsToAnExistingFile)
{
    (void)scratch.Write("log", "before\n");  // returns `path`
    GFileLogAppender(path).Append("after\n");
    EXPECT_EQ("before\nafter\n", ReadAll(path));
}

TEST_F(FileLogAppender, AppendsAfterLinesOfOtherAppenders)
{
    GFileLogAppender first(path);
    GFileLogAppender second(path);
    first.Append("1\n");
    second.Append("2\n");
    first.Append("3\n");
    EXPECT_EQ("1\n2\n3\n", ReadAll(path));
}

TEST_F(FileLogAppender, EmptyLineWritesNothing)
{
    GFileLogAppender(path).Append("");
    EXPECT_EQ("", ReadAll(path));
}

TEST_F(FileLogAppender, FolderInPlaceOfTheFileDropsTheLine)
{
    GFileLogAppender appender(scratch.Path());
    EXPECT_FALSE(appender.IsOpen());
    appender.Append("lost\n");
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path()));
}

TEST_F(FileLogAppender, MissingFolderDropsTheLine)
{
    GFileLogAppender appender(scratch.Path("missing/log"));
    EXPECT_FALSE(appender.IsOpen());
    appender.Append("lost\n");
    EXPECT_FALSE(std::filesystem::exists(scratch.Path("missing")));
}

TEST_F(FileLogAppender, FullDeviceDropsTheLine)
{
    GFileLogAppender appender("/dev/full");
    appender.Append("lost\n");
    EXPECT_TRUE(appender.IsOpen());
}

TEST_F(FileLogAppender, WritesTheLinesOfALogger)
{
    GLogger logger;
    logger.AddAppender("file", new GFileLogAppender(path));
    logger.LogError("FileSystem", "%d", 5);
    const std::string line = ReadAll(path);
    EXPECT_EQ("\t[FileSystem]\t[Error]\t5\n", line.substr(line.find('\t')));
}

TEST_F(FileLogAppender, LinesOfSeveralProcessesNeverMix)
{
    constexpr int kProcesses = 4;
    constexpr int kLines = 100;
    constexpr std::size_t kWidth = 2000;
    std::vector<pid_t> children;
    for (int index = 0; index < kProcesses; ++index) {
        const pid_t child = fork();
        ASSERT_NE(-1, child);
        if (child == 0) {
            GFileLogAppender appender(path);
            const std::string line = std::string(kWidth, char('a' + index)) + "\n";
            for (int count = 0; count < kLines; ++count) appender.Append(line);
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        EXPECT_EQ(0, status);
    }
    std::ifstream file(path);
    std::map<std::string, int> counts;
    for (std::string line; std::getline(file, line);) ++counts[line];
    EXPECT_EQ(std::size_t(kProcesses), counts.size());
    for (const auto& [line, count] : counts) {
        EXPECT_EQ(std::string(kWidth, line.at(0)), line);
        EXPECT_EQ(kLines, count);
    }
}

}  // namespace
