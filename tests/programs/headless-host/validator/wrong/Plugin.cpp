#include <cstring>
#include <utility>

#include "Documents.h"
#include "Faults.h"
#include "HostPlatform_Linux.h"
#include "Start.h"
#include "Suites.h"

namespace wrong {

namespace {

constexpr AIErr kIgnored = 1;
constexpr AIErr kNotOurs = -1;

int sDepth = 0;

struct Depth {
    Depth() { ++sDepth; }
    ~Depth() { --sDepth; }
};

void HandleMenu(const AIMenuMessage& message)
{
    if (message.menuItem == nullptr || message.menuItem != GetItem()) return;
    const bool isChoice = life.IsIn("AI Go");
    if (!isChoice && !life.IsIn("AI Update")) return;
    Tell(isChoice ? Moment::kChosen : Moment::kUpdate);
    UseString();
    UseBlock();
    const Suite<AIMenuSuite> menus("AI Menu Suite", 1011);
    Word text(DestroyString);
    Expect("GetItemText", menus->GetItemText(message.menuItem, text.As<ai::UnicodeString>()));
    Expect("CheckItem", menus->CheckItem(message.menuItem, !isChoice));
    if (isChoice && !life.documents.empty()) Walk();
    if (!isChoice) ++life.updates;
}

void HandleEnd()
{
    Tell(Moment::kEnding);
    life.hasEnded = true;
    StopTimer();
    if (life.kept.empty()) return;
    const Suite<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    for (void* const block : life.kept) (void)blocks->FreeBlock(block);
    life.kept.clear();
}

void HandleInterface()
{
    if (life.IsIn("About")) Tell(Moment::kAbout);
    if (!life.IsIn("Shutdown")) return;
    Tell(Moment::kShutdown);
    if (!life.hasEnded && life.isRunning) HandleEnd();
    life.isRunning = false;
    life.hasShutDown = true;
    life.data->globals = nullptr;
}

AIErr HandleAccess()
{
    if (life.IsIn("Reload")) Tell(Moment::kReload);
    if (!life.IsIn("Unload")) return kHostSuccess;
    if (life.isRunning) return kIgnored;
    Tell(Moment::kUnload);
    return life.maySucceed ? kHostSuccess : kIgnored;
}

// Only the messages about closing: what the plug-in is just reading may be gone.
void HandleNested(void* message)
{
    Tell(Moment::kNested);
    if (life.caller != "AI Notifier" || !life.IsIn("AI Notify")) return;
    const auto& notice = *static_cast<AINotifierMessage*>(message);
    if (notice.type != nullptr && std::strcmp(notice.type, "AI Document Closed Notifier") == 0) {
        ++life.closedInside;
    }
}

AIErr Handle(void* message)
{
    Tell(Moment::kMessage);
    if (life.caller == "SP Interface" && life.IsIn("Startup")) return Start();
    if (life.caller == "SP Access") return HandleAccess();
    if (life.caller == "SP Interface" && life.IsIn("Shutdown")) {
        HandleInterface();
        return kHostSuccess;
    }
    if (life.hasEnded || life.hasShutDown) {
        if (life.hasShutDown) Tell(Moment::kAfterEnd);
        return kIgnored;
    }
    if (!life.isRunning) {
        Tell(Moment::kRefused);
        return kIgnored;
    }
    if (life.caller != "AI Notifier" && life.caller != "AI Menu") life.closedInARow = 0;
    if (life.caller == "SP Interface") HandleInterface();
    if (life.caller == "AI Menu") HandleMenu(*static_cast<AIMenuMessage*>(message));
    if (life.caller == "AI Timer" && life.IsIn("AI Go")) {
        ++life.ticks;
        Tell(Moment::kTick);
    }
    if (life.caller == "AI File Format" && life.IsIn("AI Check")) {
        HandleCheck(
            *reinterpret_cast<void**>(&static_cast<AIFileFormatMessage*>(message)->filePath));
        return kNotOurs;
    }
    if (life.caller == "AI Notifier" && life.IsIn("AI Notify")) {
        const auto& notice = *static_cast<AINotifierMessage*>(message);
        if (!IsOwnNotifier(notice.notifier)) return kHostSuccess;
        const bool isEnd = notice.type != nullptr &&
                           std::strcmp(notice.type, "AI Application Shutdown Notifier") == 0;
        if (isEnd) HandleEnd();
        if (!isEnd) HandleNotifier(notice.type, notice.notifyData);
    }
    return kHostSuccess;
}

// A message inside of another one must leave no trace of itself.
class MessageFacts {
public:
    MessageFacts(const char* caller, const char* selector, SPMessageData* data)
        : mCaller(std::exchange(life.caller, caller)),
          mSelector(std::exchange(life.selector, selector)),
          mData(std::exchange(life.data, data)),
          mDocument(std::exchange(life.document, nullptr))
    {
    }
    ~MessageFacts()
    {
        life.caller.swap(mCaller);
        life.selector.swap(mSelector);
        life.data = mData;
        life.document = mDocument;
    }
    MessageFacts(const MessageFacts&) = delete;
    MessageFacts& operator=(const MessageFacts&) = delete;

private:
    std::string mCaller;
    std::string mSelector;
    SPMessageData* const mData;
    Document* const mDocument;
};

AIErr Answer(const char* caller, const char* selector, void* message)
{
    auto* const data = static_cast<SPMessageData*>(message);
    if (caller == nullptr || selector == nullptr || data == nullptr) return kIgnored;
    if (data->basic == nullptr) return kIgnored;
    const MessageFacts facts(caller, selector, data);
    const Depth depth;
    if (sDepth == 1) return Handle(message);
    HandleNested(message);
    return kIgnored;
}

}  // namespace

}  // namespace wrong

extern "C" __attribute__((visibility("default"))) AIErr PluginMain(char* caller, char* selector,
                                                                   void* message)
{
    try {
        return wrong::Answer(caller, selector, message);
    } catch (const wrong::Failure& failure) {
        return failure.status;
    } catch (...) {
        if (wrong::IsFault()) throw;
        wrong::Tell(wrong::Moment::kException);
        return kHostBadParameter;
    }
}
