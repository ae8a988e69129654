#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreSession.h"
#include "plugin-core/storage/Failure.h"

namespace {

using plugincore::StatusCodes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DocumentLifeTest : public testing::Test {
protected:
    void Open(const std::string& path, const std::vector<std::string>& fonts) const
    {
        EXPECT_EQ(mCore.OpenAndActivate(path, MakeFontList(fonts)), 0U);
    }
    void Save(const std::string& path, const std::vector<std::string>& fonts) const
    {
        EXPECT_EQ(mCore.pHandleSaveDocument(path.c_str(), MakeUsage(fonts).c_str()), 0U);
    }
    void SetActivation(const std::string& mode) const
    {
        FontTestHome::WriteFile(mSession.home.GetPath() / "config/Corvanta/settings.json",
                                "{\"FontActivation\":\"" + mode + "\"}");
    }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
};

TEST_F(DocumentLifeTest, ASaveKeepsTheUsageAndAnEmptyOneLeavesIt)
{
    const std::string usage = MakeUsage({"DejaVuSans"});
    Save("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(mSession.GetKeptUsage("/a.ai"), usage);
    EXPECT_EQ(mCore.pHandleSaveDocument("/a.ai", ""), 0U);
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_EQ(mSession.GetKeptUsage("/a.ai"), usage);
}

TEST_F(DocumentLifeTest, ACloseKeepsTheUsageThatComesWithIt)
{
    const std::string usage = MakeUsage({"DejaVuSerif"});
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", usage.c_str()), 0U);
    EXPECT_EQ(mSession.GetKeptUsage("/a.ai"), usage);
}

TEST_F(DocumentLifeTest, TheUsageAtTheCloseOfATemplateIsThatOfAnotherDocument)
{
    Open("/t.AIT", {"DejaVuSans"});
    EXPECT_EQ(mCore.pHandleCloseDocument("/t.AIT", MakeUsage({"DejaVuSerif"}).c_str()), 0U);
    EXPECT_EQ(mSession.GetKeptUsage("/t.AIT"), "");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, AnUpdateByIdKeepsTheUsage)
{
    Open("/a.ai", {"DejaVuSans"});
    const std::string usage = MakeUsage({"DejaVuSans", "DejaVuSerif"});
    EXPECT_EQ(mCore.pUpdateDocumentFontUsage(mSession.GetId("/a.ai").c_str(), usage.c_str()), 0U);
    EXPECT_EQ(mSession.GetKeptUsage("/a.ai"), usage);
}

TEST_F(DocumentLifeTest, AUsageThatWasCutOffDoesNotTakeAGoodOnesPlace)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/a.ai", {"DejaVuSans"});
    const std::string cut = MakeUsage({"DejaVuSerif"}).substr(0, 30);
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(mCore.pHandleSaveDocument("/a.ai", cut.c_str()), StatusCodes::kInvalidParam);
    });
    EXPECT_THAT(errors, HasSubstr("it isn't JSON, or was cut off"));
    EXPECT_EQ(mSession.GetKeptUsage("/a.ai"), MakeUsage({"DejaVuSans"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(DocumentLifeTest, ACutUsageAtTheCloseStillLetsTheFontsGo)
{
    Open("/a.ai", {"DejaVuSans"});
    (void)CaptureErrors([&] {
        EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", "{\"Doc"), StatusCodes::kInvalidParam);
    });
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ABareNameIsNoDocumentWithAnId)
{
    Open("Untitled-1", {"DejaVuSans"});
    Save("Untitled-1", {"DejaVuSans"});
    EXPECT_EQ(mSession.GetId("Untitled-1"), "");
    EXPECT_EQ(mCore.pHandleCloseDocument("Untitled-1", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ASaveMovesTheHolds)
{
    Open("/a.ai", {"DejaVuSans", "DejaVuSansMono"});
    Save("/a.ai", {"DejaVuSansMono", "DejaVuSerif"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono", "DejaVuSerif"));
}

TEST_F(DocumentLifeTest, TheSecondReportOfASaveAndTheCloseFindEverythingDone)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/a.ai", {"DejaVuSerif"});
    Save("/a.ai", {"DejaVuSerif"});
    Save("/a.ai", {"DejaVuSerif"});
    EXPECT_EQ(ListActivationFolder(mSession.home).size(), 3U);  // digits, group, link
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", MakeUsage({"DejaVuSerif"}).c_str()), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, AFontThatAnotherDocumentHoldsStaysAfterTheSave)
{
    Open("/a.ai", {"DejaVuSans"});
    Open("/b.ai", {"DejaVuSans"});
    Save("/a.ai", {});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    Save("/b.ai", {});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ASaveWithFontsThatNobodyHasIsNoFailure)
{
    Open("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(CaptureErrors([&] { Save("/a.ai", {"DejaVuSans", "Nowhere"}); }), "");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(DocumentLifeTest, ASaveOfADocumentThatWasNeverOpenedHoldsItsFontsToTheEnd)
{
    Save("/new.ai", {"DejaVuSans"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(mCore.pTerminatePluginCoreInterface(), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ADocumentSavedUnderAnotherNameLetsGoWithTheOneThatItWas)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/b.ai", {"DejaVuSans", "DejaVuSerif"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, OfSeveralOpenDocumentsItMayBeTheLast)
{
    Open("/a.ai", {"DejaVuSans"});
    Open("/b.ai", {"DejaVuSansMono"});
    Save("/c.ai", {"DejaVuSerif"});
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono", "DejaVuSerif"));
    EXPECT_EQ(mCore.pHandleCloseDocument("/b.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ANewDocumentThatWasSavedMayStillBeOpenWhenAllOthersAreClosed)
{
    char id[256] = {};
    size_t size = sizeof id;
    Open("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(mCore.pHandleCreateNewDocument(id, &size), 0U);
    Save("/new.ai", {"DejaVuSerif"});
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(DocumentLifeTest, ADocumentThatIsOpenedAgainLivesByItsOwnClose)
{
    Open("/a.ai", {"DejaVuSans"});
    Save("/b.ai", {"DejaVuSerif"});
    Open("/b.ai", {"DejaVuSerif"});
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(mCore.pHandleCloseDocument("/b.ai", ""), 0U);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, ClosingANewDocumentActivatesOnlyWhatTheLibraryHas)
{
    int count = 0;
    const std::string usage = MakeUsage({"DejaVuSans", "Nowhere"});
    EXPECT_EQ(mCore.pActivateChosenFonts("", usage.c_str(), &count), 0U);
    EXPECT_EQ(count, 1);
}

TEST_F(DocumentLifeTest, WithActivationOffNothingIsActivatedAndFontsAreStillLetGo)
{
    Open("/a.ai", {"DejaVuSans"});
    SetActivation("0");
    EXPECT_EQ(mCore.Open("/b.ai", MakeFontList({"DejaVuSerif"})), "");
    Save("/a.ai", {"DejaVuSerif"});
    int count = 0;
    const std::string usage = MakeUsage({"DejaVuSerif"});
    EXPECT_EQ(mCore.pActivateChosenFonts("", usage.c_str(), &count), 0U);
    EXPECT_EQ(count, 0);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(DocumentLifeTest, WithoutATerminalNobodyCanBeAskedAndNothingIsActivated)
{
    SetActivation("2");
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(mCore.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})),
                  StatusCodes::kInvalidParam);  // the plug-in doesn't activate an empty answer
    });
    EXPECT_THAT(errors, HasSubstr("no terminal to ask on; not activated: DejaVuSans"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

}  // namespace
