#pragma once

#include <atomic>

#include "GBlockingLockStrategy.h"
#include "GMutex.h"
#include "GScopedLock.h"

// Makes the only instance of a class T at first use.
//
// T needs a default constructor that this template may call. The instance is never deleted, so that
// code that runs while the process ends can still use it.
template <class T>
class GSingleton {
public:
    // Returns the instance. The caller does not own it. Threads that call at the same time get the
    // same one. [any thread]
    //
    // Returns null in two cases, so callers must test: if the lock of the first call fails, and if
    // T's constructor calls this function, for example through a failure report that it makes.
    // Exceptions of T's constructor pass through; the next call tries again.
    static T* GetSharedInstance()
    {
        static std::atomic<T*> sInstance{nullptr};
        static GMutex sInstanceLock;
        static thread_local bool sIsMaking = false;
        T* instance = sInstance.load(std::memory_order_acquire);
        if (instance != nullptr || sIsMaking) return instance;

        struct MakingScope {
            MakingScope() { sIsMaking = true; }
            ~MakingScope() { sIsMaking = false; }
        } making;
        const GScopedLock lock(sInstanceLock, true, new GBlockingLockStrategy);
        if (!lock.IsLocked()) return sInstance.load(std::memory_order_acquire);
        instance = sInstance.load(std::memory_order_relaxed);
        if (instance == nullptr) {
            instance = new T;
            sInstance.store(instance, std::memory_order_release);
        }
        return instance;
    }
};
