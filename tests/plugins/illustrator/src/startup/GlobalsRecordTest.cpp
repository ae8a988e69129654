#include <cstddef>

#include "MessageFixture.h"

namespace {

class GlobalsRecord : public MessageFixture {};

TEST_F(GlobalsRecord, FieldsAreAtTheirOffsets)
{
    EXPECT_EQ(0U, offsetof(SGlobals, globalsVersion));
    EXPECT_EQ(8U, sizeof(SGlobals::globalsVersion));
    EXPECT_EQ(8U, offsetof(SGlobals, globalsString));
    EXPECT_EQ(40U, offsetof(SGlobals, pluginRef));
    const std::size_t fields[] = {offsetof(SGlobals, documentChangedNotifier),
                                  offsetof(SGlobals, documentOpenedNotifier),
                                  offsetof(SGlobals, documentAboutToCloseNotifier),
                                  offsetof(SGlobals, documentClosedNotifier),
                                  offsetof(SGlobals, documentNewNotifier),
                                  offsetof(SGlobals, startupNotifier),
                                  offsetof(SGlobals, shutdownNotifier),
                                  offsetof(SGlobals, menuChangedNotifier),
                                  offsetof(SGlobals, afterSaveNotifier),
                                  offsetof(SGlobals, afterSaveAsNotifier),
                                  offsetof(SGlobals, diskWritingCompleteNotifier),
                                  offsetof(SGlobals, fontListChangedNotifier),
                                  offsetof(SGlobals, timerHandle),
                                  offsetof(SGlobals, fileFormatHandle)};
    std::size_t expected = 48;
    for (const std::size_t field : fields) {
        EXPECT_EQ(expected, field);
        expected += 8;
    }
    EXPECT_EQ(160U, sizeof(SGlobals));
}

TEST_F(GlobalsRecord, IsFilledAtStartup)
{
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    EXPECT_EQ(2023, globals.globalsVersion);
    ASSERT_NE(nullptr, globals.globalsString);
    EXPECT_EQ("", *globals.globalsString);
    EXPECT_EQ(host.Head().self, globals.pluginRef);
    ASSERT_EQ(1U, host.timers.size());
    EXPECT_EQ(host.timers[0].handle, globals.timerHandle);
    ASSERT_EQ(1U, host.fileFormats.size());
    EXPECT_EQ(host.fileFormats[0].handle, globals.fileFormatHandle);
}

// The host doesn't clear a new block.
TEST_F(GlobalsRecord, FirstReservedWordIsUnchangedAndTheOtherTwoAreZeroed)
{
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    const auto* const words = reinterpret_cast<const std::uint64_t*>(&globals.globalsString) + 1;
    EXPECT_EQ(0xA5A5A5A5A5A5A5A5U, words[0]);
    EXPECT_EQ(0U, words[1]);
    EXPECT_EQ(0U, words[2]);
}

TEST_F(GlobalsRecord, IsAHostBlockNamedGlobals)
{
    ASSERT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(1U, host.CountCalls("SPBlocksSuite.AllocateBlock(160, \"globals\")"));
    EXPECT_EQ(1U, host.blocks.count(host.globals));
}

TEST_F(GlobalsRecord, NotifiersThatCouldNotBeAddedAreNull)
{
    host.FailCall("AINotifierSuite.AddNotifier", 3, 4711);
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    EXPECT_NE(nullptr, globals.documentChangedNotifier);
    EXPECT_NE(nullptr, globals.documentOpenedNotifier);
    EXPECT_EQ(nullptr, globals.documentAboutToCloseNotifier);
    EXPECT_EQ(nullptr, globals.documentClosedNotifier);
    EXPECT_EQ(nullptr, globals.fontListChangedNotifier);
    EXPECT_EQ(nullptr, globals.diskWritingCompleteNotifier);
}

}  // namespace
