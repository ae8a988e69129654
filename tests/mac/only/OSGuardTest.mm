#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <stdexcept>

#import "OSGuard_Mac.h"

namespace {

void Nothing(void*) {}

void Raise(void*) { [NSException raise:@"Gone" format:@"reason"]; }

void ThrowCPlusPlus(void*) { throw std::runtime_error("other"); }

void RaiseOverADestructor(void* context)
{
    struct Counter {
        ~Counter() { ++*count; }
        int* count;
    };
    const Counter counter{static_cast<int*>(context)};
    Raise(nullptr);
}

TEST(OSGuard, ReturnsNilIfNothingIsRaised) { EXPECT_EQ(nil, OSGuard(Nothing, nullptr)); }

TEST(OSGuard, ReturnsTheException)
{
    NSException* const exception = OSGuard(Raise, nullptr);
    ASSERT_NE(nil, exception);
    EXPECT_STREQ("Gone", [[exception name] UTF8String]);
    EXPECT_STREQ("reason", [[exception reason] UTF8String]);
}

TEST(OSGuard, PropagatesACPlusPlusException)
{
    EXPECT_THROW((void)OSGuard(ThrowCPlusPlus, nullptr), std::runtime_error);
}

TEST(OSGuard, RunsTheDestructorsOfUnwoundFrames)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    int count = 0;
    EXPECT_NE(nil, OSGuard(RaiseOverADestructor, &count));
    EXPECT_EQ(1, count);
    [pool release];
}

}  // namespace
