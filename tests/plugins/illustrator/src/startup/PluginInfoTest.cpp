#include "PluginInfo.h"

#include <gtest/gtest.h>

namespace {

const char* const kPlaceholder = "./CorvantaFontManagement...";

TEST(PluginInfo, IdentifierIsEmpty)
{
    EXPECT_EQ("", PluginInfo::bundleIdentifier);
    EXPECT_EQ("", PluginInfo::GetPluginBundleIdentifier());
}

TEST(PluginInfo, IdentifierComesFromTheMember)
{
    PluginInfo::bundleIdentifier = "com.example.plugin";
    EXPECT_EQ("com.example.plugin", PluginInfo::GetPluginBundleIdentifier());
    PluginInfo::bundleIdentifier.clear();
}

TEST(PluginInfo, PathWithoutAnIdentifierIsThePlaceholder)
{
    EXPECT_EQ(kPlaceholder, PluginInfo::GetPluginPath(nullptr));
}

TEST(PluginInfo, PathOfAnUnknownBundleIsThePlaceholder)
{
    EXPECT_EQ(kPlaceholder, PluginInfo::GetPluginPath("com.example.unknown"));
    EXPECT_EQ(kPlaceholder, PluginInfo::GetPluginPath(""));
}

}  // namespace
