#include "plugin-core/panel/PanelQueue.h"

#include <algorithm>
#include <iterator>

namespace plugincore {
namespace {

constexpr const char* kOutOfMemory = "{\"error\":\"out of memory\",\"ok\":false}";

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
            result.events.push_back(std::make_shared<const std::string>(std::move(event)));
        }
    } catch (const std::exception& failure) {
        result.failure = failure.what();
    }
}

void PanelQueue::Serve(const Request& request, Result& result)
{
    try {
        if (request.isFont) {
            constexpr int kFailed = 500;
            result.font = std::make_shared<PanelFontPiece>();
            result.font->status = kFailed;  // unless the next line returns
            *result.font = mProtocol.ReadFont(request.text, request.offset);
            return;
        }
        if (request.client != 0) {
            PanelProtocol::Answer answer = mProtocol.Serve(request.text);
            result.answer = std::make_shared<const std::string>(std::move(answer.text));
            result.subscribes = answer.subscribes;
        }
        // A new subscriber isn't told of changes before its subscription: they are events now.
        if (request.client == 0 || result.subscribes) LookForEvents(result);
    } catch (const std::exception&) {
        if (!request.isFont) result.answer = std::make_shared<const std::string>(kOutOfMemory);
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
    Serve(request, result);
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
