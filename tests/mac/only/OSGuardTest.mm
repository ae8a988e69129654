#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include <stdexcept>

#include "CoreErrorCodes.h"
#include "GScopedManagedMemory.h"
#import "OSGuard_Mac.h"
#include "RecordingLog.h"

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

TEST(Guard, AnswersNilIfNothingIsRaised) { EXPECT_EQ(nil, OSGuard(Nothing, nullptr)); }

TEST(Guard, HandsTheExceptionOut)
{
    NSException* const exception = OSGuard(Raise, nullptr);
    ASSERT_NE(nil, exception);
    EXPECT_STREQ("Gone", [[exception name] UTF8String]);
    EXPECT_STREQ("reason", [[exception reason] UTF8String]);
}

TEST(Guard, LetsAnyOtherExceptionPass)
{
    EXPECT_THROW((void)OSGuard(ThrowCPlusPlus, nullptr), std::runtime_error);
}

TEST(Guard, RunsTheDestructorsInBetween)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    int count = 0;
    EXPECT_NE(nil, OSGuard(RaiseOverADestructor, &count));
    EXPECT_EQ(1, count);
    [pool release];
}

}  // namespace

// Tells when it goes.
@interface Probe : NSObject {
@public
    int* deaths;
}
@end

@implementation Probe

- (void)dealloc
{
    ++*deaths;
    [super dealloc];
}

@end

TEST(ManagedMemory, FreesTemporaryObjectsAtItsEnd)
{
    int deaths = 0;
    {
        const GScopedManagedMemory pool;
        Probe* const probe = [[[Probe alloc] init] autorelease];
        probe->deaths = &deaths;
        EXPECT_EQ(0, deaths);
    }
    EXPECT_EQ(1, deaths);
}

TEST(ManagedMemory, ScopesNest)
{
    int deaths = 0;
    const GScopedManagedMemory outer;
    {
        const GScopedManagedMemory inner;
        Probe* const probe = [[[Probe alloc] init] autorelease];
        probe->deaths = &deaths;
    }
    EXPECT_EQ(1, deaths);
}

@implementation NSAutoreleasePool (Nothing)

- (id)initWithoutMemory
{
    return nil;
}

@end

TEST(ManagedMemory, ScopeThatCannotBeSetUpIsReported)
{
    RecordingLog log;
    const auto exchange = [] {
        Class const pools = [NSAutoreleasePool class];
        const auto method = [&](SEL name) { return class_getInstanceMethod(pools, name); };
        method_exchangeImplementations(method(@selector(init)),
                                       method(@selector(initWithoutMemory)));
    };
    exchange();
    {
        const GScopedManagedMemory scope;
    }
    exchange();
    ASSERT_EQ(1u, log.Reports().size());
    EXPECT_EQ("Miscellaneous", log.Reports()[0].category);
    EXPECT_EQ("(mOSManagedMemory) == nullptr", log.Reports()[0].expression);
    EXPECT_EQ(CoreErrorCodes::kNullPointer, log.Reports()[0].code);
    EXPECT_EQ("Error", log.Reports()[0].level);
}
