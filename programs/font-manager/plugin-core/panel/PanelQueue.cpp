#include "plugin-core/panel/PanelQueue.h"

#include <algorithm>
#include <iterator>

namespace plugincore {
namespace {

constexpr const char* kOutOfMemory = "{\"error\":\"out of memory\",\"ok\":false}\n";

}  // namespace

std::vector<PanelQueue::Result> PanelQueue::Exchange(std::vector<Request>& requests)
{
    std::vector<Result> results;
    {
        // The other thread holds the lock for a moment only, but the system may interrupt it then.
        const std::unique_lock<std::mutex> lock(mMutex, std::try_to_lock);
        if (!lock.owns_lock()) return results;
        results.swap(mResults);
        if (mIsStopped || requests.empty()) return results;
        std::move(requests.begin(), requests.end(), std::back_inserter(mRequests));
    }
    requests.clear();
    mArrived.notify_one();
    return results;
}

void PanelQueue::LookForEvents(Result& result)
{
    try {
        for (std::string& event : mProtocol.TakeEvents()) {
            event += '\n';
            result.events.push_back(std::make_shared<const std::string>(std::move(event)));
        }
    } catch (const std::exception& failure) {
        result.failure = failure.what();
    }
}

bool PanelQueue::ServeNext()
{
    Request request;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mRequests.empty()) return false;
        request = std::move(mRequests.front());
        mRequests.pop_front();
    }
    Result result;
    result.client = request.client;
    try {
        if (request.client != 0) {
            PanelProtocol::Answer answer = mProtocol.Serve(request.line);
            answer.line += '\n';
            result.answer = std::make_shared<const std::string>(std::move(answer.line));
            result.subscribes = answer.subscribes;
        }
        // A new subscriber isn't told of changes before its subscription: they are events now.
        if (request.client == 0 || result.subscribes) LookForEvents(result);
    } catch (const std::exception&) {
        result.answer = std::make_shared<const std::string>(kOutOfMemory);
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    mResults.push_back(std::move(result));
    return true;
}

bool PanelQueue::WaitForRequest()
{
    std::unique_lock<std::mutex> lock(mMutex);
    mArrived.wait(lock, [this] { return mIsStopped || !mRequests.empty(); });
    return !mIsStopped;
}

void PanelQueue::Stop()
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mIsStopped = true;
    mRequests.clear();
    mArrived.notify_one();
}

}  // namespace plugincore
