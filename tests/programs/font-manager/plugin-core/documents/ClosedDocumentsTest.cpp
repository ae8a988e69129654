#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "CoreSession.h"

namespace {

std::set<std::string> sOpenInHost;

using testing::ElementsAre;
using testing::IsEmpty;

// Documents whose close isn't reported, in a host that answers what is open.
class ClosedDocumentsTest : public testing::Test {
protected:
    void SetUp() override { sOpenInHost.clear(); }

    void Open(const std::string& path, const std::string& font)
    {
        EXPECT_EQ(0U, mCore.OpenAndActivate(path, MakeFontList({font})));
    }

    void SaveAndIdle(const std::string& path, const std::string& font)
    {
        sOpenInHost.insert(path);
        EXPECT_EQ(0U, mCore.pHandleSaveDocument(path.c_str(), MakeUsage({font}).c_str()));
        EXPECT_EQ(0U, mCore.pIdleEvent());
    }

    void AddBlank()
    {
        char id[256] = {};
        size_t size = sizeof id;
        EXPECT_EQ(0U, mCore.pHandleCreateNewDocument(id, &size));
    }

    CoreSession mSession;
    const Framework& mCore = mSession.core;
};

}  // namespace

// The function that headless-host exports.
extern "C" __attribute__((visibility("default"))) bool HeadlessHostIsDocumentOpen(const char* path)
{
    return sOpenInHost.count(path) != 0;
}

namespace {

TEST_F(ClosedDocumentsTest, ASavedNewDocumentHoldsItsFontsUntilTheHostHasClosedIt)
{
    AddBlank();
    SaveAndIdle("/new.ai", "DejaVuSans");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    sOpenInHost.clear();
    EXPECT_EQ(0U, mCore.pIdleEvent());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

// A host that is busy opens or saves without being idle before.
TEST_F(ClosedDocumentsTest, TheNextOpeningOrSavingReleasesIt)
{
    AddBlank();
    SaveAndIdle("/new.ai", "DejaVuSans");
    sOpenInHost = {"/b.ai"};
    Open("/b.ai", "DejaVuSerif");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    SaveAndIdle("/c.ai", "DejaVuSans");
    sOpenInHost = {"/b.ai"};
    EXPECT_EQ(0U, mCore.pHandleSaveDocument("/b.ai", MakeUsage({"DejaVuSerif"}).c_str()));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

// The host has only the copy open, under its bare name, and reports the close of the template.
TEST_F(ClosedDocumentsTest, ATemplateHoldsItsFontsUntilItsCloseIsReported)
{
    sOpenInHost = {"Untitled-1"};
    Open("/t.ait", "DejaVuSansMono");
    EXPECT_EQ(0U, mCore.pIdleEvent());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
    sOpenInHost.clear();
    SaveAndIdle("/copy.ai", "DejaVuSans");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSansMono"));
    sOpenInHost.clear();
    EXPECT_EQ(0U, mCore.pIdleEvent());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
    EXPECT_EQ(0U, mCore.pHandleCloseDocument("/t.ait", ""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

}  // namespace
