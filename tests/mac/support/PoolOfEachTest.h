#pragma once

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

// Runs each test in its own autorelease pool.
class PoolOfEachTest : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override
    {
        mPool = [[NSAutoreleasePool alloc] init];
    }
    void OnTestEnd(const testing::TestInfo&) override { [mPool release]; }

    NSAutoreleasePool* mPool = nil;
};
