#include <dlfcn.h>
#include <gtest/gtest.h>

#include "CheckBundle.h"
#include "FreshProcess.h"
#include "InstalledCore.h"
#include "Platform.h"
#include "ScriptedHost.h"

using Platform::AlertsOf;
using Platform::Dialog;

namespace {

const char* const kTitle = "Missing Fonts";

// The module, loaded as a host loads it. This program doesn't link the plug-in's code.
struct LoadedModule {
    LoadedModule() : handle(dlopen(PLUGIN_MODULE, RTLD_NOW | RTLD_LOCAL))
    {
        if (handle == nullptr) throw std::runtime_error(dlerror());
        entry = reinterpret_cast<PluginEntry>(dlsym(handle, "PluginMain"));
    }

    AIErr Send(const std::string& selector)
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return host.Send(entry, "SP Interface", selector, message);
    }

    ScriptedHost host;
    void* handle;
    PluginEntry entry = nullptr;
};

TEST(Module, ExportsOnlyPluginMain)
{
    InFreshProcess([] {
        const LoadedModule module;
        EXPECT_NE(nullptr, module.entry);
        EXPECT_EQ(nullptr, dlsym(module.handle, "GoNotifier"));
        EXPECT_EQ(nullptr, dlsym(module.handle, "OSGuard"));
    });
}

TEST(Module, ShowsAnAlertIfPluginCoreIsMissing)
{
    InFreshProcess([] {
        LoadedModule module;
        SetRunningApplications({});
        const auto alerts = AlertsOf([&] { EXPECT_EQ(0, module.Send("Startup")); });
        ASSERT_EQ(1U, alerts.size());
        EXPECT_EQ("Missing PluginCore", alerts[0].messageText);
        EXPECT_EQ("./CorvantaFontManagement...", alerts[0].informativeText);
        EXPECT_EQ(nullptr, module.host.globals);
    });
}

TEST(Module, PassesTheCheckOfItsBundle)
{
    const InstalledCore installed("complete");
    InFreshProcess([&] { EXPECT_EQ(0, CheckBundle(PLUGIN_BUNDLE, installed.Executable())); });
}

TEST(Module, CheckOfABundleFindsAFolderWithoutAModule)
{
    const InstalledCore installed("complete");
    const ScratchFolder folder;
    InFreshProcess([&] { EXPECT_EQ(2, CheckBundle(folder.Path(), installed.Executable())); });
}

TEST(Module, InstallsItsHookInTheApplicationThatLoadsIt)
{
    InFreshProcess([] {
        Dialog::WatchSessions();
        LoadedModule module;
        const InstalledCore installed("complete");
        EXPECT_EQ(0U, AlertsOf([&] { EXPECT_EQ(0, module.Send("Startup")); }).size());
        ASSERT_NE(nullptr, module.host.globals);

        ScriptedFileFormatMessage check = module.host.FileFormatMessage("/a.ai");
        EXPECT_EQ(-1, module.host.Send(module.entry, "AI File Format", "AI Check", check.record));
        Dialog dialog(kTitle);
        EXPECT_TRUE(dialog.RunSession());
        EXPECT_EQ(1U, dialog.Events().size());
        EXPECT_EQ(0, module.Send("Shutdown"));
    });
}

}  // namespace
