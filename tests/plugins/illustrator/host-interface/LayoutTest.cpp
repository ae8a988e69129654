#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "HostInterface.h"

// The layout of everything that crosses the boundary, for 8-byte pointers.
namespace {

TEST(Layout, MessageHeadHasFourWords)
{
    EXPECT_EQ(0U, offsetof(SPMessageData, checkWord));
    EXPECT_EQ(8U, offsetof(SPMessageData, self));
    EXPECT_EQ(16U, offsetof(SPMessageData, globals));
    EXPECT_EQ(24U, offsetof(SPMessageData, basic));
    EXPECT_EQ(32U, sizeof(SPMessageData));
}

TEST(Layout, HostErrorCodesAreTheirFourCharacters)
{
    EXPECT_EQ(0x5041524D, kHostBadParameter);
    EXPECT_EQ(0x214D454D, kHostOutOfMemory);
}

TEST(Layout, MessagesBeginWithTheHead)
{
    EXPECT_EQ(32U, sizeof(SPInterfaceMessage));
    EXPECT_EQ(32U, sizeof(AITimerMessage));
    EXPECT_EQ(0U, offsetof(AINotifierMessage, d));
    EXPECT_EQ(32U, offsetof(AINotifierMessage, notifier));
    EXPECT_EQ(40U, offsetof(AINotifierMessage, type));
    EXPECT_EQ(48U, offsetof(AINotifierMessage, notifyData));
    EXPECT_EQ(32U, offsetof(AIMenuMessage, menuItem));
    EXPECT_EQ(32U, offsetof(AIFileFormatMessage, filePath));
}

TEST(Layout, BasicSuiteIsInTheHostsOrder)
{
    EXPECT_EQ(0U, offsetof(SPBasicSuite, AcquireSuite));
    EXPECT_EQ(8U, offsetof(SPBasicSuite, ReleaseSuite));
    EXPECT_EQ(16U, offsetof(SPBasicSuite, IsEqual));
}

TEST(Layout, StringsAndPathsAreOnePointer)
{
    EXPECT_EQ(sizeof(void*), sizeof(ai::UnicodeString));
    EXPECT_EQ(sizeof(void*), sizeof(ai::FilePath));
    EXPECT_EQ(16U, sizeof(ai::UnicodeString::Buffer));
}

TEST(Layout, ArtSpecsArePackedAndKeepTheirValues)
{
    EXPECT_EQ(0U, offsetof(AIMatchingArtSpec, type));
    EXPECT_EQ(4U, offsetof(AIMatchingArtSpec, whichAttr));
    EXPECT_EQ(8U, offsetof(AIMatchingArtSpec, attr));
    EXPECT_EQ(12U, sizeof(AIArtSpec));
    const AIMatchingArtSpec spec(12, 3, 5);
    EXPECT_EQ(12, spec.type);
    EXPECT_EQ(3, spec.whichAttr);
    EXPECT_EQ(5, spec.attr);
}

TEST(Layout, FileFormatRecordIsInTheHostsOrder)
{
    EXPECT_EQ(0U, offsetof(PlatformAddFileFormatExData, numTypes));
    EXPECT_EQ(8U, offsetof(PlatformAddFileFormatExData, typeList));
    EXPECT_EQ(16U, offsetof(PlatformAddFileFormatExData, title));
    EXPECT_EQ(24U, offsetof(PlatformAddFileFormatExData, titleOrder));
    EXPECT_EQ(32U, offsetof(PlatformAddFileFormatExData, extensions));
}

TEST(Layout, SuitesAreInTheHostsOrder)
{
    EXPECT_EQ(8U, offsetof(AIDocumentSuite, GetDocumentModified));
    EXPECT_EQ(16U, offsetof(AIDocumentSuite, GetDocument));
    EXPECT_EQ(8U, offsetof(AIFilePathSuite, GetFileName));
    EXPECT_EQ(16U, offsetof(AIFilePathSuite, GetFullPath));
    EXPECT_EQ(8U, offsetof(AIUnicodeStringSuite, Destroy));
    EXPECT_EQ(16U, offsetof(AIUnicodeStringSuite, GetAs));
    EXPECT_EQ(8U, offsetof(SPBlocksSuite, FreeBlock));
    EXPECT_EQ(8U, offsetof(AITextFrameSuite, GetATETextFrame));
    EXPECT_EQ(32U, offsetof(AIArtSetSuite, MatchingArtSet));
    EXPECT_EQ(16U, offsetof(AIFontSuite, FontKeyFromFontRef));
    EXPECT_EQ(8U, offsetof(AIFileFormatSuite, SetFileFormatPriority));
    EXPECT_EQ(80U, offsetof(AIMenuSuite, RemoveMenuItem));
}

TEST(Layout, ReleaseIsTheSecondOperationOfTextEngineSuites)
{
    EXPECT_EQ(8U, offsetof(ATE::TextFrameSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::StorySuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::StoriesSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::TextRangesSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::CharInspectorSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::ArrayFontRefSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::FontSuite, Release));
    EXPECT_EQ(0U, offsetof(ATE::TextRangeSuite, AddRef));
    EXPECT_EQ(8U, offsetof(ATE::TextRangeSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::CharFeaturesSuite, Release));
    EXPECT_EQ(8U, offsetof(ATE::TextRunsIteratorSuite, Release));
}

// HostInterface.h includes the window system's side too.
TEST(Layout, HostPlatformTableComesWithTheOneHeader)
{
    EXPECT_EQ(0U, offsetof(SHostPlatform, beginModalSession));
    EXPECT_EQ(8U, offsetof(SHostPlatform, showAlert));
    EXPECT_EQ(16U, offsetof(SHostPlatform, privateFrameworksPath));
    EXPECT_TRUE(std::is_abstract_v<ModalWindow>);
}

}  // namespace
