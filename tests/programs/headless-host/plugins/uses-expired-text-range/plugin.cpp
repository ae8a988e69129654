#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    plugin::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    plugin::Held<ATE::TextRangeSuite> ranges("ATE TextRange Suite", 1);
    ATE::_TextRange* range = nullptr;
    (void)frames->GetATETextRange(plugin::GetFirstFrame(), &range);
    (void)ranges->Release(range);
    ATE::_CharFeatures* features = nullptr;
    (void)ranges->GetUniqueCharFeatures(range, &features);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
