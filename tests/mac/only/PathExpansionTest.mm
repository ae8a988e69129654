#import <Foundation/Foundation.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include "GFileSystem.h"
#include "RecordingLog.h"

// An exception without a description.
@interface SilentException : NSException
@end

@implementation SilentException

- (NSString*)description
{
    return nil;
}

@end

namespace {

// Replaces a method of NSString for one call; the platform itself expands paths when it logs.
class ReplacedOnce {
public:
    ReplacedOnce(SEL name, SEL replacement)
    {
        sOwn = class_getInstanceMethod([NSString class], name);
        sReplacement = class_getInstanceMethod([NSString class], replacement);
        method_exchangeImplementations(sOwn, sReplacement);
    }
    ~ReplacedOnce() { Restore(); }
    ReplacedOnce(const ReplacedOnce&) = delete;
    ReplacedOnce& operator=(const ReplacedOnce&) = delete;

    static void Restore()
    {
        if (sOwn != nullptr) method_exchangeImplementations(sOwn, sReplacement);
        sOwn = nullptr;
    }

private:
    static inline Method sOwn = nullptr;
    static inline Method sReplacement = nullptr;
};

}  // namespace

@interface NSString (Failures)
- (NSString*)raiseAnException;
- (NSString*)raiseASilentException;
- (const char*)nullRepresentation;
@end

@implementation NSString (Failures)

- (NSString*)raiseAnException
{
    ReplacedOnce::Restore();
    [NSException raise:NSCharacterConversionException format:@"no such form"];
    return nil;
}

- (NSString*)raiseASilentException
{
    ReplacedOnce::Restore();
    [[[[SilentException alloc] initWithName:@"Silent" reason:nil userInfo:nil] autorelease] raise];
    return nil;
}

- (const char*)nullRepresentation
{
    ReplacedOnce::Restore();
    return NULL;
}

@end

namespace {

struct PathExpansion : testing::Test {
    // Expands a path that the platform cannot expand, and returns the logged reason.
    std::string ReasonOfTheFailure()
    {
        std::string path = "/as it was";
        EXPECT_EQ(GFileSystem::kInvalidCharacterForFileSystemRepresentation,
                  GFileSystem::OSExpandPath(path));
        EXPECT_EQ("/as it was", path);
        if (log.Reports().size() != 2) return "not two lines in the log";
        EXPECT_EQ("err", log.Reports()[1].expression);
        return log.Reports()[0].message;
    }

    RecordingLog log;
};

TEST_F(PathExpansion, LogsTheDescriptionOfAnException)
{
    const ReplacedOnce method(@selector(stringByExpandingTildeInPath), @selector(raiseAnException));
    const std::string reason = ReasonOfTheFailure();
    EXPECT_THAT(reason, testing::StartsWith("GFileSystem::OSExpandPath(), exception caught\n- "));
    EXPECT_THAT(reason, testing::HasSubstr("no such form"));
}

TEST_F(PathExpansion, LogsAnExceptionWithoutADescription)
{
    const ReplacedOnce method(@selector(stringByExpandingTildeInPath),
                              @selector(raiseASilentException));
    EXPECT_EQ("GFileSystem::OSExpandPath(), exception caught\n- ", ReasonOfTheFailure());
}

TEST_F(PathExpansion, FailsWithoutAFileSystemRepresentation)
{
    const ReplacedOnce method(@selector(fileSystemRepresentation), @selector(nullRepresentation));
    EXPECT_EQ("GFileSystem::OSExpandPath(), exception caught\n- /as it was", ReasonOfTheFailure());
}

}  // namespace
