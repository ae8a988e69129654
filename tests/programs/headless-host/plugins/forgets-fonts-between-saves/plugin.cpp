#include "../PluginSupport.h"

// Remembers the fonts of the first save, to compare them with those of the next one. A change of
// the host's fonts in between empties the memory, which the next save doesn't expect. Each message
// by itself is answered well, and so are any number of saves, or of changes.
namespace {

const std::string kFonts = "A-Regular";

AINotifierHandle sSaved = nullptr;
AINotifierHandle sSavedAs = nullptr;
AINotifierHandle sFontsChanged = nullptr;
const std::string* volatile sKnown = nullptr;
size_t sSaves = 0;

void OnSaved()
{
    if (sSaves++ == 0) sKnown = &kFonts;
    if (sKnown->size() != kFonts.size()) sKnown = &kFonts;
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    const AIErr result = plugin::Serve(caller, selector, message, nullptr, nullptr);
    const std::string what = std::string(caller) + "/" + selector;
    if (what == "SP Interface/Startup") {
        plugin::Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
        if (!notifiers.IsThere()) return result;
        (void)notifiers->AddNotifier(plugin::self, "Saved", "AI Command Notifier: After Save",
                                     &sSaved);
        (void)notifiers->AddNotifier(plugin::self, "Saved as", "AI Command Notifier: After Save As",
                                     &sSavedAs);
        (void)notifiers->AddNotifier(plugin::self, "Fonts", "AI Font List Changed Notifier",
                                     &sFontsChanged);
    }
    if (what != "AI Notifier/AI Notify") return result;
    const AINotifierHandle notifier = static_cast<AINotifierMessage*>(message)->notifier;
    if (notifier == sFontsChanged) sKnown = nullptr;
    if (notifier == sSaved || notifier == sSavedAs) OnSaved();
    return result;
}
