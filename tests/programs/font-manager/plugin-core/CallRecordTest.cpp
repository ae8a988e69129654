#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreSession.h"

namespace {

std::vector<std::string> sLines;

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

// Each test takes the lines of its own calls.
class CallRecordTest : public testing::Test {
protected:
    void SetUp() override { sLines.clear(); }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
};

}  // namespace

// As the host executable exports it.
extern "C" __attribute__((visibility("default"))) void HeadlessHostJournal(const char* side,
                                                                           const char* operation,
                                                                           const char* arguments,
                                                                           const char* result)
{
    sLines.push_back(std::string(side) + " " + operation + " " + arguments + " " + result);
}

namespace {

TEST_F(CallRecordTest, TheCallsOfMenusAndPanelAreTold)
{
    EXPECT_EQ(mCore.pSetRebuildWorkgroupsMenuCallback([] {}), 0U);
    EXPECT_EQ(mCore.pRegisterPlugPlug(reinterpret_cast<SDKPlugPlug*>(&sLines)), 0U);
    int port = 0;
    EXPECT_EQ(mCore.pGetSocketPort(&port), 0U);
    EXPECT_THAT(sLines, ElementsAre("core SetRebuildWorkgroupsMenuCallback {} {\"status\":0}",
                                    "core RegisterPlugPlug {} {\"status\":0}",
                                    "core GetSocketPort {} {\"port\":" + std::to_string(port) +
                                        ",\"status\":0}"));
}

TEST_F(CallRecordTest, TicksAreNotTold)
{
    EXPECT_EQ(mCore.pIdleEvent(), 0U);
    EXPECT_EQ(mCore.pProcessPanelMessages(1), 0U);
    EXPECT_THAT(sLines, testing::IsEmpty());
}

TEST_F(CallRecordTest, ACommandIsToldWithItsArguments)
{
    EXPECT_EQ(mCore.pHandleMenuSelection("", "state", "activation:0", ""), 0U);
    EXPECT_THAT(sLines, Contains(StartsWith("core HandleMenuSelection {\"documentId\":\"\","
                                            "\"fontUsageJson\":\"\",\"menuKey\":\"activation:0\"}"
                                            " {\"status\":0}")));
}

}  // namespace
