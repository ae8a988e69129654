#include <type_traits>
#include <utility>

#include "HostInterfaceFixture.h"
#include "ScriptedHostSuites.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class UnicodeString : public HostInterfaceTest {
protected:
    void TearDown() override
    {
        EXPECT_EQ(expectedLeaks, host.LiveStrings());
        HostInterfaceTest::TearDown();
    }

    std::size_t expectedLeaks = 0;
};

TEST_F(UnicodeString, DefaultIsNullAndCallsNothing)
{
    {
        ai::UnicodeString string;
        EXPECT_EQ(nullptr, StringSlot(string));
    }
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(UnicodeString, NullTextGivesANullStringAndCallsNothing)
{
    {
        ai::UnicodeString string(nullptr, kAIUTF8CharacterEncoding);
        EXPECT_EQ(nullptr, StringSlot(string));
    }
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(UnicodeString, NullStringAsksTheHostForItsBytes)
{
    ai::UnicodeString string(nullptr, kAIUTF8CharacterEncoding);
    EXPECT_EQ("", string.as_UTF8());
    EXPECT_THAT(host.Calls(), ElementsAre("AIUnicodeStringSuite.GetAs(null, 1)"));
}

TEST_F(UnicodeString, IsCreatedWithItsByteLengthAndEncoding)
{
    ai::UnicodeString string("m\xC3\xBCll", kAIPlatformCharacterEncoding);
    EXPECT_THAT(host.Calls(),
                ElementsAre("AIUnicodeStringSuite.Initialize(\"m\xC3\xBCll\", 5, 0)"));
}

TEST_F(UnicodeString, EmptyTextCreatesAHostString)
{
    ai::UnicodeString string("", kAIUTF8CharacterEncoding);
    EXPECT_THAT(host.Calls(), ElementsAre("AIUnicodeStringSuite.Initialize(\"\", 0, 1)"));
}

TEST_F(UnicodeString, FromUTF8UsesEncodingOne)
{
    const ai::UnicodeString string = ai::UnicodeString::FromUTF8("a");
    EXPECT_THAT(host.Calls(), ElementsAre("AIUnicodeStringSuite.Initialize(\"a\", 1, 1)"));
}

TEST_F(UnicodeString, ReturnsTheTextThatItWasCreatedFrom)
{
    const ai::UnicodeString string = ai::UnicodeString::FromUTF8("Schrift \xE6\x96\x87");
    EXPECT_EQ("Schrift \xE6\x96\x87", string.as_UTF8());
    EXPECT_EQ("Schrift \xE6\x96\x87", string.getInStdString(kAIPlatformCharacterEncoding));
    EXPECT_EQ(1U, host.CountCalls("AIUnicodeStringSuite.GetAs(\"Schrift \xE6\x96\x87\", 0)"));
}

TEST_F(UnicodeString, KeepsEmbeddedZeroBytes)
{
    ai::UnicodeString string;
    const std::string bytes("a\0b\0", 4);
    SetHostString(string, bytes);
    EXPECT_EQ(bytes, string.as_UTF8());
}

TEST_F(UnicodeString, GetAsReturnsTheByteCountAndFillsTheBuffer)
{
    const ai::UnicodeString string = ai::UnicodeString::FromUTF8("abc");
    ai::UnicodeString::Buffer buffer;
    EXPECT_EQ(3U, string.getAs(kAIUTF8CharacterEncoding, buffer));
    EXPECT_EQ(3U, buffer.GetCount());
    EXPECT_EQ("abc", std::string(buffer.GetBuffer(), 3));
}

TEST_F(UnicodeString, IsDestroyedOnce)
{
    {
        ai::UnicodeString first = ai::UnicodeString::FromUTF8("a");
        const ai::UnicodeString second = std::move(first);
    }
    EXPECT_EQ(1U, host.CountCalls("AIUnicodeStringSuite.Destroy"));
}

TEST_F(UnicodeString, MoveAssignmentAndSwapExchangeThePointers)
{
    ai::UnicodeString first = ai::UnicodeString::FromUTF8("first");
    ai::UnicodeString second = ai::UnicodeString::FromUTF8("second");
    first = std::move(second);
    EXPECT_EQ("second", first.as_UTF8());
    EXPECT_EQ(0U, host.CountCalls("AIUnicodeStringSuite.Destroy"));
    first.swap(second);
    EXPECT_EQ("first", first.as_UTF8());
}

TEST_F(UnicodeString, IsMovableNotCopyable)
{
    static_assert(!std::is_copy_constructible_v<ai::UnicodeString>);
    static_assert(!std::is_copy_assignable_v<ai::UnicodeString>);
    static_assert(std::is_nothrow_move_constructible_v<ai::UnicodeString>);
    EXPECT_FALSE(std::is_polymorphic_v<ai::UnicodeString>);
}

TEST_F(UnicodeString, OutlivingItsSuiteLeaksAndDoesNotCrash)
{
    {
        const ai::UnicodeString string = ai::UnicodeString::FromUTF8("late");
        sAIUnicodeString = nullptr;
    }
    expectedLeaks = 1;
    EXPECT_EQ(0U, host.CountCalls("AIUnicodeStringSuite.Destroy"));
}

TEST_F(UnicodeString, FailureToCreateThrowsTheHostsCode)
{
    host.FailCall("AIUnicodeStringSuite.Initialize", 1, 4711);
    try {
        ai::UnicodeString string("a", kAIUTF8CharacterEncoding);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(4711, static_cast<int>(error));
    }
}

TEST_F(UnicodeString, FailureToReadThrowsTheHostsCode)
{
    const ai::UnicodeString string = ai::UnicodeString::FromUTF8("abc");
    host.FailCall("AIUnicodeStringSuite.GetAs", 1, -50);
    try {
        (void)string.as_UTF8();
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(-50, static_cast<int>(error));
    }
}

class AutoBuffer : public HostInterfaceTest {};

TEST_F(AutoBuffer, CountOfZeroAllocatesNothing)
{
    const ai::UnicodeString::Buffer buffer(0);
    EXPECT_EQ(nullptr, buffer.GetBuffer());
    EXPECT_EQ(0U, buffer.GetCount());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(AutoBuffer, OwnsABlockOfItsCount)
{
    {
        const ai::UnicodeString::Buffer buffer(12);
        EXPECT_NE(nullptr, buffer.GetBuffer());
        EXPECT_EQ(12U, buffer.GetCount());
    }
    EXPECT_THAT(host.Calls(),
                ElementsAre("SPBlocksSuite.AllocateBlock(12, \"ai::SPAlloc::AllocateBlock\")",
                            "SPBlocksSuite.FreeBlock(ai::SPAlloc::AllocateBlock)"));
}

TEST_F(AutoBuffer, FailedAllocationThrowsOutOfMemory)
{
    host.FailCall("SPBlocksSuite.AllocateBlock", 1, 4711);
    try {
        const ai::UnicodeString::Buffer buffer(12);
        FAIL() << "nothing was thrown";
    } catch (const ai::Error& error) {
        EXPECT_EQ(kHostOutOfMemory, static_cast<int>(error));
    }
}

TEST_F(AutoBuffer, DeletingANullBlockCallsNothing)
{
    ai::SPAlloc::DeleteBlock(nullptr);
    EXPECT_THAT(host.Calls(), IsEmpty());
}

}  // namespace
