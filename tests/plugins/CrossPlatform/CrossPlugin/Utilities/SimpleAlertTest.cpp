#include "SimpleAlert.h"

#include <gtest/gtest.h>

#include "ScriptedHost.h"

namespace {

TEST(SimpleAlert, PassesBothTextsToTheHost)
{
    ScriptedHost host;
    EXPECT_EQ(0, SimpleAlert("Missing PluginCore", "./CorvantaFontManagement..."));
    ASSERT_EQ(1U, host.alerts.size());
    EXPECT_EQ("Missing PluginCore", host.alerts[0].messageText);
    EXPECT_EQ("./CorvantaFontManagement...", host.alerts[0].informativeText);
}

TEST(SimpleAlert, PassesUTF8AndEmptyTexts)
{
    ScriptedHost host;
    EXPECT_EQ(0, SimpleAlert("caf\xC3\xA9 %s", ""));
    ASSERT_EQ(1U, host.alerts.size());
    EXPECT_EQ("caf\xC3\xA9 %s", host.alerts[0].messageText);
    EXPECT_EQ("", host.alerts[0].informativeText);
}

TEST(SimpleAlert, ShowsOneAlertPerCall)
{
    ScriptedHost host;
    EXPECT_EQ(0, SimpleAlert("1", "a"));
    EXPECT_EQ(0, SimpleAlert("2", "b"));
    EXPECT_EQ(2U, host.alerts.size());
}

TEST(SimpleAlert, WritesNothingToStandardErrorWithAHost)
{
    ScriptedHost host;
    testing::internal::CaptureStderr();
    EXPECT_EQ(0, SimpleAlert("message", "information"));
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

}  // namespace
