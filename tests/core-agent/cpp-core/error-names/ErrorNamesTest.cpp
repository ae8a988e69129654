#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "CoreErrorNames.h"
#include "CppCoreMacros.h"
#include "ExpectedErrorNames.h"
#include "GDateTime.h"
#include "GFileSystem.h"
#include "GMutex.h"
#include "GScopedLock.h"

namespace {

constexpr char kUnknown[] = "Unknown error code";

std::map<unsigned int, std::string> ExpectedByCode()
{
    std::map<unsigned int, std::string> names;
    for (const ExpectedErrorClass& owner : ExpectedErrorClasses()) {
        for (const ExpectedError& error : owner.errors) {
            names.emplace(ExpectedCode(owner, error), ExpectedName(owner, error));
        }
    }
    return names;
}

unsigned int CodeOf(const CoreErrorName& row) { return row.ordinal * 0x1000000U + row.classNumber; }

TEST(ErrorNames, AreTwoHundredAndSeventyEight)
{
    EXPECT_EQ(278U, ExpectedByCode().size());
    EXPECT_EQ(278U, std::size(kCoreErrorNames));
}

TEST(ErrorNames, EveryNameIsQualifiedWithItsClass)
{
    for (const auto& [code, name] : ExpectedByCode()) {
        EXPECT_EQ(name, GetNameForErrorCode(code)) << std::hex << code;
    }
}

TEST(ErrorNames, OtherOrdinalsOfEveryClassAreUnknown)
{
    const auto expected = ExpectedByCode();
    for (unsigned int number = 0; number <= 0xB000; ++number) {
        for (unsigned int ordinal = 0; ordinal <= 25; ++ordinal) {
            const unsigned int code = ordinal * 0x1000000U + number;
            if (expected.count(code) != 0) continue;
            ASSERT_EQ(kUnknown, GetNameForErrorCode(code)) << code;
        }
    }
}

TEST(ErrorNames, TableHasExactlyTheExpectedRows)
{
    std::map<unsigned int, std::string> rows;
    for (const CoreErrorName& row : kCoreErrorNames) {
        ASSERT_NE(nullptr, row.name);
        rows.emplace(CodeOf(row), row.name);
    }
    EXPECT_EQ(ExpectedByCode(), rows);
}

TEST(ErrorNames, TableIsStrictlyAscending)
{
    const auto* const fault = std::adjacent_find(
        std::begin(kCoreErrorNames), std::end(kCoreErrorNames),
        [](const CoreErrorName& a, const CoreErrorName& b) { return CodeOf(a) >= CodeOf(b); });
    EXPECT_EQ(std::end(kCoreErrorNames), fault) << fault->name;
}

TEST(ErrorNames, NamesAreUnique)
{
    std::set<std::string> names;
    for (const auto& row : ExpectedByCode()) EXPECT_TRUE(names.insert(row.second).second);
}

TEST(ErrorNames, ZeroIsSuccess) { EXPECT_EQ("CoreErrorCodes::kSuccess", GetNameForErrorCode(0)); }

TEST(ErrorNames, UnusedOrdinalOfTheCommonCodesIsUnknown)
{
    EXPECT_EQ(kUnknown, GetNameForErrorCode(0x0B000000));
}

TEST(ErrorNames, LockErrorsHaveTheirNames)
{
    EXPECT_EQ("GLockable::kLockBusyErr", GetNameForErrorCode(0x0100100C));
    EXPECT_EQ("GMutex::kMutexDeadlockErr", GetNameForErrorCode(0x0100100B));
    EXPECT_EQ("GMutex::kMutexInvalidErr", GetNameForErrorCode(0x0200100B));
}

TEST(ErrorNames, FontAlreadyInDatabaseHasTheNumberOfAnotherClass)
{
    EXPECT_EQ("GFontToolResults::kFontAlreadyInDatabase", GetNameForErrorCode(0x07004005));
    EXPECT_EQ(kUnknown, GetNameForErrorCode(0x0700400D));
}

TEST(ErrorNames, CodesOfNoClassAreUnknown)
{
    for (const unsigned int code : {0xFFFFFFFFU, 0x00000001U, 0x16000000U, 0xFF000001U}) {
        EXPECT_EQ(kUnknown, GetNameForErrorCode(code)) << code;
    }
}

struct DeclaredCode {
    unsigned int code;
    unsigned int number;
    const char* name;
};

// The codes that classes of this library declare themselves.
TEST(ErrorNames, DeclaredConstantsHaveTheirNumbersAndNames)
{
    const DeclaredCode kDeclared[] = {
        {GLockable::kLockBusyErr, 0x0100100C, "GLockable::kLockBusyErr"},
        {GMutex::kMutexDeadlockErr, 0x0100100B, "GMutex::kMutexDeadlockErr"},
        {GMutex::kMutexInvalidErr, 0x0200100B, "GMutex::kMutexInvalidErr"},
        {GScopedLock::kFailedToAcquireLock, 0x0100101D, "GScopedLock::kFailedToAcquireLock"},
        {GDateTime::kParsingError, 0x01001014, "GDateTime::kParsingError"},
        {GFileSystem::kFileNotFound, 0x01001005, "GFileSystem::kFileNotFound"},
        {GFileSystem::kDirectoryNotFound, 0x02001005, "GFileSystem::kDirectoryNotFound"},
        {GFileSystem::kCouldNotDecodeInput, 0x03001005, "GFileSystem::kCouldNotDecodeInput"},
        {GFileSystem::kFileOrDirectoryAlreadyExists, 0x04001005,
         "GFileSystem::kFileOrDirectoryAlreadyExists"},
        {GFileSystem::kInvalidPath, 0x05001005, "GFileSystem::kInvalidPath"},
        {GFileSystem::kDirectoryNotEmpty, 0x06001005, "GFileSystem::kDirectoryNotEmpty"},
        {GFileSystem::kEnumFolderContentsCanceled, 0x07001005,
         "GFileSystem::kEnumFolderContentsCanceled"},
        {GFileSystem::kDirectoryFull, 0x08001005, "GFileSystem::kDirectoryFull"},
        {GFileSystem::kDiskFull, 0x09001005, "GFileSystem::kDiskFull"},
        {GFileSystem::kFileIsLocked, 0x0A001005, "GFileSystem::kFileIsLocked"},
        {GFileSystem::kMoveFailed, 0x0B001005, "GFileSystem::kMoveFailed"},
        {GFileSystem::kInvalidCharacterForFileSystemRepresentation, 0x0C001005,
         "GFileSystem::kInvalidCharacterForFileSystemRepresentation"},
    };
    for (const DeclaredCode& row : kDeclared) {
        EXPECT_EQ(row.number, row.code) << row.name;
        EXPECT_EQ(row.name, GetNameForErrorCode(row.code));
    }
}

}  // namespace
