#include "vexcor/commands/DatabaseRescue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"
#include "plugin-core/storage/Database.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class DatabaseRescueTest : public testing::Test {
protected:
    FontTestHome mHome;
    fs::path mFile = mHome.GetPath() / "state/fonts.db";
};

TEST_F(DatabaseRescueTest, AnIntactDatabaseAndAMissingOneHaveNoDamage)
{
    EXPECT_THAT(vexcor::FindDamage(mFile), IsEmpty());
    EXPECT_FALSE(fs::exists(mFile));
    const plugincore::Database database(mFile);
    EXPECT_THAT(vexcor::FindDamage(mFile), IsEmpty());
}

TEST_F(DatabaseRescueTest, AFileOfAnotherKindIsDamaged)
{
    FontTestHome::WriteFile(mFile, std::string(5000, 'x'));
    EXPECT_THAT(vexcor::FindDamage(mFile), HasSubstr(mFile.string()));
}

TEST_F(DatabaseRescueTest, WhatIsQuarantineKeepsItsBytesAndTakesItsLogWithIt)
{
    FontTestHome::WriteFile(mFile, "first");
    FontTestHome::WriteFile(mFile.string() + "-wal", "log");
    const fs::path renamed = vexcor::Quarantine(mFile);
    EXPECT_EQ(mFile.string() + ".damaged-1", renamed);
    EXPECT_TRUE(fs::exists(renamed));
    EXPECT_TRUE(fs::exists(renamed.string() + "-wal"));
    EXPECT_FALSE(fs::exists(mFile) || fs::exists(mFile.string() + "-wal"));
    FontTestHome::WriteFile(mFile, "second");
    EXPECT_EQ(mFile.string() + ".damaged-2", vexcor::Quarantine(mFile));
}

}  // namespace
