#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    plugin::Held<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    void* block = nullptr;
    (void)blocks->AllocateBlock(100, "a block", &block);
    (void)blocks->FreeBlock(block);
    (void)blocks->FreeBlock(block);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
