#include "../PluginSupport.h"

// Breaks no rule. Its variants makes-extra-call and makes-other-argument differ from it by one call
// and by one argument, which a replay has to find.
namespace {

#ifndef TIMER_PERIOD
#define TIMER_PERIOD 3
#endif

void OnOpened(_t_AIDocument*)
{
    plugin::Held<AIDocumentSuite> documents("AI Document Suite", 1017);
    bool isModified = false;
    (void)documents->GetDocumentModified(&isModified);
#ifdef MAKES_EXTRA_CALL
    (void)documents->GetDocumentModified(&isModified);
#endif
    plugin::Held<AITimerSuite> timers("AI Timer Suite", 1005);
    AITimerHandle timer = nullptr;
    (void)timers->AddTimer(plugin::self, "timer", TIMER_PERIOD, &timer);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
