#include "vexcor/system/StopSignals.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string>

#include "plugin-core/storage/Failure.h"

namespace vexcor {

StopSignals::StopSignals()
{
    sigset_t signals;
    (void)sigemptyset(&signals);  // these calls cannot fail with valid arguments
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) (void)sigaddset(&signals, number);
    (void)sigprocmask(SIG_BLOCK, &signals, nullptr);
    (void)signal(SIGPIPE, SIG_IGN);
    mDescriptor = base::FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    if (!mDescriptor.IsValid()) {
        throw plugincore::Failure(
            plugincore::StatusCodes::kError,
            std::string("cannot install signal handlers: ") + std::strerror(errno));
    }
}

bool StopSignals::Wait(int descriptor, int milliseconds) const
{
    std::array<pollfd, 2> wanted = {{{mDescriptor.Get(), POLLIN, 0}, {descriptor, POLLIN, 0}}};
    // An error, such as EINTR, is treated like the end of the time.
    if (poll(wanted.data(), wanted.size(), milliseconds) <= 0) return false;
    return wanted[0].revents != 0;
}

}  // namespace vexcor
