#include "plugin-core/storage/Settings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "CoreTestHome.h"
#include "plugin-core/storage/Failure.h"

using plugincore::Settings;

namespace {

class SettingsTest : public testing::Test {
protected:
    FontTestHome mHome;
    std::filesystem::path mFile = mHome.GetPath() / "config/Corvanta/settings.json";
    Settings mSettings;
};

TEST_F(SettingsTest, UsesTheDefaultsWithoutAFile)
{
    EXPECT_EQ("{\"DialogSuppression\":\"1\"}", mSettings.GetAsJson(mFile));
    EXPECT_EQ("", mSettings.Get(mFile, "PluginEnabled"));
}

TEST_F(SettingsTest, FileAddsAndReplacesSettings)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":\"2\",\"Other\":\"x\"}");
    EXPECT_EQ("{\"DialogSuppression\":\"2\",\"Other\":\"x\"}", mSettings.GetAsJson(mFile));
}

TEST_F(SettingsTest, ReadsAChangedFileAgain)
{
    EXPECT_EQ("1", mSettings.Get(mFile, "DialogSuppression"));
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":\"22\"}");
    EXPECT_EQ("22", mSettings.Get(mFile, "DialogSuppression"));
    std::filesystem::remove(mFile);
    EXPECT_EQ("1", mSettings.Get(mFile, "DialogSuppression"));
}

TEST_F(SettingsTest, InvalidFileIsReportedOnceAndUnchanged)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":");
    testing::internal::CaptureStderr();
    EXPECT_EQ("1", mSettings.Get(mFile, "DialogSuppression"));
    EXPECT_EQ("1", mSettings.Get(mFile, "DialogSuppression"));
    EXPECT_EQ("PluginCore: " + mFile.string() + ": not JSON; using default settings\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ(21U, std::filesystem::file_size(mFile));
}

TEST_F(SettingsTest, IgnoresMembersThatAreNotStrings)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":2,\"PluginEnabled\":\"0\"}");
    testing::internal::CaptureStderr();
    EXPECT_EQ("{\"DialogSuppression\":\"1\",\"PluginEnabled\":\"0\"}", mSettings.GetAsJson(mFile));
    EXPECT_NE(std::string::npos, testing::internal::GetCapturedStderr().find(
                                     "\"DialogSuppression\" is ignored: not a string"));
}

TEST_F(SettingsTest, SetKeepsTheOtherSettings)
{
    FontTestHome::WriteFile(mFile, "{\"Other\":\"x\",\"Number\":7}");
    std::filesystem::permissions(mFile, std::filesystem::perms(0640));
    mSettings.Set(mFile, "DialogSuppression", "2");
    std::ifstream stream(mFile);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ("{\n  \"DialogSuppression\": \"2\",\n  \"Number\": 7,\n  \"Other\": \"x\"\n}\n",
              text);
    EXPECT_EQ(std::filesystem::perms(0640), std::filesystem::status(mFile).permissions());
    testing::internal::CaptureStderr();
    EXPECT_EQ("2", mSettings.Get(mFile, "DialogSuppression"));
    (void)testing::internal::GetCapturedStderr();  // the line about the number
}

TEST_F(SettingsTest, SetCreatesTheFile)
{
    mSettings.Set(mFile, "FontActivation", "0");
    EXPECT_EQ("0", mSettings.Get(mFile, "FontActivation"));
    const std::filesystem::directory_iterator entries(mFile.parent_path());
    EXPECT_EQ(1, std::distance(begin(entries), end(entries)));
}

TEST_F(SettingsTest, SetFollowsALink)
{
    FontTestHome::WriteFile(mHome.GetPath() / "real.json", "{}");
    std::filesystem::create_directories(mFile.parent_path());
    std::filesystem::create_symlink(mHome.GetPath() / "real.json", mFile);
    mSettings.Set(mFile, "FontActivation", "0");
    EXPECT_TRUE(std::filesystem::is_symlink(mFile));
    EXPECT_EQ("0", Settings().Get(mHome.GetPath() / "real.json", "FontActivation"));
}

TEST_F(SettingsTest, SetDoesNotReplaceAnInvalidFile)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":");
    EXPECT_THROW(mSettings.Set(mFile, "DialogSuppression", "2"), plugincore::Failure);
    EXPECT_EQ(21U, std::filesystem::file_size(mFile));
}

TEST_F(SettingsTest, ErrorNamesAFolderThatCannotBeCreated)
{
    FontTestHome::WriteFile(mHome.GetPath() / "config", "a file");
    try {
        mSettings.Set(mFile, "DialogSuppression", "2");
        FAIL();
    } catch (const plugincore::Failure& failure) {
        EXPECT_EQ(0U, std::string(failure.what()).rfind(mFile.parent_path().string() + ": ", 0));
    }
}

TEST_F(SettingsTest, SettingDisablesThePlugin)
{
    const Framework core;
    bool enabled = false;
    EXPECT_EQ(0U, core.pPluginIsEnabled(true, &enabled));
    EXPECT_TRUE(enabled);
    FontTestHome::WriteFile(mFile, "{\"PluginEnabled\":\"0\"}");
    EXPECT_EQ(0U, core.pPluginIsEnabled(true, &enabled));
    EXPECT_FALSE(enabled);
}

TEST_F(SettingsTest, SmallBufferBecomesEmpty)
{
    const Framework core;
    char buffer[] = "xxxxxxxx";
    size_t size = 4;
    testing::internal::CaptureStderr();
    EXPECT_EQ(plugincore::StatusCodes::kIndexOutOfRange, core.pGetSettings(buffer, &size));
    EXPECT_EQ(std::string(buffer, 8), std::string(1, '\0') + "xxxxxxx");
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

}  // namespace
