#include "../PluginSupport.h"

namespace {

AIArtHandle sKept = nullptr;

void OnOpened(_t_AIDocument*)
{
    if (sKept == nullptr) {
        sKept = plugin::GetFirstFrame();
        return;
    }
    plugin::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    ATE::_TextFrame* frame = nullptr;
    (void)frames->GetATETextFrame(sKept, &frame);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
