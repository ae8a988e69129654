#include "vexcor/system/StopSignals.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string>

#include "plugin-core/storage/Failure.h"

namespace vexcor {

StopSignals::StopSignals()
{
    sigset_t signals;
    (void)sigemptyset(&signals);  // these fail for no valid set and signal
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) (void)sigaddset(&signals, number);
    (void)sigprocmask(SIG_BLOCK, &signals, nullptr);
    (void)signal(SIGPIPE, SIG_IGN);
    mDescriptor = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
    if (mDescriptor < 0) {
        throw plugincore::Failure(plugincore::StatusCodes::kError,
                                  std::string("signals can't be taken: ") + std::strerror(errno));
    }
}

StopSignals::~StopSignals()
{
    (void)close(mDescriptor);  // nothing is written to it
}

bool StopSignals::Wait(int descriptor, int milliseconds) const
{
    std::array<pollfd, 2> wanted = {{{mDescriptor, POLLIN, 0}, {descriptor, POLLIN, 0}}};
    // A failure, as by a signal of another kind, counts as time that has passed.
    if (poll(wanted.data(), wanted.size(), milliseconds) <= 0) return false;
    return wanted[0].revents != 0;
}

}  // namespace vexcor
