#pragma once

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

// Gives each test an autorelease pool of its own.
class PoolOfEachTest : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override
    {
        mPool = [[NSAutoreleasePool alloc] init];
    }
    void OnTestEnd(const testing::TestInfo&) override { [mPool release]; }

    NSAutoreleasePool* mPool = nil;
};
