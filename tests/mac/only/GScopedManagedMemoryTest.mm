#include "GScopedManagedMemory.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

// Counts its deallocations.
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

TEST(GScopedManagedMemory, ReleasesTemporaryObjectsAtItsEnd)
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

TEST(GScopedManagedMemory, InnerScopeReleasesItsOwnObjects)
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
