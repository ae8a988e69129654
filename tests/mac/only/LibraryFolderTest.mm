#import <Foundation/Foundation.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "GetPathToRunningProcess.h"

// A text that has no UTF-8 form.
@interface UnencodableText : NSString
@end

@implementation UnencodableText

- (NSUInteger)length
{
    return 1;
}

- (unichar)characterAtIndex:(NSUInteger)index
{
    (void)index;
    return 0xD800;
}

- (const char*)UTF8String
{
    return NULL;
}

@end

static NSArray* sFolders = nil;

// Takes precedence over GNUstep's function in this program.
extern "C" NSArray* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory folder,
                                                        NSSearchPathDomainMask domains,
                                                        BOOL expandTilde)
{
    if (sFolders != nil) return sFolders;
    static const auto sOwn = reinterpret_cast<decltype(&NSSearchPathForDirectoriesInDomains)>(
        dlsym(RTLD_NEXT, "NSSearchPathForDirectoriesInDomains"));
    return sOwn(folder, domains, expandTilde);
}

namespace {

std::string FolderOf(NSArray* folders)
{
    sFolders = folders;
    std::string folder = "as it was";
    GetUsersAppDataDirectory(folder);
    sFolders = nil;
    return folder;
}

TEST(LibraryFolder, IsTheFirstOne)
{
    EXPECT_EQ("/a b", FolderOf([NSArray arrayWithObjects:@"/a b", @"/c", nil]));
}

TEST(LibraryFolder, IsEmptyIfThereIsNone) { EXPECT_EQ("", FolderOf([NSArray array])); }

TEST(LibraryFolder, IsEmptyIfItsPathIsNotUTF8)
{
    NSString* const text = [[[UnencodableText alloc] init] autorelease];
    EXPECT_EQ("", FolderOf([NSArray arrayWithObject:text]));
}

TEST(PathExists, IsFalseForTextThatIsNotUTF8) { EXPECT_FALSE(OSPathExists("/caf\xE9")); }

}  // namespace
