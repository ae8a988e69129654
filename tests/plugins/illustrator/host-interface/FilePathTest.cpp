#include "HostInterfaceFixture.h"
#include "ScriptedHostSuites.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FilePath : public HostInterfaceTest {
protected:
    void TearDown() override
    {
        EXPECT_EQ(host.LiveStrings(), 0U);
        HostInterfaceTest::TearDown();
    }

    void Fill(ai::FilePath& path, const std::string& text)
    {
        PathSlot(path) = host.NewHandle();
        host.paths[PathSlot(path)] = text;
    }
};

TEST_F(FilePath, NullPathIsNotDisposed)
{
    {
        const ai::FilePath path;
    }
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(FilePath, FilledPathIsDisposedOnce)
{
    {
        ai::FilePath path;
        Fill(path, "/folder/file.ai");
        const ai::FilePath moved = std::move(path);
    }
    EXPECT_THAT(host.Calls(), ElementsAre("AIFilePathSuite.DisposeFilePath()"));
}

TEST_F(FilePath, GivesItsNameAndItsWhole)
{
    ai::FilePath path;
    Fill(path, "/folder/file.ai");
    EXPECT_EQ(path.GetFileName(false).as_UTF8(), "file.ai");
    EXPECT_EQ(path.GetFullPath(true).as_UTF8(), "/folder/file.ai");
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFileName(\"/folder/file.ai\", false)"), 1U);
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/file.ai\", true)"), 1U);
}

TEST_F(FilePath, FailuresAreErrorsWithTheHostsCode)
{
    ai::FilePath path;
    Fill(path, "/folder/file.ai");
    host.FailCall("AIFilePathSuite.GetFullPath", 0, 11);
    host.FailCall("AIFilePathSuite.GetFileName", 0, 12);
    try {
        (void)path.GetFullPath(false);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(static_cast<int>(error), 11);
    }
    try {
        (void)path.GetFileName(false);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(static_cast<int>(error), 12);
    }
}

}  // namespace
