#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument* document)
{
    plugin::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    ATE::_TextRange* range = nullptr;
    (void)frames->GetATETextRange(reinterpret_cast<AIArtHandle>(document), &range);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
