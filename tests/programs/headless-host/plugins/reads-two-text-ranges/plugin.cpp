#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    plugin::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    plugin::Held<ATE::TextRangeSuite> ranges("ATE TextRange Suite", 1);
    const AIArtHandle frame = plugin::GetFirstFrame();
    for (int count = 0; count < 2; ++count) {
        ATE::_TextRange* range = nullptr;
        if (frames->GetATETextRange(frame, &range) == kHostSuccess) (void)ranges->Release(range);
    }
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
