#include "GScopedLock.h"

#include <gmock/gmock.h>

#include <string>
#include <type_traits>
#include <vector>

#include "GBlockingLockStrategy.h"
#include "GMutex.h"
#include "HeldElsewhere.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(!std::is_copy_constructible_v<GScopedLock>);
static_assert(!std::is_polymorphic_v<GScopedLock>);
static_assert(std::is_nothrow_destructible_v<GScopedLock>, "what leaves it ends the process");

struct Script {
    unsigned int lockResult = 0;
    unsigned int unlockResult = 0;
    std::vector<std::string> calls;
};

class ScriptedStrategy : public GLockStrategy {
public:
    explicit ScriptedStrategy(Script& script) : mScript(script) {}
    ~ScriptedStrategy() override { mScript.calls.emplace_back("delete"); }
    unsigned int Lock(GLockable&) override
    {
        mScript.calls.emplace_back("lock");
        return mScript.lockResult;
    }
    unsigned int Unlock(GLockable&) override
    {
        mScript.calls.emplace_back("unlock");
        return mScript.unlockResult;
    }

private:
    Script& mScript;
};

class ScopedLock : public testing::Test {
protected:
    GMutex mutex;
    Script script;
};

TEST_F(ScopedLock, HoldsForItsScopeAndDeletesTheStrategyLast)
{
    {
        const GScopedLock lock(mutex, true, new ScriptedStrategy(script));
        EXPECT_TRUE(lock.IsLocked());
        EXPECT_THAT(script.calls, ElementsAre("lock"));
    }
    EXPECT_THAT(script.calls, ElementsAre("lock", "unlock", "delete"));
}

TEST_F(ScopedLock, DoesNotLockInTheConstructorIfNotAsked)
{
    GScopedLock lock(mutex, false, new ScriptedStrategy(script));
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_THAT(script.calls, IsEmpty());
    EXPECT_TRUE(lock.Lock());
    EXPECT_TRUE(lock.IsLocked());
}

TEST_F(ScopedLock, DestructorDoesNotUnlockAnUnlockedOne)
{
    {
        const GScopedLock lock(mutex, false, new ScriptedStrategy(script));
    }
    EXPECT_THAT(script.calls, ElementsAre("delete"));
}

TEST_F(ScopedLock, LocksAndUnlocksOnce)
{
    GScopedLock lock(mutex, true, new ScriptedStrategy(script));
    EXPECT_TRUE(lock.Lock());
    lock.Unlock();
    lock.Unlock();
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_THAT(script.calls, ElementsAre("lock", "unlock"));
}

TEST_F(ScopedLock, FailedLockIsNotHeldAndCanBeTriedAgain)
{
    script.lockResult = GLockable::kLockBusyErr;
    GScopedLock lock(mutex, true, new ScriptedStrategy(script));
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_FALSE(lock.Lock());
    script.lockResult = 0;
    EXPECT_TRUE(lock.Lock());
    EXPECT_THAT(script.calls, ElementsAre("lock", "lock", "lock"));
}

TEST_F(ScopedLock, FailedUnlockIsTriedAgainByTheDestructor)
{
    {
        GScopedLock lock(mutex, true, new ScriptedStrategy(script));
        script.unlockResult = GMutex::kMutexInvalidErr;
        lock.Unlock();
        EXPECT_TRUE(lock.IsLocked());
    }
    EXPECT_THAT(script.calls, ElementsAre("lock", "unlock", "unlock", "delete"));
}

TEST_F(ScopedLock, NullStrategyBlocks)
{
    HeldElsewhere holder(mutex);
    std::future<bool> isLocked = std::async(std::launch::async, [this] {
        const GScopedLock lock(mutex, true, nullptr);
        return lock.IsLocked();
    });
    holder.Release();
    EXPECT_TRUE(isLocked.get());
}

TEST_F(ScopedLock, InnerLockOfTheSameThreadFailsAndTheOuterRemains)
{
    const GScopedLock outer(mutex, true, new GBlockingLockStrategy);
    {
        const GScopedLock inner(mutex, true, new GBlockingLockStrategy);
        EXPECT_FALSE(inner.IsLocked());
    }
    EXPECT_TRUE(outer.IsLocked());
    auto tried = std::async(std::launch::async, [this] { return mutex.TryLock(); });
    EXPECT_EQ(GLockable::kLockBusyErr, tried.get());
}

TEST_F(ScopedLock, ReleasesTheMutexInItsDestructor)
{
    {
        const GScopedLock lock(mutex, true, new GBlockingLockStrategy);
    }
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.TryLock());
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
}

TEST(LockStrategy, BlockingStrategyCallsLockAndUnlock)
{
    GMutex mutex;
    GBlockingLockStrategy strategy;
    EXPECT_EQ(CoreErrorCodes::kSuccess, strategy.Lock(mutex));
    EXPECT_EQ(GMutex::kMutexDeadlockErr, strategy.Lock(mutex));
    EXPECT_EQ(CoreErrorCodes::kSuccess, strategy.Unlock(mutex));
    EXPECT_EQ(GMutex::kMutexDeadlockErr, strategy.Unlock(mutex));
}

}  // namespace
