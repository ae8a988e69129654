#pragma once

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "GLockable.h"

// Holds the lockable on another thread, from the constructor to Release or the destructor.
class HeldElsewhere {
public:
    explicit HeldElsewhere(GLockable& lockable)
    {
        std::promise<unsigned int> locked;
        std::future<unsigned int> result = locked.get_future();
        mHolder = std::thread([&lockable, done = mRelease.get_future(), &locked] {
            locked.set_value(lockable.Lock());
            done.wait();
            EXPECT_EQ(CoreErrorCodes::kSuccess, lockable.Unlock());
        });
        EXPECT_EQ(CoreErrorCodes::kSuccess, result.get());
    }
    ~HeldElsewhere() { Release(); }
    HeldElsewhere(const HeldElsewhere&) = delete;
    HeldElsewhere& operator=(const HeldElsewhere&) = delete;

    void Release()
    {
        if (!mHolder.joinable()) return;
        mRelease.set_value();
        mHolder.join();
    }

private:
    std::promise<void> mRelease;
    std::thread mHolder;
};
