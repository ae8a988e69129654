#include "ExpectedReport.h"
#include "GBlockingLockStrategy.h"
#include "GLogger.h"
#include "GMutex.h"
#include "GScopedLock.h"

namespace {

constexpr char kLockFile[] = "core-agent/cpp-core/src/GScopedLock.";

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

TEST_F(LockChecks, FailedLockIsReportedAtDebugLevel)
{
    FailToLock();
    ExpectReports(log.Reports(),
                  {{"Lockable", "mLockStrategy->Lock(mLockable)", GMutex::kMutexDeadlockErr, 4,
                    "GMutex::kMutexDeadlockErr", kLockFile}});
}

TEST_F(LockChecks, FailedLockIsNotLoggedByDefault)
{
    GLogger::GetSharedInstance()->ResetAllLoggingLevels();
    FailToLock();
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(LockChecks, FailedUnlockIsReportedAtErrorLevel)
{
    GLogger::GetSharedInstance()->ResetAllLoggingLevels();
    GMutex mutex;
    GScopedLock lock(mutex, true, new GBlockingLockStrategy);
    ASSERT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
    lock.Unlock();
    ExpectReports(log.Reports(),
                  {{"Lockable", "mLockStrategy->Unlock(mLockable)", GMutex::kMutexDeadlockErr, 1,
                    "GMutex::kMutexDeadlockErr", kLockFile}});
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              mutex.Lock());  // because the destructor unlocks again
}

}  // namespace
