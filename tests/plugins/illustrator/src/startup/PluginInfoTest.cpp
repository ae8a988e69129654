#include "PluginInfo.h"

#include <gtest/gtest.h>

namespace {

const char* const kPlaceholder = "./CorvantaFontManagement...";

TEST(PluginInfo, IdentifierIsEmpty)
{
    EXPECT_EQ(PluginInfo::bundleIdentifier, "");
    EXPECT_EQ(PluginInfo::GetPluginBundleIdentifier(), "");
}

TEST(PluginInfo, IdentifierIsThatOfTheMember)
{
    PluginInfo::bundleIdentifier = "com.example.plugin";
    EXPECT_EQ(PluginInfo::GetPluginBundleIdentifier(), "com.example.plugin");
    PluginInfo::bundleIdentifier.clear();
}

TEST(PluginInfo, PathWithoutAnIdentifierIsThePlaceholder)
{
    EXPECT_EQ(PluginInfo::GetPluginPath(nullptr), kPlaceholder);
}

TEST(PluginInfo, PathOfAnUnknownBundleIsThePlaceholder)
{
    EXPECT_EQ(PluginInfo::GetPluginPath("com.example.unknown"), kPlaceholder);
    EXPECT_EQ(PluginInfo::GetPluginPath(""), kPlaceholder);
}

}  // namespace
