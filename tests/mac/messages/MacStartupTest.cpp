#include <stdlib.h>

#include <fstream>

#include "DialogSuppression.h"
#include "DllFrameworkUtils.h"
#include "FreshProcess.h"
#include "InstalledCore.h"
#include "MessageFixture.h"
#include "Platform.h"

using Platform::AlertsOf;
using Platform::Dialog;
using ::testing::IsEmpty;

namespace {

const char* const kTitle = "Missing Fonts";

// The plug-in before its startup, without a PluginCore. Each body has a process of its own, because
// an installed hook cannot be removed.
class MacStartup : public MessageFixture {
protected:
    MacStartup() { PCILoader::sSharedInstance = nullptr; }

    std::vector<Platform::ShownAlert> StartupAlerts()
    {
        return AlertsOf([this] { EXPECT_EQ(0, SendInterface("Startup")); });
    }
    static ScriptedPluginCore& StateOf(const InstalledCore& installed)
    {
        const BundleRef bundle = LoadDllOrFramework(installed.FrameworkPath().c_str(), nullptr, 0);
        const auto state = reinterpret_cast<ScriptedPluginCoreGetStateFunction>(
            GetFunctionPtr(bundle, "ScriptedPluginCore_GetState"));
        return *state();
    }
};

TEST_F(MacStartup, FindsPluginCoreBesideTheRunningProcess)
{
    InFreshProcess([this] {
        const InstalledCore installed("complete");
        EXPECT_THAT(StartupAlerts(), IsEmpty());
        EXPECT_NE(nullptr, host.globals);
        EXPECT_EQ(12U, host.notifiers.size());
        ASSERT_NE(nullptr, PCILoader::sSharedInstance);
        EXPECT_EQ(installed.FrameworkPath(), PCILoader::sSharedInstance->frameworkPath);
        EXPECT_EQ("4.5.6", PCILoader::sSharedInstance->frameworkVersion);
        EXPECT_EQ(0, PCILoader::sSharedInstance->missingFunctionCount);
    });
}

TEST_F(MacStartup, FindsPluginCoreByTheLaunchFile)
{
    InFreshProcess([this] {
        const InstalledCore installed("complete");
        SetRunningApplications({});
        const std::string launchFolder = Platform::LibraryFolder() + "/Corvanta";
        std::filesystem::create_directories(launchFolder);
        const std::string file = launchFolder + "/com.corvanta.Vexcor-LaunchInfo.conf";
        std::ofstream(file) << "vexcor.path=" << installed.Executable() << "\n";
        EXPECT_THAT(StartupAlerts(), IsEmpty());
        std::filesystem::remove(file);
        ASSERT_NE(nullptr, PCILoader::sSharedInstance);
        EXPECT_EQ(installed.FrameworkPath(), PCILoader::sSharedInstance->frameworkPath);
    });
}

TEST_F(MacStartup, ShowsThePlaceholderPathIfPluginCoreIsMissing)
{
    InFreshProcess([this] {
        SetRunningApplications({});
        const auto alerts = StartupAlerts();
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("Missing PluginCore", alerts[0].messageText);
        EXPECT_EQ("./CorvantaFontManagement...", alerts[0].informativeText);
        EXPECT_EQ(nullptr, host.globals);
        EXPECT_THAT(host.notifiers, IsEmpty());
    });
}

class MacRefusal : public MacStartup, public ::testing::WithParamInterface<const char*> {};

TEST_P(MacRefusal, IsShownOnceWithPathAndVersion)
{
    InFreshProcess([this] {
        const InstalledCore installed(GetParam());
        const auto alerts = StartupAlerts();
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("Incompatible PluginCore", alerts[0].messageText);
        EXPECT_EQ(installed.FrameworkPath() + " (version 4.5.6)", alerts[0].informativeText);
        EXPECT_EQ(nullptr, host.globals);
    });
}

// "not-a-library" opens as a bundle without any function, as every folder does on macOS.
INSTANTIATE_TEST_SUITE_P(Faults, MacRefusal,
                         ::testing::Values("version-refused", "missing-ShouldShowLogin",
                                           "not-a-library"),
                         [](const auto& row) {
                             std::string name = row.param;
                             for (char& each : name) each = each == '-' ? '_' : each;
                             return name;
                         });

TEST_F(MacStartup, HookDismissesADialogOnlyAfterAFileCheck)
{
    InFreshProcess([this] {
        Dialog::WatchSessions();
        const InstalledCore installed("complete");
        EXPECT_THAT(StartupAlerts(), IsEmpty());
        Dialog before(kTitle);
        EXPECT_TRUE(before.RunSession());
        EXPECT_TRUE(before.Events().empty());
        EXPECT_EQ(-1, SendCheck("/a.ai"));
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
    });
}

TEST_F(MacStartup, HookRemainsInstalledAfterShutdown)
{
    InFreshProcess([this] {
        Dialog::WatchSessions();
        const InstalledCore installed("complete");
        EXPECT_THAT(StartupAlerts(), IsEmpty());
        EXPECT_EQ(0, SendInterface("Shutdown"));
        SetSuppressionOfMissingFontsDialog(15);
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
    });
}

TEST_F(MacStartup, DisabledPluginInstallsNoHook)
{
    InFreshProcess([this] {
        Dialog::WatchSessions();
        const InstalledCore installed("complete");
        StateOf(installed).enabled = false;
        EXPECT_THAT(StartupAlerts(), IsEmpty());
        SetSuppressionOfMissingFontsDialog(15);
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.Events().empty());
    });
}

}  // namespace
