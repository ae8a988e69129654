#include <cstring>

#include "../PluginSupport.h"

// Counts the ticks since the first change that isn't saved, and has a reminder for every fifth of
// them. After the fourth reminder there is none left, which it doesn't test. Any number of ticks is
// answered well while nothing has changed, and so is any change that is saved soon.
namespace {

constexpr size_t kTicksPerReminder = 5;
const char* const kReminders[] = {"Save now?", "Save soon?", "Save at last?", "Save!", nullptr};

AITimerHandle sTimer = nullptr;
AINotifierHandle sChanged = nullptr;
AINotifierHandle sSaved = nullptr;
bool sIsChanged = false;
size_t sTicks = 0;
volatile size_t sShown = 0;

void OnTick()
{
    if (!sIsChanged || ++sTicks % kTicksPerReminder != 0) return;
    sShown = sShown + std::strlen(kReminders[sTicks / kTicksPerReminder - 1]);
}

void Register()
{
    const plugin::Held<AITimerSuite> timers("AI Timer Suite", 1005);
    if (timers.IsThere()) (void)timers->AddTimer(plugin::self, "Reminders", 1, &sTimer);
    const plugin::Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
    if (!notifiers.IsThere()) return;
    (void)notifiers->AddNotifier(plugin::self, "Changed", "AI Document Changed Notifier",
                                 &sChanged);
    (void)notifiers->AddNotifier(plugin::self, "Saved",
                                 "AI Document Write On Disk Complete Notifier", &sSaved);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    const AIErr result = plugin::Serve(caller, selector, message, nullptr, nullptr);
    const std::string what = std::string(caller) + "/" + selector;
    if (what == "SP Interface/Startup") Register();
    if (what == "AI Timer/AI Go") OnTick();
    if (what != "AI Notifier/AI Notify") return result;
    const AINotifierHandle notifier = static_cast<AINotifierMessage*>(message)->notifier;
    sIsChanged = notifier == sChanged || (sIsChanged && notifier != sSaved);
    if (!sIsChanged) sTicks = 0;
    return result;
}
