#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include "CoreErrorCodes.h"
#include "GScopedManagedMemory.h"
#include "RecordingLog.h"

@implementation NSAutoreleasePool (Nothing)

- (id)initWithoutMemory
{
    return nil;
}

@end

TEST(GScopedManagedMemory, ReportsAPoolThatCannotBeCreated)
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
    ASSERT_EQ(1U, log.Reports().size());
    EXPECT_EQ("Miscellaneous", log.Reports()[0].category);
    EXPECT_EQ("(mOSManagedMemory) == nullptr", log.Reports()[0].expression);
    EXPECT_EQ(CoreErrorCodes::kNullPointer, log.Reports()[0].code);
    EXPECT_EQ("Error", log.Reports()[0].level);
}
