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

TEST_F(FileLogAppender, MakesItsFileAndWritesLinesAsTheyAre)
{
    GFileLogAppender appender(path);
    EXPECT_TRUE(appender.IsOpen());
    appender.Append("first\n");
    EXPECT_EQ(ReadAll(path), "first\n");
    appender.Append("second\n");
    EXPECT_EQ(ReadAll(path), "first\nsecond\n");
}

TEST_F(FileLogAppender, WritesBehindWhatIsThere)
{
    (void)scratch.Write("log", "before\n");  // the path is known
    GFileLogAppender(path).Append("after\n");
    EXPECT_EQ(ReadAll(path), "before\nafter\n");
}

TEST_F(FileLogAppender, WritesBehindWhatOthersWriteMeanwhile)
{
    GFileLogAppender first(path);
    GFileLogAppender second(path);
    first.Append("1\n");
    second.Append("2\n");
    first.Append("3\n");
    EXPECT_EQ(ReadAll(path), "1\n2\n3\n");
}

TEST_F(FileLogAppender, EmptyLineIsNothing)
{
    GFileLogAppender(path).Append("");
    EXPECT_EQ(ReadAll(path), "");
}

TEST_F(FileLogAppender, FolderInThePlaceOfTheFileCostsTheLine)
{
    GFileLogAppender appender(scratch.Path());
    EXPECT_FALSE(appender.IsOpen());
    appender.Append("lost\n");
    EXPECT_TRUE(std::filesystem::is_empty(scratch.Path()));
}

TEST_F(FileLogAppender, MissingFolderCostsTheLine)
{
    GFileLogAppender appender(scratch.Path("missing/log"));
    EXPECT_FALSE(appender.IsOpen());
    appender.Append("lost\n");
    EXPECT_FALSE(std::filesystem::exists(scratch.Path("missing")));
}

TEST_F(FileLogAppender, FullDeviceCostsTheLine)
{
    GFileLogAppender appender("/dev/full");
    appender.Append("lost\n");
    EXPECT_TRUE(appender.IsOpen());
}

TEST_F(FileLogAppender, TakesTheLinesOfALogger)
{
    GLogger logger;
    logger.AddAppender("file", new GFileLogAppender(path));
    logger.LogError("FileSystem", "%d", 5);
    const std::string line = ReadAll(path);
    EXPECT_EQ(line.substr(line.find('\t')), "\t[FileSystem]\t[Error]\t5\n");
}

TEST_F(FileLogAppender, LinesOfSeveralProcessesNeverMix)
{
    constexpr int kProcesses = 4;
    constexpr int kLines = 100;
    constexpr std::size_t kWidth = 2000;
    std::vector<pid_t> children;
    for (int index = 0; index < kProcesses; ++index) {
        const pid_t child = fork();
        ASSERT_NE(child, -1);
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
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    std::ifstream file(path);
    std::map<std::string, int> counts;
    for (std::string line; std::getline(file, line);) ++counts[line];
    EXPECT_EQ(counts.size(), std::size_t(kProcesses));
    for (const auto& [line, count] : counts) {
        EXPECT_EQ(line, std::string(kWidth, line.at(0)));
        EXPECT_EQ(count, kLines);
    }
}

}  // namespace
