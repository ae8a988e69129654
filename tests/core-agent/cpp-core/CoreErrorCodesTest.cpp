#include "CoreErrorCodes.h"

#include <gtest/gtest.h>

#include <set>

namespace {

struct CodeRow {
    unsigned int ordinal;
    unsigned int code;
};

const CodeRow kRows[] = {
    {0, CoreErrorCodes::kSuccess},         {1, CoreErrorCodes::kError},
    {2, CoreErrorCodes::kFatalError},      {3, CoreErrorCodes::kUnstatic},
    {4, CoreErrorCodes::kInvalidParam},    {5, CoreErrorCodes::kNullPointer},
    {6, CoreErrorCodes::kOutOfMemory},     {7, CoreErrorCodes::kNotFound},
    {8, CoreErrorCodes::kNotImplemented},  {9, CoreErrorCodes::kItemAlreadyExists},
    {10, CoreErrorCodes::kItemNotHandled}, {12, CoreErrorCodes::kIndexOutOfRange},
    {13, CoreErrorCodes::kDatabaseError},  {14, CoreErrorCodes::kVersionMismatch},
    {15, CoreErrorCodes::kNotANumber},     {16, CoreErrorCodes::kNotSupported},
    {17, CoreErrorCodes::kNotInitialized}, {18, CoreErrorCodes::kAlreadyInitialized},
    {19, CoreErrorCodes::kMissingParam},   {20, CoreErrorCodes::kStopped},
    {21, CoreErrorCodes::kUnknownError},
};

TEST(CoreErrorCodes, HaveTheirOrdinalInTheTopByte)
{
    for (const CodeRow& row : kRows) EXPECT_EQ(row.ordinal << 24, row.code) << row.ordinal;
}

TEST(CoreErrorCodes, HaveTheNumbersThatCrossTheBoundary)
{
    EXPECT_EQ(0U, CoreErrorCodes::kSuccess);
    EXPECT_EQ(0x01000000U, CoreErrorCodes::kError);
    EXPECT_EQ(0x07000000U, CoreErrorCodes::kNotFound);
    EXPECT_EQ(0x09000000U, CoreErrorCodes::kItemAlreadyExists);
    EXPECT_EQ(0x0C000000U, CoreErrorCodes::kIndexOutOfRange);
    EXPECT_EQ(0x15000000U, CoreErrorCodes::kUnknownError);
}

TEST(CoreErrorCodes, AreAllDifferent)
{
    std::set<unsigned int> codes;
    for (const CodeRow& row : kRows) codes.insert(row.code);
    EXPECT_EQ(std::size(kRows), codes.size());
}

}  // namespace
