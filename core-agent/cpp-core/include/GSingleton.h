#pragma once

#include <atomic>

#include "GBlockingLockStrategy.h"
#include "GMutex.h"
#include "GScopedLock.h"

// The one object of a class, made at first use and never deleted. Any thread.
template <class T>
class GSingleton {
public:
    // Null only while the first call fails to get its lock, or for a call that the making of the
    // object itself leads to on the same thread: a report from there must not come back here.
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
