#include <stdlib.h>
#include <unistd.h>

#include <memory>

#include "MessageFixture.h"

using ::testing::IsEmpty;

namespace {

// Startup with PluginCore on disk in the working folder, or missing. Each case needs a process of
// its own, since a library that was opened by a relative path remains open under that name.
class StartupWithLibraries : public MessageFixture {
protected:
    StartupWithLibraries()
    {
        PCILoader::sSharedInstance = nullptr;
        (void)ScratchFile("empty", "");
        EXPECT_EQ(0, setenv("HOME", scratch.c_str(), 1));
        EXPECT_EQ(0, setenv("XDG_DATA_HOME", scratch.c_str(), 1));
        EXPECT_EQ(0, chdir(scratch.c_str()));
    }
    ~StartupWithLibraries() override
    {
        EXPECT_EQ(0, chdir("/"));
        // The plug-in never deletes the instance.
        const std::unique_ptr<PCILoader> instance(PCILoader::sSharedInstance);
    }

    static void Use(const std::string& variant)
    {
        ASSERT_EQ(0, chdir((std::string(SCRIPTED_PLUGIN_CORE_FOLDER) + "/" + variant).c_str()));
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
        EXPECT_EQ(nullptr, host.globals);
        EXPECT_THAT(host.notifiers, IsEmpty());
        EXPECT_THAT(host.fileFormats, IsEmpty());
        EXPECT_THAT(host.timers, IsEmpty());
        SPInterfaceMessage message = host.InterfaceMessage();
        EXPECT_EQ(0, host.Send(Main, "SP Access", "Unload", message));
    }
};

TEST_F(StartupWithLibraries, AlertsThatPluginCoreIsMissingWithThePlaceholderPath)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    ASSERT_EQ(1U, host.alerts.size());
    EXPECT_EQ("Missing PluginCore", host.alerts[0].messageText);
    EXPECT_EQ("./CorvantaFontManagement...", host.alerts[0].informativeText);
    ExpectInert();
}

TEST_F(StartupWithLibraries, StartsWithACompletePluginCore)
{
    Use("complete");
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(host.alerts, IsEmpty());
    EXPECT_NE(nullptr, host.globals);
    EXPECT_EQ(12U, host.notifiers.size());
}

TEST_F(StartupWithLibraries, TreatsAFileThatIsNoLibraryAsMissing)
{
    Use("not-a-library");
    EXPECT_EQ(0, SendInterface("Startup"));
    ASSERT_EQ(1U, host.alerts.size());
    EXPECT_EQ("Missing PluginCore", host.alerts[0].messageText);
    ExpectInert();
}

class RefusedLibrary : public StartupWithLibraries,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(RefusedLibrary, AlertsOnceAndCallsNothingElseOfIt)
{
    Use(GetParam());
    EXPECT_EQ(0, SendInterface("Startup"));
    ASSERT_EQ(1U, host.alerts.size());
    EXPECT_EQ("Incompatible PluginCore", host.alerts[0].messageText);
    EXPECT_EQ("PluginCore.framework (version 4.5.6)", host.alerts[0].informativeText);
    ExpectInert();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    for (const std::string& call : Library().calls) EXPECT_EQ("GetAPIVersion(0, 7)", call);
    EXPECT_LE(Library().calls.size(), 1U);
}

std::string TestName(const ::testing::TestParamInfo<const char*>& row)
{
    std::string name = row.param;
    for (char& each : name) each = each == '-' ? '_' : each;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Faults, RefusedLibrary,
                         ::testing::Values("only-two", "empty", "version-refused"), TestName);

#define MISSING(Name) "missing-" #Name,
const char* const kMissingOne[] = {PLUGIN_CORE_FUNCTIONS(MISSING)};
#undef MISSING

INSTANTIATE_TEST_SUITE_P(MissingOne, RefusedLibrary, ::testing::ValuesIn(kMissingOne), TestName);

TEST_F(StartupWithLibraries, ShowsNoAlertIfInitializationFails)
{
    Use("initialization-fails");
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(host.alerts, IsEmpty());
    ExpectInert();
    EXPECT_THAT(Library().CalledNames(),
                ::testing::ElementsAre("GetAPIVersion", "InitializePluginCoreInterface"));
}

TEST_F(StartupWithLibraries, ExceptionOfTheLibraryReachesTheBarrier)
{
    Use("throws");
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    ExpectInert();
}

TEST_F(StartupWithLibraries, AboutWithoutPluginCoreCallsNothing)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_EQ(1U, host.alerts.size());
}

TEST_F(StartupWithLibraries, AboutFindsAPluginCoreThatWasAddedLater)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    Use("version-refused");
    host.AddDocument("/a.ai");
    EXPECT_EQ(0, SendInterface("About"));
    // It isn't asked for its version first.
    EXPECT_THAT(Library().calls,
                ::testing::ElementsAre("InvokeCommandDialog(\"/a.ai\", zeroed 256, false)"));
}

TEST_F(StartupWithLibraries, AboutAfterARefusalStillCallsPluginCore)
{
    Use("missing-GetMenus");
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(Library().CalledNames(),
                ::testing::ElementsAre("GetAPIVersion", "InvokeCommandDialog"));
}

TEST_F(StartupWithLibraries, AboutWithoutTheDialogsFunctionCallsNothing)
{
    Use("missing-InvokeCommandDialog");
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(Library().CalledNames(), ::testing::ElementsAre("GetAPIVersion"));
}

}  // namespace
