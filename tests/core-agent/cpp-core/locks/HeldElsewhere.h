#pragma once

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "GLockable.h"

// Another thread that holds the lockable while this object lives, or until Release.
class HeldElsewhere {
public:
    explicit HeldElsewhere(GLockable& lockable)
    {
        std::promise<unsigned int> locked;
        std::future<unsigned int> result = locked.get_future();
        mHolder = std::thread([&lockable, done = mRelease.get_future(), &locked] {
            locked.set_value(lockable.Lock());
            done.wait();
            EXPECT_EQ(lockable.Unlock(), 0U);
        });
        EXPECT_EQ(result.get(), 0U);
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
