#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "AllocationCounter.h"
#include "FreshProcess.h"
#include "MenuConstruction.h"
#include "MenuState.h"
#include "MessageFixture.h"
#include "ScriptedHostSuites.h"
#include "UnfailingAllocations.h"

using ::testing::IsEmpty;

namespace {

// Startup with one allocation that fails, and then every message that a host can send. The doubles'
// own allocations don't fail.
class StartupWithoutMemory : public MessageFixture {
protected:
    StartupWithoutMemory()
        : mHasFailed(static_cast<bool*>(mmap(nullptr, sizeof(bool), PROT_READ | PROT_WRITE,
                                             MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
        WrapHost();
        WrapPluginCore(core.Loader());
        core->settings = R"({"DialogSuppression":"0","Other":{"List":[[1],"text"]}})";
        core->menus = R"({"id":"root","title":"Root","label":"","child":[]})";
        core->onCall["CreateMenusFromJSONBuffer"] = [this] {
            for (const char* title :
                 {"An item whose title is long", "Another title that is long"}) {
                (void)core->addIllustratorMenu("id", "A label of an item", title, false, true,
                                               false, nullptr, core->menuItemHelp);
            }
        };
    }
    ~StartupWithoutMemory() override { (void)munmap(mHasFailed, sizeof(bool)); }

    // Runs `body` with each of the startup's allocations failing, in a process for each, until the
    // startup succeeds because it has no further allocation. Returns the number of allocations.
    template <class Prepare>
    std::size_t FailEach(Prepare prepare)
    {
        for (std::size_t nth = 1; nth < 10000; ++nth) {
            InFreshProcess([&] {
                prepare();
                StartWithFailure(nth);
            });
            if (HasFailure()) {
                ADD_FAILURE() << "allocation " << nth;
                return nth;
            }
            if (!*mHasFailed) return nth - 1;
        }
        ADD_FAILURE() << "the startup doesn't end";
        return 0;
    }

private:
    // Not CreateMenusFromJSONBuffer, which calls back into the plug-in.
    static void WrapPluginCore(PCILoader& loader)
    {
        UnfailingCall<&PCILoader::pfGetAPIVersion>::Install(loader);
        UnfailingCall<&PCILoader::pfInitializePluginCoreInterface>::Install(loader);
        UnfailingCall<&PCILoader::pfSetRebuildWorkgroupsMenuCallback>::Install(loader);
        UnfailingCall<&PCILoader::pfGetMenus>::Install(loader);
        UnfailingCall<&PCILoader::pfPluginIsEnabled>::Install(loader);
        UnfailingCall<&PCILoader::pfGetSettings>::Install(loader);
    }

    static void WrapHost()
    {
        SPBasicSuite& basic = *ScriptedHost::Current().Basic();
        UnfailingCall<&SPBasicSuite::AcquireSuite>::Install(basic);
        UnfailingCall<&SPBasicSuite::ReleaseSuite>::Install(basic);
        UnfailingCall<&SPBasicSuite::IsEqual>::Install(basic);
        UnfailingCall<&SPBlocksSuite::AllocateBlock>::Install(*BlocksSuite());
        UnfailingCall<&SPBlocksSuite::FreeBlock>::Install(*BlocksSuite());
        AIUnicodeStringSuite& strings = *UnicodeStringSuite();
        UnfailingCall<&AIUnicodeStringSuite::Initialize>::Install(strings);
        UnfailingCall<&AIUnicodeStringSuite::Destroy>::Install(strings);
        UnfailingCall<&AIUnicodeStringSuite::GetAs>::Install(strings);
        AIMenuSuite& menus = *MenuSuite();
        UnfailingCall<&AIMenuSuite::AddMenuItem>::Install(menus);
        UnfailingCall<&AIMenuSuite::CountMenuItems>::Install(menus);
        UnfailingCall<&AIMenuSuite::GetNthMenuItem>::Install(menus);
        UnfailingCall<&AIMenuSuite::GetMenuItemKeyboardShortcutDictionaryKey>::Install(menus);
        UnfailingCall<&AIMenuSuite::AddMenuGroupAsSubMenu>::Install(menus);
        UnfailingCall<&AIDocumentSuite::GetDocumentFileSpecification>::Install(*DocumentSuite());
        UnfailingCall<&AINotifierSuite::AddNotifier>::Install(*NotifierSuite());
        UnfailingCall<&AIFileFormatSuite::AddFileFormatEx>::Install(*FileFormatSuite());
        UnfailingCall<&AIFileFormatSuite::SetFileFormatPriority>::Install(*FileFormatSuite());
        UnfailingCall<&AITimerSuite::AddTimer>::Install(*TimerSuite());
        UnfailingCall<&AITimerSuite::GetTimerActive>::Install(*TimerSuite());
        UnfailingCall<&AITimerSuite::SetTimerActive>::Install(*TimerSuite());
    }

    void StartWithFailure(std::size_t nth)
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        std::string caller = "SP Interface";
        std::string selector = "Startup";
        AllocationCounter::FailNth(nth);
        const AIErr result = Main(caller.data(), selector.data(), &message);
        *mHasFailed = AllocationCounter::HasFailed();
        AllocationCounter::FailNth(0);

        EXPECT_EQ(0, result);
        host.globals = message.d.globals;
        if (HasTrace("Unhandled exception in Typeloft plugin.")) {
            EXPECT_EQ(nullptr, host.globals);
            EXPECT_EQ(0U, host.LiveBlocks());
            core->calls.clear();
            SendEverything();
            // Nothing is passed on to PluginCore.
            EXPECT_THAT(core->calls, IsEmpty());
        } else {
            EXPECT_NE(nullptr, host.globals);
            EXPECT_EQ(1U, host.timers.size());
            SendEverything();
        }
        EXPECT_EQ(nullptr, host.globals);
        EXPECT_EQ(0U, host.LiveBlocks());
        EXPECT_THAT(host.Faults(), IsEmpty());
    }

    // Answers aren't compared: the plug-in may have started or not.
    void SendEverything()
    {
        const std::vector<ScriptedNotifier> notifiers = host.notifiers;
        (void)host.AddDocument("/a.ai");
        AITimerMessage tick = host.TimerMessage();
        (void)host.Send(Main, "AI Timer", "AI Go", tick);
        EXPECT_EQ(-1, SendCheck("/a.ai"));
        AIMenuMessage command = host.MenuMessage(nullptr);
        (void)host.Send(Main, "AI Menu", "AI Update", command);
        (void)host.Send(Main, "AI Menu", "AI Go", command);
        (void)SendInterface("About");
        for (const ScriptedNotifier& notifier : notifiers) {
            if (notifier.type.find("Shutdown") != std::string::npos) continue;
            (void)SendNotifier(notifier.type, host.DocumentHandle(0));
        }
        (void)SendInterface("Shutdown");
        SPInterfaceMessage unload = host.InterfaceMessage();
        EXPECT_EQ(0, host.Send(Main, "SP Access", "Unload", unload));
    }

    bool* const mHasFailed;
};

TEST_F(StartupWithoutMemory, CompletesOrLeavesThePluginInert)
{
    EXPECT_LT(5U, FailEach([] {}));
}

// The library is found in the working folder. Its allocations fail too: it throws.
TEST_F(StartupWithoutMemory, CompletesOrLeavesThePluginInertWithALibrary)
{
    EXPECT_LT(10U, FailEach([&] {
                  PCILoader::sSharedInstance = nullptr;
                  (void)setenv("HOME", scratch.c_str(), 1);
                  (void)setenv("XDG_DATA_HOME", scratch.c_str(), 1);
                  ASSERT_EQ(0, chdir(SCRIPTED_PLUGIN_CORE_FOLDER "/complete"));
              }));
}

}  // namespace
