#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    const AIDocumentSuite* suite = nullptr;
    (void)plugin::basic->AcquireSuite("AI Document Suite", 1017, &suite);
    (void)plugin::basic->ReleaseSuite("AI Document Suite", 1017);
    _t_AIDocument* document = nullptr;
    (void)suite->GetDocument(&document);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
