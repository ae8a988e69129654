#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <new>
#include <string>

#include "AllocationCounter.h"
#include "DebugUtils.h"
#include "DocumentRegistry.h"

namespace {

char gLastTrace[200];

}  // namespace

// Replaces the plug-in's trace: keeps the last line without allocating memory.
void OutputIndentedAndFormattedString(int /*indentChange*/, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    (void)std::vsnprintf(gLastTrace, sizeof gLastTrace, format, arguments);  // cuts long lines
    va_end(arguments);
}

namespace {

// The parameter is the allocation of the setter that fails: 1 for the text, 2 for the record.
class RegistryWithoutMemory : public testing::TestWithParam<std::size_t> {};

TEST_P(RegistryWithoutMemory, IsUnchanged)
{
    auto* const known = reinterpret_cast<_t_AIDocument*>(0x10);
    auto* const fresh = reinterpret_cast<_t_AIDocument*>(0x20);
    const std::string text(200, 'x');
    SetFilePathForDocumentHandle(known, "/a.ai");

    AllocationCounter::FailNth(GetParam());
    EXPECT_THROW(SetFilePathForDocumentHandle(fresh, text), std::bad_alloc);

    ForgetAboutDocumentHandle(fresh);
    EXPECT_STREQ("ForgetAboutDocumentHandle(00000020) erased 0 map entries.", gLastTrace);
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(known));
}

INSTANTIATE_TEST_SUITE_P(Allocations, RegistryWithoutMemory, testing::Values(1, 2));

}  // namespace
