#include "ExpectedReport.h"
#include "GBlockingLockStrategy.h"
#include "GLogger.h"
#include "GMutex.h"
#include "GScopedLock.h"

namespace {

constexpr char kFile[] = "core-agent/cpp-core/src/GScopedLock.";

class LockChecks : public testing::Test {
protected:
    void FailToLock()
    {
        GMutex mutex;
        const GScopedLock outer(mutex, true, new GBlockingLockStrategy);
        const GScopedLock inner(mutex, true, new GBlockingLockStrategy);
        EXPECT_FALSE(inner.IsLocked());
    }
    RecordingLog log;
};

TEST_F(LockChecks, FailedLockIsReportedForDebugging)
{
    FailToLock();
    ExpectReports(log.Reports(), {{"Lockable", "mLockStrategy->Lock(mLockable)", 0x0100100B, 4,
                                   "GMutex::kMutexDeadlockErr", kFile}});
}

TEST_F(LockChecks, FailedLockStaysBelowTheDefaultThreshold)
{
    GLogger::GetSharedInstance()->ResetAllLoggingLevels();
    FailToLock();
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(LockChecks, FailedUnlockIsAnError)
{
    GLogger::GetSharedInstance()->ResetAllLoggingLevels();
    GMutex mutex;
    GScopedLock lock(mutex, true, new GBlockingLockStrategy);
    ASSERT_EQ(mutex.Unlock(), 0U);
    lock.Unlock();
    ExpectReports(log.Reports(), {{"Lockable", "mLockStrategy->Unlock(mLockable)", 0x0100100B, 1,
                                   "GMutex::kMutexDeadlockErr", kFile}});
    EXPECT_EQ(mutex.Lock(), 0U);  // for the scope's end, which unlocks once more
}

}  // namespace
