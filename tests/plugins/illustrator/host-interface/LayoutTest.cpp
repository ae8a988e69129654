#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "HostInterface.h"

// Where the fields of what crosses the boundary stand on a machine with 8-byte pointers.
namespace {

TEST(Layout, MessageHead)
{
    EXPECT_EQ(offsetof(SPMessageData, checkWord), 0U);
    EXPECT_EQ(offsetof(SPMessageData, self), 8U);
    EXPECT_EQ(offsetof(SPMessageData, globals), 16U);
    EXPECT_EQ(offsetof(SPMessageData, basic), 24U);
    EXPECT_EQ(sizeof(SPMessageData), 32U);
}

TEST(Layout, MessagesOpenWithTheHead)
{
    EXPECT_EQ(sizeof(SPInterfaceMessage), 32U);
    EXPECT_EQ(sizeof(AITimerMessage), 32U);
    EXPECT_EQ(offsetof(AINotifierMessage, d), 0U);
    EXPECT_EQ(offsetof(AINotifierMessage, notifier), 32U);
    EXPECT_EQ(offsetof(AINotifierMessage, type), 40U);
    EXPECT_EQ(offsetof(AINotifierMessage, notifyData), 48U);
    EXPECT_EQ(offsetof(AIMenuMessage, menuItem), 32U);
    EXPECT_EQ(offsetof(AIFileFormatMessage, filePath), 32U);
}

TEST(Layout, BasicSuite)
{
    EXPECT_EQ(offsetof(SPBasicSuite, AcquireSuite), 0U);
    EXPECT_EQ(offsetof(SPBasicSuite, ReleaseSuite), 8U);
    EXPECT_EQ(offsetof(SPBasicSuite, IsEqual), 16U);
}

TEST(Layout, StringsPathsAndBuffersAreTheirPointers)
{
    EXPECT_EQ(sizeof(ai::UnicodeString), sizeof(void*));
    EXPECT_EQ(sizeof(ai::FilePath), sizeof(void*));
    EXPECT_EQ(sizeof(ai::UnicodeString::Buffer), 16U);
}

TEST(Layout, ArtSpecs)
{
    EXPECT_EQ(offsetof(AIMatchingArtSpec, type), 0U);
    EXPECT_EQ(offsetof(AIMatchingArtSpec, whichAttr), 4U);
    EXPECT_EQ(offsetof(AIMatchingArtSpec, attr), 8U);
    EXPECT_EQ(sizeof(AIArtSpec), 12U);
    const AIMatchingArtSpec spec(12, 3, 5);
    EXPECT_EQ(spec.type, 12);
    EXPECT_EQ(spec.whichAttr, 3);
    EXPECT_EQ(spec.attr, 5);
}

TEST(Layout, FileFormatRecord)
{
    EXPECT_EQ(offsetof(PlatformAddFileFormatExData, numTypes), 0U);
    EXPECT_EQ(offsetof(PlatformAddFileFormatExData, typeList), 8U);
    EXPECT_EQ(offsetof(PlatformAddFileFormatExData, title), 16U);
    EXPECT_EQ(offsetof(PlatformAddFileFormatExData, titleOrder), 24U);
    EXPECT_EQ(offsetof(PlatformAddFileFormatExData, extensions), 32U);
}

TEST(Layout, SuitesInTheHostsOrder)
{
    EXPECT_EQ(offsetof(AIDocumentSuite, GetDocumentModified), 8U);
    EXPECT_EQ(offsetof(AIDocumentSuite, GetDocument), 16U);
    EXPECT_EQ(offsetof(AIFilePathSuite, GetFileName), 8U);
    EXPECT_EQ(offsetof(AIFilePathSuite, GetFullPath), 16U);
    EXPECT_EQ(offsetof(AIUnicodeStringSuite, Destroy), 8U);
    EXPECT_EQ(offsetof(AIUnicodeStringSuite, GetAs), 16U);
    EXPECT_EQ(offsetof(SPBlocksSuite, FreeBlock), 8U);
    EXPECT_EQ(offsetof(AITextFrameSuite, GetATETextFrame), 8U);
    EXPECT_EQ(offsetof(AIArtSetSuite, MatchingArtSet), 32U);
    EXPECT_EQ(offsetof(AIFontSuite, FontKeyFromFontRef), 16U);
    EXPECT_EQ(offsetof(AIFileFormatSuite, SetFileFormatPriority), 8U);
    EXPECT_EQ(offsetof(AIMenuSuite, RemoveMenuItem), 80U);
}

TEST(Layout, ReleaseIsTheSecondOperationOfTextEngineSuites)
{
    EXPECT_EQ(offsetof(ATE::TextFrameSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::StorySuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::StoriesSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::TextRangesSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::CharInspectorSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::ArrayFontRefSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::FontSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::TextRangeSuite, AddRef), 0U);
    EXPECT_EQ(offsetof(ATE::TextRangeSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::CharFeaturesSuite, Release), 8U);
    EXPECT_EQ(offsetof(ATE::TextRunsIteratorSuite, Release), 8U);
}

// The one header gives the window system's side, too.
TEST(Layout, HostPlatformTable)
{
    EXPECT_EQ(offsetof(SHostPlatform, beginModalSession), 0U);
    EXPECT_EQ(offsetof(SHostPlatform, showAlert), 8U);
    EXPECT_EQ(offsetof(SHostPlatform, privateFrameworksPath), 16U);
    EXPECT_TRUE(std::is_abstract_v<ModalWindow>);
}

}  // namespace
