#include <gtest/gtest.h>

#include "Platform.h"
#include "PluginInfo.h"

namespace {

TEST(BundlePathContract, FindsNoBundleForAnEmptyOrUnknownIdentifier)
{
    const long before = Platform::LiveReferences();
    std::string path = "as it was";
    EXPECT_FALSE(OSGetBundlePath("", path));
    EXPECT_FALSE(OSGetBundlePath("com.example.unknown", path));
    EXPECT_FALSE(OSGetBundlePath("caf\xE9", path));
    EXPECT_EQ("as it was", path);
    EXPECT_EQ(before, Platform::LiveReferences());
}

TEST(BundlePathContract, IsThePlaceholderIfThereIsNoBundle)
{
    EXPECT_EQ("./CorvantaFontManagement...", PluginInfo::GetPluginPath(nullptr));
    EXPECT_EQ("./CorvantaFontManagement...", PluginInfo::GetPluginPath("com.example.unknown"));
}

}  // namespace
