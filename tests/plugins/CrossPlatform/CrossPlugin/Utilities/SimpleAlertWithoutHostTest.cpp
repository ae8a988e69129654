#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SimpleAlert.h"

namespace {

using testing::HasSubstr;

TEST(SimpleAlertWithoutHost, WritesBothTextsToStandardError)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(0, SimpleAlert("Missing PluginCore", "/a/caf\xC3\xA9 %d"));
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_THAT(written, HasSubstr("Missing PluginCore"));
    EXPECT_THAT(written, HasSubstr("/a/caf\xC3\xA9 %d"));
    EXPECT_LT(written.find("Missing PluginCore"), written.find("/a/caf"));
}

TEST(SimpleAlertWithoutHost, WritesNothingToStandardOutput)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(0, SimpleAlert("message", "information"));
    (void)testing::internal::GetCapturedStderr();  // only standard output is tested
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
}

}  // namespace
