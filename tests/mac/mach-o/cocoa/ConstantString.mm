#import <Foundation/Foundation.h>

#include <cstdint>

// The strings that the compiler for macOS lays out in the section __cfstring. They are never
// released.
@interface MachOConstantString : NSString {
    uint64_t mFlags;
    const void* mCharacters;
    uint64_t mLength;
}
@end

@implementation MachOConstantString

- (NSUInteger)length
{
    return mLength;
}

- (unichar)characterAtIndex:(NSUInteger)index
{
    constexpr uint64_t kUTF16 = 0x10;  // otherwise ASCII
    if (index >= mLength) [NSException raise:NSRangeException format:@"a constant string"];
    return (mFlags & kUTF16) != 0 ? static_cast<const unichar*>(mCharacters)[index]
                                  : static_cast<const unsigned char*>(mCharacters)[index];
}

- (id)copyWithZone:(NSZone*)zone
{
    (void)zone;
    return self;
}

- (id)retain
{
    return self;
}

- (oneway void)release
{
}

- (id)autorelease
{
    return self;
}

- (NSUInteger)retainCount
{
    return UINT_MAX;
}

@end
