#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreSession.h"
#include "plugin-core/storage/Failure.h"

namespace {

using plugincore::StatusCodes;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

// A font list in the form in which PluginCore returns it.
std::string MakeUsageOfFonts(const std::vector<std::string>& names)
{
    return "{\"DocumentFonts\":" + MakeFontList(names) + "}";
}

class DocumentFontsTest : public testing::Test {
protected:
    void Open(const std::string& path, const std::vector<std::string>& fonts) const
    {
        EXPECT_EQ(0U, mCore.OpenAndActivate(path, MakeFontList(fonts)));
    }
    void Save(const std::string& path, const std::vector<std::string>& fonts) const
    {
        EXPECT_EQ(0U, mCore.pHandleSaveDocument(path.c_str(), MakeUsage(fonts).c_str()));
    }
    void SetActivation(const std::string& mode) const
    {
        FontTestHome::WriteFile(mSession.home.GetPath() / "config/Corvanta/settings.json",
                                "{\"FontActivation\":\"" + mode + "\"}");
    }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
};

TEST_F(DocumentFontsTest, SaveStoresTheUsageReportUnlessItIsEmpty)
{
    const std::string usage = MakeUsage({"DejaVuSans"});
    Save("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(usage, mSession.GetStoredUsage("/a.ai"));
    EXPECT_EQ(0U, mCore.pHandleSaveDocument("/a.ai", ""));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_EQ(usage, mSession.GetStoredUsage("/a.ai"));
}

TEST_F(DocumentFontsTest, CloseStoresItsUsageReport)
{
    const std::string usage = MakeUsage({"DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", usage.c_str()));
    EXPECT_EQ(usage, mSession.GetStoredUsage("/a.ai"));
}

TEST_F(DocumentFontsTest, CloseOfATemplateDoesNotStoreTheUsageReport)
{
    Open("/t.AIT", {"DejaVuSans"});
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/t.AIT", MakeUsage({"DejaVuSerif"}).c_str()));
    EXPECT_EQ("", mSession.GetStoredUsage("/t.AIT"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, UpdateByIdStoresTheUsageReport)
{
    Open("/a.ai", {"DejaVuSans"});
    const std::string usage = MakeUsage({"DejaVuSans", "DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pUpdateDocumentFontUsage(mSession.GetId("/a.ai").c_str(), usage.c_str()));
    EXPECT_EQ(usage, mSession.GetStoredUsage("/a.ai"));
}

TEST_F(DocumentFontsTest, CutUsageReportDoesNotReplaceAGoodOne)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/a.ai", {"DejaVuSans"});
    const std::string cut = MakeUsage({"DejaVuSerif"}).substr(0, 30);
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(StatusCodes::kInvalidParam, mCore.pHandleSaveDocument("/a.ai", cut.c_str()));
    });
    EXPECT_THAT(errors, HasSubstr("it isn't JSON, or was cut off"));
    EXPECT_EQ(MakeUsage({"DejaVuSans"}), mSession.GetStoredUsage("/a.ai"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(DocumentFontsTest, CloseWithACutUsageReportReleasesTheFonts)
{
    Open("/a.ai", {"DejaVuSans"});
    (void)CaptureErrors([&] {
        EXPECT_EQ(StatusCodes::kInvalidParam, mCore.pHandleCloseDocument("/a.ai", "{\"Doc"));
    });
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, NameWithoutAFolderGetsNoId)
{
    Open("Untitled-1", {"DejaVuSans"});
    Save("Untitled-1", {"DejaVuSans"});
    EXPECT_EQ("", mSession.GetId("Untitled-1"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("Untitled-1", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, FontIsFoundWithoutTheEncodingBehindItsName)
{
    Open("/a.pdf", {"DejaVuSans-Identity-H", "NoSuch-Identity-H"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    // The host reads the document and reports its fonts again, as the document names them.
    Open("/a.pdf", {"DejaVuSans-Identity-H", "NoSuch-Identity-H"});
    Save("/a.pdf", {"DejaVuSans-Identity-H", "DejaVuSans", "DejaVuSerif-Identity-V"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    Save("/a.pdf", {"DejaVuSerif-Identity-V"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.pdf", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, SaveReplacesTheHolds)
{
    Open("/a.ai", {"DejaVuSans", "DejaVuSansMono"});
    Save("/a.ai", {"DejaVuSansMono", "DejaVuSerif"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono", "DejaVuSerif"));
}

TEST_F(DocumentFontsTest, ListedFontsAreActiveUntilTheClose)
{
    const std::string file = mSession.home.GetPath() / "a.ai";
    WriteNative(file, "DejaVuSans", {"DejaVuSans", "DejaVuSerif"});
    const std::vector<std::string> both = {"DejaVuSans", "DejaVuSerif"};
    EXPECT_EQ(MakeUsageOfFonts(both), mCore.Open(file, ""));
    EXPECT_EQ(0U, mCore.OpenAndActivate(file, ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAreArray(both));
    Open(file, {"DejaVuSans"});  // as the plug-in does with the fonts of its own scan
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAreArray(both));
    Save(file, {"DejaVuSans"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAreArray(both));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument(file.c_str(), ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, RepeatedUsageReportChangesNothing)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/a.ai", {"DejaVuSerif"});
    Save("/a.ai", {"DejaVuSerif"});
    Save("/a.ai", {"DejaVuSerif"});
    EXPECT_EQ(3U, ListActivationFolder(mSession.home).size());  // digits, group, link
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", MakeUsage({"DejaVuSerif"}).c_str()));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, SaveKeepsFontsThatAnotherDocumentHolds)
{
    Open("/a.ai", {"DejaVuSans"});
    Open("/b.ai", {"DejaVuSans"});
    Save("/a.ai", {});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    Save("/b.ai", {});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, SaveWithUnknownFontsSucceeds)
{
    Open("/a.ai", {"DejaVuSans"});
    EXPECT_EQ("", CaptureErrors([&] { Save("/a.ai", {"DejaVuSans", "Nowhere"}); }));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(DocumentFontsTest, SavedDocumentThatWasNotOpenedHoldsItsFontsToTheEnd)
{
    Save("/new.ai", {"DejaVuSans"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, SavedDocumentIsReleasedWhenTheMenusShowThatNoneIsOpen)
{
    Open("/a.ai", {"DejaVuSansMono"});
    Save("/new.ai", {"DejaVuSans"});
    (void)mSession.GetMenus("/new.ai");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSansMono"));
    (void)mSession.GetMenus("");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
}

TEST_F(DocumentFontsTest, DocumentSavedUnderAnotherNameIsReleasedWithItsOriginal)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/b.ai", {"DejaVuSans", "DejaVuSerif"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, DocumentSavedUnderAnotherNameMayBeTheLastOpenOne)
{
    Open("/a.ai", {"DejaVuSans"});
    Open("/b.ai", {"DejaVuSansMono"});
    Save("/c.ai", {"DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono", "DejaVuSerif"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/b.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, SavedNewDocumentMayBeOpenWhenAllOthersAreClosed)
{
    char id[256] = {};
    size_t size = sizeof id;
    Open("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(0U, mCore.pHandleCreateNewDocument(id, &size));
    Save("/new.ai", {"DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(DocumentFontsTest, ReopenedDocumentIsReleasedByItsOwnClose)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/b.ai", {"DejaVuSerif"});
    Open("/b.ai", {"DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/b.ai", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, CloseOfANewDocumentActivatesOnlyLibraryFonts)
{
    int count = 0;
    const std::string usage = MakeUsage({"DejaVuSans", "Nowhere"});
    EXPECT_EQ(0U, mCore.pActivateChosenFonts("", usage.c_str(), &count));
    EXPECT_EQ(1, count);
}

TEST_F(DocumentFontsTest, ModeOffActivatesNothingAndStillReleasesFonts)
{
    Open("/a.ai", {"DejaVuSans"});
    SetActivation("0");
    EXPECT_EQ("", mCore.Open("/b.ai", MakeFontList({"DejaVuSerif"})));
    Save("/a.ai", {"DejaVuSerif"});
    int count = 0;
    const std::string usage = MakeUsage({"DejaVuSerif"});
    EXPECT_EQ(0U, mCore.pActivateChosenFonts("", usage.c_str(), &count));
    EXPECT_EQ(0, count);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentFontsTest, ModeAskWithoutATerminalActivatesNothing)
{
    SetActivation("2");
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(StatusCodes::kInvalidParam,
                  mCore.OpenAndActivate(
                      "/a.ai",
                      MakeFontList(
                          {"DejaVuSans"})));  // of the empty list; the plug-in wouldn't activate it
    });
    EXPECT_THAT(errors, HasSubstr("no terminal; not activated: DejaVuSans"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

// As the plug-in cuts a text that is longer than its buffer of 1 MiB.
TEST_F(DocumentFontsTest, OfACutFontListTheFontsBeforeTheCutAreUsed)
{
    std::vector<std::string> names = {"DejaVuSans", "DejaVuSerif"};
    while (names.size() < 40000) names.push_back("Nowhere-" + std::to_string(names.size()));
    names.emplace_back("DejaVuSansMono");
    std::string buffer = MakeUsage(names);
    ASSERT_LT(1048576U, buffer.size());
    buffer.resize(1048576);
    size_t size = buffer.size();
    int count = 0;
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(0U, mCore.pHandleOpenExistingDocument("/a.ai", buffer.data(), &size, &count));
    });
    EXPECT_EQ(MakeUsageOfFonts({"DejaVuSans", "DejaVuSerif"}), std::string(buffer.c_str()));
    EXPECT_EQ(2, count);
    EXPECT_THAT(errors, testing::MatchesRegex(
                            "PluginCore: the font list was cut off after 1048576 bytes; used are "
                            "the [0-9]+ fonts before that\n"));
    const std::string cut = MakeUsage(names).substr(0, 1048576);
    EXPECT_THAT(
        CaptureErrors([&] { EXPECT_EQ(0U, mCore.pActivateChosenFonts("", cut.c_str(), &count)); }),
        HasSubstr("was cut off after 1048576 bytes"));
    EXPECT_EQ(2, count);
}

// The list that is returned may be longer than the caller's buffer.
TEST_F(DocumentFontsTest, OfAListThatDoesNotFitTheFirstFontsAreUsed)
{
    std::string buffer = MakeFontList({"DejaVuSans", "DejaVuSerif"});
    const std::string one = MakeUsageOfFonts({"DejaVuSans"});
    ASSERT_LT(one.size(), buffer.size());
    ASSERT_GT(MakeUsageOfFonts({"DejaVuSans", "DejaVuSerif"}).size(), buffer.size());
    size_t size = buffer.size();
    int count = 0;
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(0U, mCore.pHandleOpenExistingDocument("/a.ai", buffer.data(), &size, &count));
    });
    EXPECT_EQ(one, std::string(buffer.c_str()));
    EXPECT_EQ(1, count);
    EXPECT_THAT(errors, HasSubstr("PluginCore: the list of 2 fonts is longer than the buffer of " +
                                  std::to_string(size) + " bytes; used are the first 1\n"));
}

}  // namespace
