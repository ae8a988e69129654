#include "batch/Interrupts.h"

#include <csignal>
#include <initializer_list>

namespace batch {

namespace {

volatile std::sig_atomic_t sInterrupted = 0;

void NoteInterrupt(int) { sInterrupted = 1; }

}  // namespace

void CatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;  // no SA_RESTART: waiting calls return EINTR
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        struct sigaction before = {};
        // Neither call can fail for a valid signal.
        (void)sigaction(signal, nullptr, &before);
        // nohup(1) ignores SIGHUP, and a shell ignores SIGINT for what it runs in the background.
        // An ignored SIGPIPE means nothing: many programs leave it ignored for their children.
        if (before.sa_handler == SIG_IGN && signal != SIGPIPE) continue;
        (void)sigaction(signal, &action, nullptr);
    }
}

bool IsInterrupted() { return sInterrupted != 0; }

}  // namespace batch
