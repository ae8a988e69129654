#include "checks/SuiteLedger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "suites/SuiteTable.h"

using testing::ElementsAre;
using testing::IsEmpty;

class SuiteLedgerTest : public testing::Test {
protected:
    headless::RuleViolations violations;
    headless::SuiteLedger ledger{violations};
    const headless::SuiteRow& row = *headless::FindSuiteRow("AI Font Suite");
};

TEST_F(SuiteLedgerTest, CountsReferences)
{
    ledger.Acquire(row);
    ledger.Acquire(row);
    EXPECT_TRUE(ledger.Release(row));
    EXPECT_TRUE(ledger.IsHeld(row));
    EXPECT_THAT(ledger.ListLeaks(),
                ElementsAre("suite \"AI Font Suite\" version 1006 was not released, "
                            "references left: 1"));
    EXPECT_TRUE(ledger.Release(row));
    EXPECT_FALSE(ledger.IsHeld(row));
    EXPECT_THAT(ledger.ListLeaks(), IsEmpty());
}

TEST_F(SuiteLedgerTest, ListsLeaksInTheOrderOfTheSuiteTable)
{
    const std::vector<const char*> names = {"ATE Font Suite", "ATE Story Suite", "AI User Suite",
                                            "AI Font Suite",  "SP Blocks Suite", "AI Timer Suite"};
    std::for_each(names.rbegin(), names.rend(),
                  [this](const char* name) { ledger.Acquire(*headless::FindSuiteRow(name)); });
    const std::vector<std::string> leaks = ledger.ListLeaks();
    ASSERT_EQ(names.size(), leaks.size());
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_THAT(leaks[i], testing::StartsWith("suite \"" + std::string(names[i]) + "\""));
    }
}

TEST_F(SuiteLedgerTest, RefusesAReleaseWithoutAReference)
{
    EXPECT_FALSE(ledger.Release(row));
    EXPECT_EQ(1U, violations.Count());
}

TEST_F(SuiteLedgerTest, AllowsSuitesAcquiredAfterTheShutdownToRemain)
{
    ledger.Acquire(row);
    ledger.AllowUnreleased(false);
    ledger.Acquire(row);
    EXPECT_EQ(1U, ledger.ListLeaks().size()) << "the reference from before";
    (void)ledger.Release(row);
    ledger.Acquire(row);
    EXPECT_EQ(1U, ledger.ListLeaks().size());
}

TEST_F(SuiteLedgerTest, AllowsAPluginThatDidNotStartToReleaseNothing)
{
    ledger.Acquire(row);
    ledger.AllowUnreleased(true);
    EXPECT_THAT(ledger.ListLeaks(), IsEmpty());
}
