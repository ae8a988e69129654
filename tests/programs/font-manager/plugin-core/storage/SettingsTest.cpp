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

TEST_F(SettingsTest, WithoutAFileTheDefaultsServe)
{
    EXPECT_EQ(mSettings.GetAsJson(mFile), "{\"DialogSuppression\":\"1\"}");
    EXPECT_EQ(mSettings.Get(mFile, "PluginEnabled"), "");
}

TEST_F(SettingsTest, TheFileAddsAndReplaces)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":\"2\",\"Other\":\"x\"}");
    EXPECT_EQ(mSettings.GetAsJson(mFile), "{\"DialogSuppression\":\"2\",\"Other\":\"x\"}");
}

TEST_F(SettingsTest, AChangeIsSeen)
{
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "1");
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":\"22\"}");
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "22");
    std::filesystem::remove(mFile);
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "1");
}

TEST_F(SettingsTest, ABrokenFileIsToldOnceAndStaysAsItIs)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":");
    testing::internal::CaptureStderr();
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "1");
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "1");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: " + mFile.string() + ": isn't JSON; the default settings serve\n");
    EXPECT_EQ(std::filesystem::file_size(mFile), 21U);
}

TEST_F(SettingsTest, AMemberThatIsNoStringIsLeftOut)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":2,\"PluginEnabled\":\"0\"}");
    testing::internal::CaptureStderr();
    EXPECT_EQ(mSettings.GetAsJson(mFile), "{\"DialogSuppression\":\"1\",\"PluginEnabled\":\"0\"}");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("\"DialogSuppression\" isn't a string"),
              std::string::npos);
}

TEST_F(SettingsTest, ASettingIsWrittenAndTheOthersStay)
{
    FontTestHome::WriteFile(mFile, "{\"Other\":\"x\",\"Number\":7}");
    std::filesystem::permissions(mFile, std::filesystem::perms(0640));
    mSettings.Set(mFile, "DialogSuppression", "2");
    std::ifstream stream(mFile);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text,
              "{\n  \"DialogSuppression\": \"2\",\n  \"Number\": 7,\n  \"Other\": \"x\"\n}\n");
    EXPECT_EQ(std::filesystem::status(mFile).permissions(), std::filesystem::perms(0640));
    testing::internal::CaptureStderr();
    EXPECT_EQ(mSettings.Get(mFile, "DialogSuppression"), "2");
    (void)testing::internal::GetCapturedStderr();  // tells of the number
}

TEST_F(SettingsTest, AFileIsMadeForTheFirstSetting)
{
    mSettings.Set(mFile, "FontActivation", "0");
    EXPECT_EQ(mSettings.Get(mFile, "FontActivation"), "0");
    const std::filesystem::directory_iterator entries(mFile.parent_path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(SettingsTest, ALinkToTheFileStaysALink)
{
    FontTestHome::WriteFile(mHome.GetPath() / "real.json", "{}");
    std::filesystem::create_directories(mFile.parent_path());
    std::filesystem::create_symlink(mHome.GetPath() / "real.json", mFile);
    mSettings.Set(mFile, "FontActivation", "0");
    EXPECT_TRUE(std::filesystem::is_symlink(mFile));
    EXPECT_EQ(Settings().Get(mHome.GetPath() / "real.json", "FontActivation"), "0");
}

TEST_F(SettingsTest, ABrokenFileIsNotWrittenOver)
{
    FontTestHome::WriteFile(mFile, "{\"DialogSuppression\":");
    EXPECT_THROW(mSettings.Set(mFile, "DialogSuppression", "2"), plugincore::Failure);
    EXPECT_EQ(std::filesystem::file_size(mFile), 21U);
}

TEST_F(SettingsTest, AFolderThatCannotBeMadeIsNamed)
{
    FontTestHome::WriteFile(mHome.GetPath() / "config", "a file");
    try {
        mSettings.Set(mFile, "DialogSuppression", "2");
        FAIL();
    } catch (const plugincore::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()).rfind(mFile.parent_path().string() + ": ", 0), 0U);
    }
}

TEST_F(SettingsTest, TheUserCanSwitchThePluginOff)
{
    const Framework core;
    bool enabled = false;
    EXPECT_EQ(core.pPluginIsEnabled(true, &enabled), 0U);
    EXPECT_TRUE(enabled);
    FontTestHome::WriteFile(mFile, "{\"PluginEnabled\":\"0\"}");
    EXPECT_EQ(core.pPluginIsEnabled(true, &enabled), 0U);
    EXPECT_FALSE(enabled);
}

TEST_F(SettingsTest, ASmallBufferStaysEmpty)
{
    const Framework core;
    char buffer[] = "xxxxxxxx";
    size_t size = 4;
    testing::internal::CaptureStderr();
    EXPECT_EQ(core.pGetSettings(buffer, &size), 0x0C000000U);
    EXPECT_EQ(std::string(buffer, 8), std::string(1, '\0') + "xxxxxxx");
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

}  // namespace
