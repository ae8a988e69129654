#include "FileFormatHook.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FileFormatRegistration : public MessageTest {
protected:
    FileFormatRegistration()
    {
        // What startup has by then.
        EXPECT_EQ(SendInterface("Startup"), 0);
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
    EXPECT_EQ(Add(), 0);
    ASSERT_EQ(host.fileFormats.size(), 1U);
    const ScriptedFileFormat& format = host.fileFormats[0];
    EXPECT_EQ(format.self, host.Head().self);
    EXPECT_EQ(format.name, "Corvanta");
    EXPECT_EQ(format.title, "Corvanta");
    EXPECT_EQ(format.titleOrder, 0);
    EXPECT_EQ(format.extensions, "ai,eps,pdf,ait");
    EXPECT_EQ(format.options, 1);
    EXPECT_EQ(format.lastArgument, 0);
    EXPECT_EQ(format.priority, 10000);
    EXPECT_THAT(format.types, ElementsAre(0x41525435, 0x45505346, 0x50444620, 0x4149546D));
}

TEST_F(FileFormatRegistration, StringsAreInThePlatformEncoding)
{
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(host.CountCalls("AIUnicodeStringSuite.Initialize(\"Corvanta\", 8, 0)"), 1U);
    EXPECT_EQ(host.CountCalls("AIUnicodeStringSuite.Initialize(\"ai,eps,pdf,ait\", 14, 0)"), 1U);
}

TEST_F(FileFormatRegistration, KeepsTheHandleAndGivesTheSuiteBack)
{
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(gGlobals->fileFormatHandle, host.fileFormats[0].handle);
    EXPECT_EQ(host.SuiteReferences("AI File Format Suite", 1015), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"), 1U);
}

TEST_F(FileFormatRegistration, SuiteRefusedOnceIsAskedForAgain)
{
    host.FailCall("SPBasicSuite.AcquireSuite", 1, 4711);
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(host.fileFormats.size(), 1U);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"), 2U);
    EXPECT_EQ(host.SuiteReferences("AI File Format Suite", 1015), 0);
    EXPECT_FALSE(HasTrace("Error thrown in AddFileFormat()"));
}

TEST_F(FileFormatRegistration, SuiteRefusedTwiceEndsIt)
{
    host.RefuseSuite("AI File Format Suite", 1015, 4711);
    EXPECT_EQ(Add(), 0);
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI File Format Suite\", 1015)"), 2U);
    EXPECT_TRUE(HasTrace("Error thrown in AddFileFormat()"));
    EXPECT_EQ(gGlobals->fileFormatHandle, nullptr);
}

TEST_F(FileFormatRegistration, NullHandleIsNotKept)
{
    host.GiveNull("AIFileFormatSuite.AddFileFormatEx");
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(gGlobals->fileFormatHandle, nullptr);
    EXPECT_EQ(host.CountCalls("AIFileFormatSuite.SetFileFormatPriority"), 0U);
    EXPECT_EQ(host.SuiteReferences("AI File Format Suite", 1015), 0);
}

TEST_F(FileFormatRegistration, RefusedPriorityKeepsTheHandle)
{
    host.FailCall("AIFileFormatSuite.SetFileFormatPriority", 1, 4711);
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(gGlobals->fileFormatHandle, host.fileFormats[0].handle);
}

TEST_F(FileFormatRegistration, StringThatCannotBeMadeEndsIt)
{
    host.FailCall("AIUnicodeStringSuite.Initialize", 2, 4711);
    EXPECT_EQ(Add(), 0);
    EXPECT_TRUE(HasTrace("Error thrown in AddFileFormat()"));
    EXPECT_EQ(host.SuiteReferences("AI File Format Suite", 1015), 0);
    EXPECT_THAT(host.fileFormats, IsEmpty());
}

}  // namespace
