#include <unistd.h>

#include "Fault.h"
#include "FileFormatHook.h"
#include "PluginGlobals.h"

namespace wrong {

namespace {

int sOpenDocuments = 0;
bool sHasRun = false;
bool sMissesTick = false;

bool IsTick(const Message& message) { return message.Is("AI Timer", "AI Go"); }

const char* GetNotifierType(const Message& message)
{
    if (!message.Is("AI Notifier", "AI Notify")) return "";
    const char* const type = static_cast<AINotifierMessage*>(message.data)->type;
    return type != nullptr ? type : "";
}

AIErr UnloadWithDocument(Message& message)
{
    const std::string type = GetNotifierType(message);
    if (type == "AI Document New Notifier") ++sOpenDocuments;
    if (type == "AI Document Closed Notifier") --sOpenDocuments;
    if (message.Is("SP Access", "Unload") && sOpenDocuments > 0) return kHostSuccess;
    return message.Send();
}

AIErr FailForUnknownCaller(Message& message)
{
    for (const char* caller :
         {"SP Interface", "SP Access", "AI Menu", "AI Notifier", "AI Timer", "AI File Format"}) {
        if (message.caller == caller) return message.Send();
    }
    return 1;
}

AIErr GiveNestedIdleTime(Message& message)
{
    if (IsTick(message) && message.depth > 0) return static_cast<AIErr>(core::IdleEvent());
    return message.Send();
}

AIErr MissTickAfterNestedOne(Message& message)
{
    if (IsTick(message) && message.depth > 0) sMissesTick = true;
    if (IsTick(message) && message.depth == 0 && sMissesTick) {
        sMissesTick = false;
        return kHostSuccess;
    }
    return message.Send();
}

// A check is answered with 0 only if an exception ended it.
AIErr MissTickAfterException(Message& message)
{
    if (IsTick(message) && sMissesTick) {
        sMissesTick = false;
        return kHostSuccess;
    }
    const AIErr result = message.Send();
    if (message.Is("AI File Format", "AI Check") && result == kHostSuccess) sMissesTick = true;
    return result;
}

AIErr TakeMissingFile(Message& message)
{
    const AIErr result = message.Send();
    if (!message.Is("AI File Format", "AI Check") || message.depth > 0) return result;
    try {
        auto* const check = static_cast<AIFileFormatMessage*>(message.data);
        const std::string path = GetDocumentPathFromFileFormatMessage(check);
        const bool isThere = path.empty() || access(path.c_str(), F_OK) == 0;
        return isThere ? result : AIErr{kHostSuccess};
    } catch (...) {
        return result;
    }
}

AIErr UseGlobalsAfterRefusal(Message& message)
{
    if (gGlobals != nullptr) sHasRun = true;
    if (IsTick(message) && !sHasRun) {
        const volatile SGlobals* const globals = gGlobals;
        return globals->globalsVersion != 0 ? kHostSuccess : 1;
    }
    return message.Send();
}

AIErr HaveNoIdleTimeAfterUnload(Message& message)
{
    if (message.Is("SP Access", "Unload")) sMissesTick = true;
    return IsTick(message) && sMissesTick ? AIErr{kHostSuccess} : message.Send();
}

}  // namespace

const Fault kMessageFaults[] = {{105, UnloadWithDocument, nullptr},
                                {211, FailForUnknownCaller, nullptr},
                                {308, GiveNestedIdleTime, nullptr},
                                {309, MissTickAfterNestedOne, nullptr},
                                {313, MissTickAfterException, nullptr},
                                {1011, TakeMissingFile, nullptr},
                                {1413, UseGlobalsAfterRefusal, nullptr},
                                {1416, HaveNoIdleTimeAfterUnload, nullptr},
                                {0, nullptr, nullptr}};

}  // namespace wrong
