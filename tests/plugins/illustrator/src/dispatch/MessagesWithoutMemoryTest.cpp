#include <new>

#include "AllocationCounter.h"
#include "LibraryMenu.h"
#include "MenuConstruction.h"
#include "MenuState.h"
#include "MessageFixture.h"
#include "UnfailingAllocations.h"

namespace {

constexpr char kMenus[] =
    R"({"id":"root","title":"Root","label":"","checked":false,"enabled":true,"child":[)"
    R"({"id":"libraries","title":"Libraries","label":"Select Library","checked":false,)"
    R"("enabled":true,"child":[{"id":"a","title":"A","label":"A","checked":true,"enabled":true,)"
    R"("child":[]}]}]})";

// Messages in which one allocation fails, of the plug-in or of the doubles. None may end the
// process. The release of the menu suite is excepted: no exception of it is expected.
class MessagesWithoutMemory : public MessageFixture {
protected:
    MessagesWithoutMemory()
    {
        UnfailingCall<&SPBasicSuite::ReleaseSuite>::Install(*host.Basic());
        Start();
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}, {{"B"}}};
        document.storyFonts = {"A", "B"};
        document.placedPaths = {"/placed.eps"};
        core->documentID = "id";
        core->menus = kMenus;
        core->openAnswer =
            R"({"DocumentFonts":[{"PostScriptName":"HostSans-Regular"},{"PostScriptName":"B"}]})";
        MenuItemHelp help;
        EXPECT_EQ(0U, AddIllustratorMenu("libraries", kSelectLibrary, "Libraries", false, true,
                                         true, nullptr, &help));
    }

    // Doesn't look at what is left: a double that fails halfway leaves something.
    void TearDown() override { (void)SendInterface("Shutdown"); }

    // Calls `send` with each of its allocations failing, until none is left. Returns their number.
    template <class Send>
    std::size_t FailEach(Send send)
    {
        for (std::size_t nth = 1; nth < 10000; ++nth) {
            AllocationCounter::FailNth(nth);
            try {
                send();
            } catch (const std::bad_alloc&) {
                // The test's own allocation, or that of a function that isn't behind the barrier.
            }
            const bool hasFailed = AllocationCounter::HasFailed();
            AllocationCounter::FailNth(0);
            Forget();
            if (!hasFailed) return nth - 1;
        }
        ADD_FAILURE() << "the message doesn't end";
        return 0;
    }

    void SendMenu(const char* selector)
    {
        AIMenuMessage message = host.MenuMessage(gMenuState.sSelectLibraryMenuHandle);
        (void)host.Send(Main, "AI Menu", selector, message);
    }
};

TEST_F(MessagesWithoutMemory, OpenedDocument)
{
    EXPECT_LT(50U, FailEach([this] { (void)SendNotifier(kOpened, host.DocumentHandle(0)); }));
}

TEST_F(MessagesWithoutMemory, CheckedFile)
{
    EXPECT_LT(50U, FailEach([this] { (void)SendCheck("/a.ai"); }));
}

TEST_F(MessagesWithoutMemory, ChangedDocument)
{
    EXPECT_LT(50U, FailEach([this] { (void)SendNotifier("AI Document Changed Notifier"); }));
}

TEST_F(MessagesWithoutMemory, UpdatedMenu)
{
    EXPECT_LT(50U, FailEach([this] { SendMenu("AI Update"); }));
}

TEST_F(MessagesWithoutMemory, ChosenMenuItem)
{
    EXPECT_LT(50U, FailEach([this] { SendMenu("AI Go"); }));
}

TEST_F(MessagesWithoutMemory, RebuiltLibraryMenu)
{
    EXPECT_LT(50U, FailEach([] { RebuildWorkgroupsMenu(); }));
}

}  // namespace
