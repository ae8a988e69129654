#include "HostInterfaceFixture.h"
#include "ScriptedHostSuites.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FilePath : public HostInterfaceTest {
protected:
    void TearDown() override
    {
        EXPECT_EQ(0U, host.LiveStrings());
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

TEST_F(FilePath, ReturnsFileNameAndFullPath)
{
    ai::FilePath path;
    Fill(path, "/folder/file.ai");
    EXPECT_EQ("file.ai", path.GetFileName(false).as_UTF8());
    EXPECT_EQ("/folder/file.ai", path.GetFullPath(true).as_UTF8());
    EXPECT_EQ(1U, host.CountCalls("AIFilePathSuite.GetFileName(\"/folder/file.ai\", false)"));
    EXPECT_EQ(1U, host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/file.ai\", true)"));
}

TEST_F(FilePath, FailuresThrowTheHostsCode)
{
    ai::FilePath path;
    Fill(path, "/folder/file.ai");
    host.FailCall("AIFilePathSuite.GetFullPath", 0, 11);
    host.FailCall("AIFilePathSuite.GetFileName", 0, 12);
    try {
        (void)path.GetFullPath(false);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(11, static_cast<int>(error));
    }
    try {
        (void)path.GetFileName(false);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(12, static_cast<int>(error));
    }
}

}  // namespace
