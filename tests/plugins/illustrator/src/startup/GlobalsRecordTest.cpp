#include <cstddef>

#include "MessageFixture.h"

namespace {

class GlobalsRecord : public MessageTest {};

TEST_F(GlobalsRecord, FieldsFollowEachOther)
{
    EXPECT_EQ(offsetof(SGlobals, globalsVersion), 0U);
    EXPECT_EQ(sizeof(SGlobals::globalsVersion), 8U);
    EXPECT_EQ(offsetof(SGlobals, globalsString), 8U);
    EXPECT_EQ(offsetof(SGlobals, pluginRef), 40U);
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
        EXPECT_EQ(field, expected);
        expected += 8;
    }
    EXPECT_EQ(sizeof(SGlobals), 160U);
}

TEST_F(GlobalsRecord, IsFilledAtStartup)
{
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    EXPECT_EQ(globals.globalsVersion, 2023);
    ASSERT_NE(globals.globalsString, nullptr);
    EXPECT_EQ(*globals.globalsString, "");
    EXPECT_EQ(globals.pluginRef, host.Head().self);
    ASSERT_EQ(host.timers.size(), 1U);
    EXPECT_EQ(globals.timerHandle, host.timers[0].handle);
    ASSERT_EQ(host.fileFormats.size(), 1U);
    EXPECT_EQ(globals.fileFormatHandle, host.fileFormats[0].handle);
}

// The host hands blocks out with any bytes in them.
TEST_F(GlobalsRecord, FirstReservedWordStaysAndTheOtherTwoAreZeroed)
{
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    const auto* const words = reinterpret_cast<const std::uint64_t*>(&globals.globalsString) + 1;
    EXPECT_EQ(words[0], 0xA5A5A5A5A5A5A5A5U);
    EXPECT_EQ(words[1], 0U);
    EXPECT_EQ(words[2], 0U);
}

TEST_F(GlobalsRecord, IsABlockOfTheHostsNamedGlobals)
{
    ASSERT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.CountCalls("SPBlocksSuite.AllocateBlock(160, \"globals\")"), 1U);
    EXPECT_EQ(host.blocks.count(host.globals), 1U);
}

TEST_F(GlobalsRecord, NotifiersThatCouldNotBeAddedAreNull)
{
    host.FailCall("AINotifierSuite.AddNotifier", 3, 4711);
    Start();
    const SGlobals& globals = *static_cast<SGlobals*>(host.globals);
    EXPECT_NE(globals.documentChangedNotifier, nullptr);
    EXPECT_NE(globals.documentOpenedNotifier, nullptr);
    EXPECT_EQ(globals.documentAboutToCloseNotifier, nullptr);
    EXPECT_EQ(globals.documentClosedNotifier, nullptr);
    EXPECT_EQ(globals.fontListChangedNotifier, nullptr);
    EXPECT_EQ(globals.diskWritingCompleteNotifier, nullptr);
}

}  // namespace
