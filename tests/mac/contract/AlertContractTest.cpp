#include <gtest/gtest.h>

#include "FreshProcess.h"
#include "Platform.h"
#include "SimpleAlert.h"

using Platform::AlertsOf;

namespace {

TEST(AlertContract, ShowsBothTextsAndReturnsZero)
{
    InFreshProcess([] {
        int result = -1;
        const auto alerts =
            AlertsOf([&] { result = SimpleAlert("Missing PluginCore", "./Corvanta"); });
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("Missing PluginCore", alerts[0].messageText);
        EXPECT_EQ("./Corvanta", alerts[0].informativeText);
        EXPECT_EQ(0, result);
    });
}

TEST(AlertContract, ShowsUTF8WithoutExpandingFormatDirectives)
{
    InFreshProcess([] {
        const auto alerts =
            AlertsOf([] { (void)SimpleAlert("caf\xC3\xA9 %s %@", "/\xE3\x83\x95 %d"); });
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("caf\xC3\xA9 %s %@", alerts[0].messageText);
        EXPECT_EQ("/\xE3\x83\x95 %d", alerts[0].informativeText);
    });
}

TEST(AlertContract, ShowsNullAsAnEmptyText)
{
    InFreshProcess([] {
        const auto alerts = AlertsOf([] { (void)SimpleAlert("message", nullptr); });
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("message", alerts[0].messageText);
        EXPECT_EQ("", alerts[0].informativeText);
    });
}

TEST(AlertContract, ShowsOneAlertPerCall)
{
    InFreshProcess([] {
        const auto alerts = AlertsOf([] {
            (void)SimpleAlert("1", "a");
            (void)SimpleAlert("2", "b");
        });
        ASSERT_EQ(2U, alerts.size());
        EXPECT_EQ("1", alerts[0].messageText);
        EXPECT_EQ("2", alerts[1].messageText);
    });
}

}  // namespace
