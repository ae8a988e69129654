#include "PCILoaderFixture.h"

using ::testing::ElementsAre;

namespace {

class PCILoaderIsLoadedTest : public PCILoaderTest {
protected:
    void ExpectAlert(const std::string& variant, const std::string& frameworkVersion)
    {
        ASSERT_EQ(1U, host.alerts.size());
        EXPECT_EQ("Incompatible PluginCore", host.alerts[0].messageText);
        EXPECT_EQ(Framework(variant) + " (version " + frameworkVersion + ")",
                  host.alerts[0].informativeText);
    }
    static std::string Reason(const std::string& variant, int count,
                              const std::string& frameworkVersion = "4.5.6")
    {
        return "PCILoader::IsLoaded() returning false. Reason: " + std::to_string(count) +
               " function(s) missing from " + Framework(variant) + ", version '" +
               frameworkVersion + "'";
    }
};

TEST_F(PCILoaderIsLoadedTest, CompleteFrameworkIsAcceptedWithoutAnAlert)
{
    EXPECT_TRUE(IsLoaded("complete"));
    EXPECT_EQ(Framework("complete"), path);
    EXPECT_EQ("4.5.6", version);
    EXPECT_EQ(0, missing);
    EXPECT_TRUE(host.alerts.empty());
    EXPECT_FALSE(HasTraceBeginningWith("PCILoader::IsLoaded()"));
}

TEST_F(PCILoaderIsLoadedTest, AsksForVersionSevenWithAZeroedVersion)
{
    EXPECT_TRUE(IsLoaded("complete"));
    const BundleRef bundle = LoadDllOrFramework(Framework("complete").c_str(), nullptr, 0);
    const auto state = reinterpret_cast<ScriptedPluginCoreGetStateFunction>(
        GetFunctionPtr(bundle, "ScriptedPluginCore_GetState"));
    ASSERT_NE(nullptr, state);
    EXPECT_THAT(state()->calls, ElementsAre("GetAPIVersion(0, 7)"));
}

TEST_F(PCILoaderIsLoadedTest, NullPointersAreRejected)
{
    PCILoader* const loader = Load("complete");
    ASSERT_NE(nullptr, loader);
    EXPECT_FALSE(loader->IsLoaded(nullptr, &version, &missing));
    EXPECT_FALSE(loader->IsLoaded(&path, nullptr, &missing));
    EXPECT_FALSE(loader->IsLoaded(&path, &version, nullptr));
    EXPECT_EQ(3U, CountTraces(
                      "PCILoader::IsLoaded() returning false because it was called incorrectly."));
    EXPECT_EQ("", path);
    EXPECT_EQ(-1, missing);
    EXPECT_TRUE(host.alerts.empty());
}

TEST_F(PCILoaderIsLoadedTest, AllMissingIsTracedAsTwentySix)
{
    EXPECT_FALSE(IsLoaded("empty"));
    EXPECT_EQ(26, missing);
    EXPECT_TRUE(HasTrace(Reason("empty", 26)));
    ExpectAlert("empty", "4.5.6");
}

TEST_F(PCILoaderIsLoadedTest, ExactlyTwentyFourMissingIsTracedAsAll)
{
    EXPECT_FALSE(IsLoaded("only-two"));
    EXPECT_EQ(24, missing);
    EXPECT_TRUE(
        HasTrace("PCILoader::IsLoaded() returning false because all 24 functions are missing."));
    EXPECT_FALSE(HasTrace(Reason("only-two", 24)));
    ExpectAlert("only-two", "4.5.6");
}

TEST_F(PCILoaderIsLoadedTest, RefusedVersionIsTracedWithACountOfZero)
{
    EXPECT_FALSE(IsLoaded("version-refused"));
    EXPECT_EQ(0, missing);
    EXPECT_TRUE(HasTrace(Reason("version-refused", 0)));
    ExpectAlert("version-refused", "4.5.6");
}

TEST_F(PCILoaderIsLoadedTest, NoVersionTextLeavesTheParenthesesEmpty)
{
    PCILoader* const loader = Load("no-version-text");
    ASSERT_NE(nullptr, loader);
    loader->pfGetAPIVersion = nullptr;
    EXPECT_FALSE(loader->IsLoaded(&path, &version, &missing));
    EXPECT_TRUE(HasTrace(Reason("no-version-text", 0, "")));
    ExpectAlert("no-version-text", "");
}

TEST_F(PCILoaderIsLoadedTest, SecondCallReturnsTheSame)
{
    EXPECT_TRUE(IsLoaded("complete"));
    path.clear();
    EXPECT_TRUE(PCILoader::GetSharedInstance()->IsLoaded(&path, &version, &missing));
    EXPECT_EQ(Framework("complete"), path);
    EXPECT_TRUE(host.alerts.empty());
}

// One library for each name that can be missing, including the four that are never called.
class PCILoaderMissingNameTest : public PCILoaderIsLoadedTest,
                                 public ::testing::WithParamInterface<const char*> {};

TEST_P(PCILoaderMissingNameTest, RejectsTheFramework)
{
    const std::string variant = std::string("missing-") + GetParam();
    EXPECT_FALSE(IsLoaded(variant));
    EXPECT_EQ(1, missing);
    EXPECT_TRUE(HasTrace(Reason(variant, 1)));
    ExpectAlert(variant, "4.5.6");
}

INSTANTIATE_TEST_SUITE_P(
    Names, PCILoaderMissingNameTest,
    ::testing::Values("ActivateChosenFonts", "CreateMenusFromJSONBuffer", "GetAPIVersion",
                      "GetIDForDocument", "GetMenus", "GetSettings", "GetSocketPort",
                      "HandleCloseDocument", "HandleCreateNewDocument", "HandleMenuSelection",
                      "HandleOpenExistingDocument", "HandleSaveDocument", "IdleEvent",
                      "InitializePluginCoreInterface", "InvokeCommandDialog", "InvokeResolveDialog",
                      "InvokeRestrictedFontsDialog", "PluginIsEnabled", "ProcessPanelMessages",
                      "RegisterPlugPlug", "SetPathForDocument", "TerminatePluginCoreInterface",
                      "UpdateDocumentFontUsage", "SetRebuildWorkgroupsMenuCallback",
                      "ShowNotLoggedInMessageBox", "ShouldShowLogin"),
    [](const auto& row) { return std::string(row.param); });

}  // namespace
