#include <cstdlib>

#include "../PluginSupport.h"

// Asks the host twice. Before the second time it takes a lock of its own, and doesn't release it if
// the host refuses: the next document finds the lock taken. Nothing is wrong as long as no call
// fails, only the first of its kind does, or one throws.
namespace {

bool sIsBusy = false;

AIErr AskTwice(const AIDocumentSuite& documents)
{
    bool isModified = false;
    const AIErr first = documents.GetDocumentModified(&isModified);
    if (first != kHostSuccess) return first;
    sIsBusy = true;
    try {
        const AIErr second = documents.GetDocumentModified(&isModified);
        if (second != kHostSuccess) return second;
    } catch (...) {
        sIsBusy = false;
        throw;
    }
    sIsBusy = false;
    return kHostSuccess;
}

void OnOpened(_t_AIDocument*)
{
    constexpr char kSuite[] = "AI Document Suite";
    constexpr int kVersion = 1017;
    if (sIsBusy) std::abort();
    const AIDocumentSuite* documents = nullptr;
    if (plugin::basic->AcquireSuite(kSuite, kVersion, &documents) != kHostSuccess) return;
    try {
        (void)AskTwice(*documents);
    } catch (...) {
        (void)plugin::basic->ReleaseSuite(kSuite, kVersion);
        throw;
    }
    (void)plugin::basic->ReleaseSuite(kSuite, kVersion);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    try {
        return plugin::Serve(caller, selector, message, OnOpened, nullptr);
    } catch (...) {
        return kHostOutOfMemory;
    }
}
