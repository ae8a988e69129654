#include "vexcor/system/PassedSignals.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "plugin-core/storage/Failure.h"

namespace vexcor {

PassedSignals::PassedSignals()
{
    sigset_t signals;
    (void)sigemptyset(&signals);  // these calls cannot fail with valid arguments
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGUSR1, SIGUSR2, SIGCHLD}) {
        (void)sigaddset(&signals, number);
    }
    mDescriptor = base::FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    if (!mDescriptor.IsValid()) {
        throw plugincore::Failure(plugincore::StatusCodes::kError,
                                  std::string("cannot receive signals: ") + std::strerror(errno));
    }
    // Blocked, it doesn't stop a process that gives the terminal to another group.
    (void)sigaddset(&signals, SIGTTOU);
    (void)pthread_sigmask(SIG_BLOCK, &signals, &mBefore);
}

int PassedSignals::Wait(int milliseconds) const
{
    for (;;) {
        signalfd_siginfo information = {};
        if (read(mDescriptor.Get(), &information, sizeof information) ==
            static_cast<ssize_t>(sizeof information)) {
            return static_cast<int>(information.ssi_signo);
        }
        pollfd wanted = {mDescriptor.Get(), POLLIN, 0};
        const int ready = poll(&wanted, 1, milliseconds);
        // EINTR comes after a stop of this process, too; the caller looks at its children then.
        if (ready <= 0) return 0;
    }
}

}  // namespace vexcor
