#include "FileFormatHook.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FileFormatRegistration : public MessageFixture {
protected:
    FileFormatRegistration()
    {
        // Startup has registered the format already: undo that.
        EXPECT_EQ(0, SendInterface("Startup"));
        host.fileFormats.clear();
        gGlobals->fileFormatHandle = nullptr;
        Forget();
    }
    AIErr Add()
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return AddFileFormat(&message);
    }
};

TEST_F(FileFormatRegistration, RegistersTheRecord)
{
    EXPECT_EQ(0, Add());
    ASSERT_EQ(1U, host.fileFormats.size());
    const ScriptedFileFormat& format = host.fileFormats[0];
    EXPECT_EQ(host.Head().self, format.self);
    EXPECT_EQ("Corvanta", format.name);
    EXPECT_EQ("Corvanta", format.title);
    EXPECT_EQ(0, format.titleOrder);
    EXPECT_EQ("ai,eps,pdf,ait", format.extensions);
    EXPECT_EQ(1, format.options);
    EXPECT_EQ(0, format.lastArgument);
    EXPECT_EQ(10000, format.priority);
    EXPECT_THAT(format.types, ElementsAre(0x41525435, 0x45505346, 0x50444620, 0x4149546D));
}

TEST_F(FileFormatRegistration, CreatesStringsInThePlatformEncoding)
{
    EXPECT_EQ(0, Add());
    EXPECT_EQ(1U, host.CountCalls("AIUnicodeStringSuite.Initialize(\"Corvanta\", 8, 0)"));
    EXPECT_EQ(1U, host.CountCalls("AIUnicodeStringSuite.Initialize(\"ai,eps,pdf,ait\", 14, 0)"));
}

TEST_F(FileFormatRegistration, StoresTheHandleAndReleasesTheSuite)
{
    EXPECT_EQ(0, Add());
    EXPECT_EQ(host.fileFormats[0].handle, gGlobals->fileFormatHandle);
    EXPECT_EQ(0, host.SuiteReferences("AI File Format Suite", 1015));
    EXPECT_EQ(1U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"));
}

TEST_F(FileFormatRegistration, TriesAgainAfterTheSuiteIsRefusedOnce)
{
    host.FailCall("SPBasicSuite.AcquireSuite", 1, 4711);
    EXPECT_EQ(0, Add());
    EXPECT_EQ(1U, host.fileFormats.size());
    EXPECT_EQ(2U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"));
    EXPECT_EQ(0, host.SuiteReferences("AI File Format Suite", 1015));
    EXPECT_FALSE(HasTrace("Error thrown in AddFileFormat()"));
}

TEST_F(FileFormatRegistration, GivesUpAfterTheSuiteIsRefusedTwice)
{
    host.RefuseSuite("AI File Format Suite", 1015, 4711);
    EXPECT_EQ(0, Add());
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_EQ(2U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"));
    EXPECT_TRUE(HasTrace("Error thrown in AddFileFormat()"));
    EXPECT_EQ(nullptr, gGlobals->fileFormatHandle);
}

TEST_F(FileFormatRegistration, DoesNotStoreANullHandle)
{
    host.GiveNull("AIFileFormatSuite.AddFileFormatEx");
    EXPECT_EQ(0, Add());
    EXPECT_EQ(nullptr, gGlobals->fileFormatHandle);
    EXPECT_EQ(0U, host.CountCalls("AIFileFormatSuite.SetFileFormatPriority"));
    EXPECT_EQ(0, host.SuiteReferences("AI File Format Suite", 1015));
}

TEST_F(FileFormatRegistration, StoresTheHandleEvenIfThePriorityIsRefused)
{
    host.FailCall("AIFileFormatSuite.SetFileFormatPriority", 1, 4711);
    EXPECT_EQ(0, Add());
    EXPECT_EQ(host.fileFormats[0].handle, gGlobals->fileFormatHandle);
}

TEST_F(FileFormatRegistration, GivesUpIfAStringCannotBeCreated)
{
    host.FailCall("AIUnicodeStringSuite.Initialize", 2, 4711);
    EXPECT_EQ(0, Add());
    EXPECT_TRUE(HasTrace("Error thrown in AddFileFormat()"));
    EXPECT_EQ(0, host.SuiteReferences("AI File Format Suite", 1015));
    EXPECT_THAT(host.fileFormats, IsEmpty());
}

}  // namespace
