#include <cstdlib>

#include "../PluginSupport.h"

// Asks the host twice. Before the second time it takes a lock of its own, and doesn't release it if
// the host refuses: the next document finds the lock taken. Nothing is wrong as long as no call
// fails, or only the first of its kind.
namespace {

bool sIsBusy = false;

void OnOpened(_t_AIDocument*)
{
    if (sIsBusy) std::abort();
    const AIDocumentSuite* documents = nullptr;
    if (plugin::basic->AcquireSuite("AI Document Suite", 1017, &documents) != kHostSuccess) return;
    bool isModified = false;
    bool isRefused = documents->GetDocumentModified(&isModified) != kHostSuccess;
    if (!isRefused) {
        sIsBusy = true;
        isRefused = documents->GetDocumentModified(&isModified) != kHostSuccess;
        if (!isRefused) sIsBusy = false;
    }
    (void)plugin::basic->ReleaseSuite("AI Document Suite", 1017);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
