#include <filesystem>

#include "HostFixture.h"
#include "application/HostPlatformTable.h"

class JournalTest : public HostFixture {};

TEST_F(JournalTest, NumbersItsLinesAndKeepsTheOrderOfMembers)
{
    WriteJournal();
    host->journal.Write("host", "one", {{"a", 1}}, nullptr);
    host->journal.Write("suite", "two", {}, 7);
    const auto lines = ReadJournal();
    ASSERT_EQ(2U, lines.size()) << "a line is in the file before Write returns";
    EXPECT_EQ(1, lines[0].at("seq"));
    EXPECT_EQ(2, lines[1].at("seq"));
    EXPECT_EQ("suite", lines[1].at("side"));
    EXPECT_EQ(7, lines[1].at("result"));
    EXPECT_GE(lines[1].at("t").get<double>(), lines[0].at("t").get<double>());
}

// The lines of an earlier run must not follow those of this one, which are fewer.
TEST_F(JournalTest, EmptiesAFileThatExists)
{
    WriteJournal();
    for (int line = 0; line < 100; ++line) host->journal.Write("host", "old", {}, nullptr);
    ASSERT_EQ(100U, ReadJournal().size());
    WriteJournal();
    EXPECT_THAT(ReadJournal(), testing::IsEmpty()) << "Open empties the file";
    host->journal.Write("host", "new", {}, nullptr);
    const auto lines = ReadJournal();
    ASSERT_EQ(1U, lines.size());
    EXPECT_EQ("new", lines[0].at("op"));
    EXPECT_EQ(1, lines[0].at("seq"));
}

TEST_F(JournalTest, KeepsTheLastLinesWithinALimit)
{
    constexpr size_t kMost = 1000;
    WriteJournal();
    host->journal.LimitFile(kMost);
    for (int line = 1; line <= 100; ++line) {
        host->journal.Write("host", "line", {}, line);
        const auto lines = ReadJournal();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(line, lines.back().at("result"));
        EXPECT_GE(kMost, std::filesystem::file_size(folder + "/journal"));
    }
    EXPECT_LT(1U, ReadJournal().size());
    host->journal.Write("host", std::string(2 * kMost, 'x'), {}, nullptr);
    EXPECT_EQ(1U, ReadJournal().size()) << "a long line is alone";
    host->journal.Write("host", "next", {}, nullptr);
    EXPECT_EQ("next", ReadJournal().at(0).at("op"));
}

TEST_F(JournalTest, ReplacesBytesThatAreNotUtf8)
{
    WriteJournal();
    host->journal.Write("host", "read", {{"path", "caf\xe9"}}, nullptr);
    EXPECT_EQ("caf\xEF\xBF\xBD", ReadJournal().at(0)["args"]["path"]);
}

TEST_F(JournalTest, WritesLinesOfPluginCore)
{
    WriteJournal();
    HeadlessHostJournal("core", "GetSettings", "{\"size\":8192}", "0");
    HeadlessHostJournal("core", "IdleEvent", "not json", nullptr);
    HeadlessHostJournal(nullptr, "x", "{}", "0");
    const auto lines = ReadJournal();
    ASSERT_EQ(2U, lines.size());
    EXPECT_EQ("core", lines[0]["side"]);
    EXPECT_EQ(8192, lines[0]["args"]["size"]);
    EXPECT_EQ(0, lines[0]["result"]);
    EXPECT_EQ("not json", lines[1]["args"]);
    EXPECT_TRUE(lines[1]["result"].is_null());
}

TEST_F(JournalTest, ReportsWhyTheFileCannotBeWritten)
{
    std::string error;
    EXPECT_FALSE(host->journal.Open(folder, error));
    EXPECT_THAT(error, testing::HasSubstr(folder + ": "));
    EXPECT_FALSE(host->journal.IsOpen());
}
