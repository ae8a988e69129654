#include <stdlib.h>
#include <unistd.h>

#include <memory>

#include "MessageFixture.h"

using ::testing::IsEmpty;

namespace {

// Startup with PluginCore found on disk: in the working folder, or not at all. Each case needs a
// process of its own: a library opened by a relative path stays open under that name.
class StartupWithLibraries : public MessageTest {
protected:
    StartupWithLibraries()
    {
        PCILoader::sSharedInstance = nullptr;
        (void)ScratchFile("empty", "");
        EXPECT_EQ(setenv("HOME", scratch.c_str(), 1), 0);
        EXPECT_EQ(setenv("XDG_DATA_HOME", scratch.c_str(), 1), 0);
        EXPECT_EQ(chdir(scratch.c_str()), 0);
    }
    ~StartupWithLibraries() override
    {
        EXPECT_EQ(chdir("/"), 0);
        // The system keeps the instance for good; a test doesn't.
        const std::unique_ptr<PCILoader> instance(PCILoader::sSharedInstance);
    }

    static void Use(const std::string& variant)
    {
        ASSERT_EQ(chdir((std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/" + variant).c_str()), 0);
    }
    static ScriptedPluginCore& Library()
    {
        const BundleRef bundle = LoadDllOrFramework("PluginCore.framework", nullptr, 0);
        const auto state = reinterpret_cast<ScriptedPluginCoreGetStateFunction>(
            GetFunctionPtr(bundle, "ScriptedPluginCore_GetState"));
        return *state();
    }
    void ExpectInert()
    {
        EXPECT_EQ(host.globals, nullptr);
        EXPECT_THAT(host.notifiers, IsEmpty());
        EXPECT_THAT(host.fileFormats, IsEmpty());
        EXPECT_THAT(host.timers, IsEmpty());
        SPInterfaceMessage message = host.InterfaceMessage();
        EXPECT_EQ(host.Send(Main, "SP Access", "Unload", message), 0);
    }
};

TEST_F(StartupWithLibraries, MissingPluginCoreIsToldWithThePlaceholderPath)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    ASSERT_EQ(host.alerts.size(), 1U);
    EXPECT_EQ(host.alerts[0].messageText, "Missing PluginCore");
    EXPECT_EQ(host.alerts[0].informativeText, "./CorvantaFontManagement...");
    ExpectInert();
}

TEST_F(StartupWithLibraries, CompletePluginCoreStarts)
{
    Use("complete");
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(host.alerts, IsEmpty());
    EXPECT_NE(host.globals, nullptr);
    EXPECT_EQ(host.notifiers.size(), 12U);
}

TEST_F(StartupWithLibraries, FileThatIsNoLibraryCountsAsMissing)
{
    Use("not-a-library");
    EXPECT_EQ(SendInterface("Startup"), 0);
    ASSERT_EQ(host.alerts.size(), 1U);
    EXPECT_EQ(host.alerts[0].messageText, "Missing PluginCore");
    ExpectInert();
}

class RefusedLibrary : public StartupWithLibraries,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(RefusedLibrary, IsToldOnceAndNothingElseOfItIsCalled)
{
    Use(GetParam());
    EXPECT_EQ(SendInterface("Startup"), 0);
    ASSERT_EQ(host.alerts.size(), 1U);
    EXPECT_EQ(host.alerts[0].messageText, "Incompatible PluginCore");
    EXPECT_EQ(host.alerts[0].informativeText, "PluginCore.framework (version 4.5.6)");
    ExpectInert();
    for (const std::string& call : Library().calls) EXPECT_EQ(call, "GetAPIVersion(0, 7)");
    EXPECT_LE(Library().calls.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Faults, RefusedLibrary,
                         ::testing::Values("missing-ShouldShowLogin", "missing-GetAPIVersion",
                                           "missing-InvokeCommandDialog", "only-two", "empty",
                                           "version-refused"),
                         [](const auto& row) {
                             std::string name = row.param;
                             for (char& each : name) each = each == '-' ? '_' : each;
                             return name;
                         });

TEST_F(StartupWithLibraries, FailedInitializationIsSilent)
{
    Use("initialization-fails");
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(host.alerts, IsEmpty());
    ExpectInert();
    EXPECT_THAT(Library().CalledNames(),
                ::testing::ElementsAre("GetAPIVersion", "InitializePluginCoreInterface"));
}

TEST_F(StartupWithLibraries, LibraryThatThrowsEndsAtTheBarrier)
{
    Use("throws");
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    ExpectInert();
}

TEST_F(StartupWithLibraries, AboutWithoutPluginCoreCallsNothing)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_EQ(host.alerts.size(), 1U);
}

TEST_F(StartupWithLibraries, AboutFindsAPluginCoreThatHasComeSince)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    Use("version-refused");
    host.AddDocument("/a.ai");
    EXPECT_EQ(SendInterface("About"), 0);
    // No test of the version stands before it.
    EXPECT_THAT(Library().calls,
                ::testing::ElementsAre("InvokeCommandDialog(\"/a.ai\", zeroed 256, false)"));
}

TEST_F(StartupWithLibraries, AboutAfterARefusalStillReachesPluginCore)
{
    Use("missing-GetMenus");
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(Library().CalledNames(),
                ::testing::ElementsAre("GetAPIVersion", "InvokeCommandDialog"));
}

TEST_F(StartupWithLibraries, AboutWithoutTheDialogsFunctionCallsNothing)
{
    Use("missing-InvokeCommandDialog");
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(Library().CalledNames(), ::testing::ElementsAre("GetAPIVersion"));
}

}  // namespace
