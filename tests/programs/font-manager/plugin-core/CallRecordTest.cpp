#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreSession.h"

namespace {

std::vector<std::string> sLines;

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

// Collects the records of the test's own calls.
class CallRecordTest : public testing::Test {
protected:
    void SetUp() override { sLines.clear(); }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
};

}  // namespace

// The function that headless-host exports.
extern "C" __attribute__((visibility("default"))) void HeadlessHostJournal(const char* side,
                                                                           const char* operation,
                                                                           const char* arguments,
                                                                           const char* result)
{
    sLines.push_back(std::string(side) + " " + operation + " " + arguments + " " + result);
}

namespace {

TEST_F(CallRecordTest, RecordsTheCallsForMenusAndPanel)
{
    EXPECT_EQ(0U, mCore.pSetRebuildWorkgroupsMenuCallback([] {}));
    EXPECT_EQ(0U, mCore.pRegisterPlugPlug(reinterpret_cast<SDKPlugPlug*>(&sLines)));
    int port = 0;
    EXPECT_EQ(0U, mCore.pGetSocketPort(&port));
    EXPECT_THAT(sLines, ElementsAre("core SetRebuildWorkgroupsMenuCallback {} {\"status\":0}",
                                    "core RegisterPlugPlug {} {\"status\":0}",
                                    "core GetSocketPort {} {\"port\":" + std::to_string(port) +
                                        ",\"status\":0}"));
}

TEST_F(CallRecordTest, DoesNotRecordTicks)
{
    EXPECT_EQ(0U, mCore.pIdleEvent());
    EXPECT_EQ(0U, mCore.pProcessPanelMessages(1));
    EXPECT_THAT(sLines, testing::IsEmpty());
}

TEST_F(CallRecordTest, RecordsACommandWithItsArguments)
{
    EXPECT_EQ(0U, mCore.pHandleMenuSelection("", "state", "activation:0", ""));
    EXPECT_THAT(sLines, Contains(StartsWith("core HandleMenuSelection {\"documentId\":\"\","
                                            "\"fontUsageJson\":\"\",\"menuKey\":\"activation:0\"}"
                                            " {\"status\":0}")));
}

}  // namespace
