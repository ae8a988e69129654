#include "plugin-core/panel/PanelWorker.h"

#include <pthread.h>
#include <signal.h>

#include <system_error>

#include "plugin-core/storage/Failure.h"

namespace plugincore {
namespace {

// Blocks all signals for its lifetime. A new thread inherits that: signals are the host's, which
// handles them in its own threads.
class SignalBlock {
public:
    SignalBlock()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &mBefore);
    }
    ~SignalBlock() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;

private:
    sigset_t mBefore = {};
};

}  // namespace

PanelWorker::PanelWorker(const Locations& locations)
    : mServices(locations), mProtocol(mServices), mQueue(mProtocol)
{
    const SignalBlock block;
    try {
        mThread = std::thread([this] { Work(); });
    } catch (const std::system_error& error) {
        throw Failure(StatusCodes::kError,
                      std::string("the panel's thread cannot be started: ") + error.what());
    }
}

PanelWorker::~PanelWorker()
{
    mQueue.Stop();
    mThread.join();
}

void PanelWorker::Work()
{
    while (mQueue.WaitForRequest()) (void)mQueue.ServeNext();  // false after Stop
}

}  // namespace plugincore
