#include "HostFixture.h"
#include "application/HostPlatformTable.h"

class JournalTest : public HostFixture {};

TEST_F(JournalTest, NumbersItsLinesAndKeepsTheOrderOfMembers)
{
    WriteJournal();
    host->journal.Write("host", "one", {{"a", 1}}, nullptr);
    host->journal.Write("suite", "two", {}, 7);
    const auto lines = ReadJournal();
    ASSERT_EQ(lines.size(), 2u) << "a line is in the file before Write returns";
    EXPECT_EQ(lines[0].at("seq"), 1);
    EXPECT_EQ(lines[1].at("seq"), 2);
    EXPECT_EQ(lines[1].at("side"), "suite");
    EXPECT_EQ(lines[1].at("result"), 7);
    EXPECT_GE(lines[1].at("t").get<double>(), lines[0].at("t").get<double>());
}

TEST_F(JournalTest, TakesTextThatIsNotUtf8)
{
    WriteJournal();
    host->journal.Write("host", "read", {{"path", "caf\xe9"}}, nullptr);
    EXPECT_EQ(ReadJournal().at(0)["args"]["path"], "caf\xEF\xBF\xBD");
}

TEST_F(JournalTest, TakesLinesOfPluginCore)
{
    WriteJournal();
    HeadlessHostJournal("core", "GetSettings", "{\"size\":8192}", "0");
    HeadlessHostJournal("core", "IdleEvent", "not json", nullptr);
    HeadlessHostJournal(nullptr, "x", "{}", "0");
    const auto lines = ReadJournal();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["side"], "core");
    EXPECT_EQ(lines[0]["args"]["size"], 8192);
    EXPECT_EQ(lines[0]["result"], 0);
    EXPECT_EQ(lines[1]["args"], "not json");
    EXPECT_TRUE(lines[1]["result"].is_null());
}

TEST_F(JournalTest, TellsWhyItCanNotBeWritten)
{
    std::string error;
    EXPECT_FALSE(host->journal.Open(folder, error));
    EXPECT_THAT(error, testing::HasSubstr(folder + ": "));
    EXPECT_FALSE(host->journal.IsOpen());
}
