#include "batch/OrderedReading.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <utility>

#include "base/Progress.h"
#include "batch/WorkerPool.h"

namespace batch {

namespace {

// The memory of all workers: 1 GiB less what this process needs.
constexpr size_t kMemoryBytes = (size_t{1024} - 64) << 20;
constexpr size_t kMostWorkers = 8;
constexpr size_t kLeastFilesForProgress = 2;

// How far the reading may be ahead of the first file that is not answered.
constexpr size_t kMostFilesAhead = 512;
constexpr size_t kMostBytesAhead = size_t{16} << 20;

// Each worker can run one helper, which gets the remaining fifth of its share.
size_t GetWorkerMemory(size_t workers)
{
    return kMemoryBytes / std::min(workers, kMostWorkers) / 5 * 4;
}

std::string GetSecondsText(double seconds)
{
    std::string text = std::to_string(seconds);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

enum class Stage { kWaiting, kBusy, kTooLarge, kDone };

struct Slot {
    FileAnswer answer;
    Stage stage = Stage::kWaiting;
};

class Reading {
public:
    Reading(FileWalk& walk, const ReadingLimits& limits, const FileReader& read,
            const std::function<void(FileAnswer)>& done)
        : mWalk(walk),
          mLimits(limits),
          mRead(read),
          mDone(done),
          mProgress(walk.GetTotal(), kLeastFilesForProgress)
    {
        const size_t most = limits.jobs > 0 ? limits.jobs : std::min(GetCoreCount(), kMostWorkers);
        while (mSlots.size() < kMostFilesAhead && CountWaiting() < most && Take()) {
        }
        mWorkers = std::max<size_t>(CountWaiting(), 1);
    }

    bool Run(const std::function<bool()>& isEnded)
    {
        while (true) {
            if (isEnded()) return false;
            Deliver();
            const bool isHeld = !mSlots.empty() && mSlots.front().stage == Stage::kTooLarge;
            if (isHeld && !(mPool && mPool->HasBusy())) {
                // It gets all the memory.
                mPool = nullptr;
                if (!ReadAlone(mSlots.front(), isEnded)) return false;
                continue;
            }
            if (!isHeld) Fill();
            if (mSlots.empty() && mIsAtEnd) break;
            if (!mPool || !mPool->HasBusy()) continue;
            for (WorkerAnswer& answer : mPool->Wait()) {
                // The first one in the list has the number of the first slot.
                auto& slot = mSlots[answer.id - mFirst];
                Accept(slot, std::move(answer), mCount > 1);
            }
        }
        mProgress.Clear();
        return true;
    }

private:
    size_t CountWaiting() const
    {
        return static_cast<size_t>(
            std::count_if(mSlots.begin(), mSlots.end(),
                          [](const Slot& slot) { return slot.stage == Stage::kWaiting; }));
    }

    // Takes the next file from the walk. Returns false if there is none.
    bool Take()
    {
        ListedFile file;
        if (mIsAtEnd || !mWalk.Next(file)) {
            mIsAtEnd = true;
            return false;
        }
        const Stage stage = file.error.empty() ? Stage::kWaiting : Stage::kDone;
        mSlots.push_back({{std::move(file.path), std::move(file.error), {}}, stage});
        ++mCount;
        return true;
    }

    std::unique_ptr<WorkerPool> MakePool(size_t workers) const
    {
        WorkerLimits limits;
        limits.workers = workers;
        limits.memoryBytes = GetWorkerMemory(workers);
        limits.seconds = mLimits.seconds;
        const size_t helperBytes = limits.memoryBytes / 4;
        return std::make_unique<WorkerPool>(limits, [this, helperBytes](const std::string& path) {
            return mRead(path, helperBytes);
        });
    }

    // Gives files to idle workers.
    void Fill()
    {
        if (!mPool) mPool = MakePool(mWorkers);
        while (mPool->HasIdle() && mBytesAhead < kMostBytesAhead) {
            while (mNext < mFirst + mSlots.size() &&
                   mSlots[mNext - mFirst].stage != Stage::kWaiting) {
                ++mNext;
            }
            if (mNext == mFirst + mSlots.size()) {
                if (mSlots.size() >= kMostFilesAhead || !Take()) return;
                continue;
            }
            Slot& slot = mSlots[mNext - mFirst];
            slot.stage = Stage::kBusy;
            mPool->Send(mNext++, slot.answer.path);
        }
    }

    void Accept(Slot& slot, WorkerAnswer answer, bool triesAgain)
    {
        slot.stage = Stage::kDone;
        switch (answer.outcome) {
            case WorkerAnswer::Outcome::kAnswered:
                slot.answer.text = std::move(answer.text);
                mBytesAhead += slot.answer.text.size();
                break;
            case WorkerAnswer::Outcome::kTooLong:
                slot.answer.error =
                    "takes longer than " + GetSecondsText(mLimits.seconds) + " s to read";
                break;
            case WorkerAnswer::Outcome::kNoMemory:
                slot.answer.error = kNoMemoryError;
                break;
            case WorkerAnswer::Outcome::kDied:
                slot.answer.error = "the process that read it " + answer.text;
                break;
        }
        // The abort of a process can be a failed allocation where none may fail.
        const bool mayLackMemory = answer.outcome == WorkerAnswer::Outcome::kNoMemory ||
                                   answer.outcome == WorkerAnswer::Outcome::kDied;
        if (triesAgain && mayLackMemory) {
            slot.stage = Stage::kTooLarge;
            slot.answer.error.clear();
        } else {
            mProgress.Show(++mDoneCount, slot.answer.path);
        }
    }

    bool ReadAlone(Slot& slot, const std::function<bool()>& isEnded)
    {
        const std::unique_ptr<WorkerPool> pool = MakePool(1);
        pool->Send(mFirst, slot.answer.path);
        while (pool->HasBusy()) {
            if (isEnded()) return false;
            for (WorkerAnswer& answer : pool->Wait()) Accept(slot, std::move(answer), false);
        }
        return true;
    }

    // Hands out the answers that are next.
    void Deliver()
    {
        for (; !mSlots.empty() && mSlots.front().stage == Stage::kDone; ++mFirst) {
            FileAnswer answer = std::move(mSlots.front().answer);
            mSlots.pop_front();
            mBytesAhead -= answer.text.size();
            mDone(std::move(answer));
        }
        mNext = std::max(mNext, mFirst);
    }

    FileWalk& mWalk;
    const ReadingLimits& mLimits;
    const FileReader& mRead;
    const std::function<void(FileAnswer)>& mDone;
    std::deque<Slot> mSlots;  // the files that were taken and not delivered
    size_t mFirst = 0;        // the number of the first slot
    size_t mNext = 0;         // the number of the next one to be sent
    size_t mCount = 0;
    size_t mDoneCount = 0;
    size_t mBytesAhead = 0;
    size_t mWorkers = 1;
    bool mIsAtEnd = false;
    std::unique_ptr<WorkerPool> mPool;
    base::Progress mProgress;
};

}  // namespace

bool ReadInOrder(FileWalk& walk, const ReadingLimits& limits, const FileReader& read,
                 const std::function<void(FileAnswer)>& done, const std::function<bool()>& isEnded)
{
    return Reading(walk, limits, read, done).Run(isEnded);
}

}  // namespace batch
