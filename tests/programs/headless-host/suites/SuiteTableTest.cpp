#include "suites/SuiteTable.h"

#include <cstring>
#include <set>

#include "HostFixture.h"

using headless::kSuiteRows;

namespace {

const std::set<std::string> kCalledTextSuites = {
    "ATE TextFrame Suite",    "ATE Story Suite",         "ATE Stories Suite",
    "ATE TextRange Suite",    "ATE TextRanges Suite",    "ATE TextRunsIterator Suite",
    "ATE CharFeatures Suite", "ATE CharInspector Suite", "ATE ArrayFontRef Suite",
    "ATE Font Suite"};

// The versions other than 1, and those of all suites of the host itself.
const std::map<std::string, int> kVersions = {
    {"ATE TextFrame Suite", 101},     {"ATE TextLine Suite", 2},
    {"ATE CharFeatures Suite", 102},  {"ATE DocumentTextResources Suite", 101},
    {"ATE CharInspector Suite", 102}, {"ATE Find Suite", 101},
    {"ATE ParaFeatures Suite", 101},  {"ATE ParaInspector Suite", 101},
    {"ATE Spell Suite", 102},         {"AI File Path Suite", 1006},
    {"AI User Suite", 1017},          {"AI Font Suite", 1006},
    {"AI Notifier Suite", 1004},      {"AI Matching Art Suite", 1007},
    {"AI Placed Suite", 1009},        {"AI Text Frame Suite", 1004},
    {"SP Blocks Suite", 2},           {"AI MdMemory Suite", 1003},
    {"AI Art Set Suite", 1009},       {"AI Unicode String Suite", 1008},
    {"AI Document Suite", 1017},      {"AI File Format Suite", 1015},
    {"AI Menu Suite", 1011},          {"AI Timer Suite", 1005}};

}  // namespace

TEST(SuiteTable, ContainsEachNameOnceWithItsVersion)
{
    std::set<std::string> names;
    size_t textSuites = 0;
    for (const headless::SuiteRow& row : kSuiteRows) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        if (std::string(row.name).rfind("ATE ", 0) == 0) ++textSuites;
        const auto found = kVersions.find(row.name);
        EXPECT_EQ(row.version, found == kVersions.end() ? 1 : found->second) << row.name;
    }
    EXPECT_EQ(87U, textSuites);
    EXPECT_EQ(102U, names.size());
    for (const auto& entry : kVersions) EXPECT_EQ(1U, names.count(entry.first)) << entry.first;
}

TEST(SuiteTable, GivesEachSuiteATableOfItsOwn)
{
    std::set<const void*> tables;
    for (const headless::SuiteRow& row : kSuiteRows) {
        const void* const table = GetSuiteTable(row);
        ASSERT_NE(nullptr, table) << row.name;
        EXPECT_TRUE(tables.insert(table).second) << row.name;
    }
}

TEST(SuiteTable, HasOperationsOnlyWhereTheyAreCalled)
{
    for (const headless::SuiteRow& row : kSuiteRows) {
        const std::string name = row.name;
        const bool isText = name.rfind("ATE ", 0) == 0;
        const bool called = isText ? kCalledTextSuites.count(name) == 1 : name != "AI User Suite";
        void* first = nullptr;
        std::memcpy(&first, GetSuiteTable(row), sizeof(first));
        EXPECT_EQ(first != nullptr, called) << name;
    }
}

class BasicSuite : public HostFixture {};

TEST_F(BasicSuite, OffersEachSuiteInOneVersionOnly)
{
    for (const headless::SuiteRow& row : kSuiteRows) {
        const void* suite = nullptr;
        EXPECT_EQ(kHostSuccess, headless::gBasicSuite.AcquireSuite(row.name, row.version, &suite));
        EXPECT_EQ(GetSuiteTable(row), suite);
        suite = &suite;
        EXPECT_NE(kHostSuccess,
                  headless::gBasicSuite.AcquireSuite(row.name, row.version + 1, &suite));
        EXPECT_EQ(suite, &suite) << "unchanged after a failure";
        EXPECT_EQ(kHostSuccess, headless::gBasicSuite.ReleaseSuite(row.name, row.version));
    }
    EXPECT_TRUE(host->violations.Lines().empty());
    EXPECT_TRUE(host->suites.ListLeaks().empty());
}

TEST_F(BasicSuite, ComparesWholeStrings)
{
    EXPECT_NE(0, headless::gBasicSuite.IsEqual("AI Go", "AI Go"));
    EXPECT_EQ(0, headless::gBasicSuite.IsEqual("AI Go", "AI G"));
    EXPECT_EQ(0, headless::gBasicSuite.IsEqual("AI Go", nullptr));
}

TEST_F(BasicSuite, ReportsTheReleaseOfAnUnknownSuite)
{
    EXPECT_NE(kHostSuccess, headless::gBasicSuite.ReleaseSuite("AI Font Suite", 1));
    EXPECT_THAT(host->violations.Lines(),
                testing::ElementsAre("ReleaseSuite: the host has no suite \"AI Font Suite\" "
                                     "version 1"));
}
