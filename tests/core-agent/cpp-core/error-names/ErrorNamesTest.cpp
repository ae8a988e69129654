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

unsigned int CodeOf(const CoreErrorName& row) { return row.ordinal * 0x1000000u + row.classNumber; }

TEST(ErrorNames, AreTwoHundredAndSeventyEight)
{
    EXPECT_EQ(ExpectedByCode().size(), 278U);
    EXPECT_EQ(std::size(kCoreErrorNames), 278U);
}

TEST(ErrorNames, EveryErrorHasItsClassInFrontOfItsName)
{
    for (const auto& [code, name] : ExpectedByCode()) {
        EXPECT_EQ(GetNameForErrorCode(code), name) << std::hex << code;
    }
}

TEST(ErrorNames, NoOtherOrdinalOfAnyClassIsNamed)
{
    const auto expected = ExpectedByCode();
    for (unsigned int number = 0; number <= 0xB000; ++number) {
        for (unsigned int ordinal = 0; ordinal <= 25; ++ordinal) {
            const unsigned int code = ordinal * 0x1000000u + number;
            if (expected.count(code) != 0) continue;
            ASSERT_EQ(GetNameForErrorCode(code), kUnknown) << code;
        }
    }
}

TEST(ErrorNames, TableHoldsTheExpectedRowsAndNoOther)
{
    std::map<unsigned int, std::string> rows;
    for (const CoreErrorName& row : kCoreErrorNames) {
        ASSERT_NE(row.name, nullptr);
        rows.emplace(CodeOf(row), row.name);
    }
    EXPECT_EQ(rows, ExpectedByCode());
}

TEST(ErrorNames, TableAscendsWithoutRepetition)
{
    const auto* const fault = std::adjacent_find(
        std::begin(kCoreErrorNames), std::end(kCoreErrorNames),
        [](const CoreErrorName& a, const CoreErrorName& b) { return CodeOf(a) >= CodeOf(b); });
    EXPECT_EQ(fault, std::end(kCoreErrorNames)) << fault->name;
}

TEST(ErrorNames, NoNameIsGivenTwice)
{
    std::set<std::string> names;
    for (const auto& row : ExpectedByCode()) EXPECT_TRUE(names.insert(row.second).second);
}

TEST(ErrorNames, ZeroIsSuccess) { EXPECT_EQ(GetNameForErrorCode(0), "CoreErrorCodes::kSuccess"); }

TEST(ErrorNames, UnusedOrdinalOfTheCommonCodesIsUnknown)
{
    EXPECT_EQ(GetNameForErrorCode(0x0B000000), kUnknown);
}

TEST(ErrorNames, LockErrors)
{
    EXPECT_EQ(GetNameForErrorCode(0x0100100C), "GLockable::kLockBusyErr");
    EXPECT_EQ(GetNameForErrorCode(0x0100100B), "GMutex::kMutexDeadlockErr");
    EXPECT_EQ(GetNameForErrorCode(0x0200100B), "GMutex::kMutexInvalidErr");
}

TEST(ErrorNames, OneErrorStandsInTheNumberRangeOfAnotherClass)
{
    EXPECT_EQ(GetNameForErrorCode(0x07004005), "GFontToolResults::kFontAlreadyInDatabase");
    EXPECT_EQ(GetNameForErrorCode(0x0700400D), kUnknown);
}

TEST(ErrorNames, CodesOutsideOfAllClassesAreUnknown)
{
    for (const unsigned int code : {0xFFFFFFFFu, 0x00000001u, 0x16000000u, 0xFF000001u}) {
        EXPECT_EQ(GetNameForErrorCode(code), kUnknown) << code;
    }
}

struct DeclaredCode {
    unsigned int code;
    unsigned int number;
    const char* name;
};

// What the classes of this program declare for themselves.
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
        EXPECT_EQ(row.code, row.number) << row.name;
        EXPECT_EQ(GetNameForErrorCode(row.code), row.name);
    }
}

}  // namespace
