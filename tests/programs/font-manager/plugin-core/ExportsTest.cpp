#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "CoreTestHome.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using plugincore::StatusCodes;

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ExportsTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(mCore.pTerminatePluginCoreInterface(), 0U); }

    FontTestHome mHome;
    Framework mCore;
    char mBuffer[256] = {};
    size_t mSize = sizeof mBuffer;
    int mValue = 0;
};

TEST_F(ExportsTest, AllNamesAreThere)
{
#define CHECK(name) EXPECT_NE(mCore.p##name, nullptr) << #name;
    PLUGIN_CORE_FUNCTIONS(CHECK)
#undef CHECK
}

TEST_F(ExportsTest, OnlyVersionSevenIsServed)
{
    EXPECT_EQ(mCore.pGetAPIVersion(&mValue, 7), 0U);
    EXPECT_EQ(mValue, 7);
    EXPECT_EQ(mCore.pGetAPIVersion(&mValue, 6), StatusCodes::kVersionMismatch);
    EXPECT_EQ(mCore.pGetAPIVersion(&mValue, 8), StatusCodes::kVersionMismatch);
}

TEST_F(ExportsTest, ANullPointerGivesAStatus)
{
    ASSERT_TRUE(mCore.Start());
    const auto callback = [](const char*, const char*, const char*, bool, bool, bool, const char*,
                             void*) -> unsigned int { return 0; };
    auto* help = reinterpret_cast<MenuItemHelp*>(mBuffer);
    bool flag = false;
    const std::vector<unsigned int> results = {
        mCore.pActivateChosenFonts(nullptr, "[]", &mValue),
        mCore.pActivateChosenFonts("", nullptr, &mValue),
        mCore.pActivateChosenFonts("", "[]", nullptr),
        mCore.pCreateMenusFromJSONBuffer(nullptr, callback, help),
        mCore.pCreateMenusFromJSONBuffer("{}", nullptr, help),
        mCore.pCreateMenusFromJSONBuffer("{}", callback, nullptr),
        mCore.pGetAPIVersion(nullptr, 7),
        mCore.pGetIDForDocument(nullptr, mBuffer, &mSize),
        mCore.pGetIDForDocument("", nullptr, &mSize),
        mCore.pGetIDForDocument("", mBuffer, nullptr),
        mCore.pGetMenus(nullptr, mBuffer, &mSize),
        mCore.pGetMenus("", nullptr, &mSize),
        mCore.pGetMenus("", mBuffer, nullptr),
        mCore.pGetSettings(nullptr, &mSize),
        mCore.pGetSettings(mBuffer, nullptr),
        mCore.pGetSocketPort(nullptr),
        mCore.pHandleCloseDocument(nullptr, ""),
        mCore.pHandleCloseDocument("", nullptr),
        mCore.pHandleCreateNewDocument(nullptr, &mSize),
        mCore.pHandleCreateNewDocument(mBuffer, nullptr),
        mCore.pHandleMenuSelection(nullptr, "", "", ""),
        mCore.pHandleMenuSelection("", nullptr, "", ""),
        mCore.pHandleMenuSelection("", "", nullptr, ""),
        mCore.pHandleMenuSelection("", "", "", nullptr),
        mCore.pHandleOpenExistingDocument(nullptr, mBuffer, &mSize, &mValue),
        mCore.pHandleOpenExistingDocument("", nullptr, &mSize, &mValue),
        mCore.pHandleOpenExistingDocument("", mBuffer, nullptr, &mValue),
        mCore.pHandleOpenExistingDocument("", mBuffer, &mSize, nullptr),
        mCore.pHandleSaveDocument(nullptr, ""),
        mCore.pHandleSaveDocument("", nullptr),
        mCore.pInitializePluginCoreInterface(nullptr, ""),
        mCore.pInitializePluginCoreInterface("", nullptr),
        mCore.pInvokeCommandDialog(nullptr, mBuffer, &flag),
        mCore.pInvokeCommandDialog("", nullptr, &flag),
        mCore.pInvokeCommandDialog("", mBuffer, nullptr),
        mCore.pInvokeResolveDialog(nullptr, &mSize),
        mCore.pInvokeResolveDialog(mBuffer, nullptr),
        mCore.pPluginIsEnabled(true, nullptr),
        mCore.pRegisterPlugPlug(nullptr),
        mCore.pUpdateDocumentFontUsage(nullptr, ""),
        mCore.pUpdateDocumentFontUsage("", nullptr),
        mCore.pSetRebuildWorkgroupsMenuCallback(nullptr),
    };
    EXPECT_THAT(results, testing::Each(StatusCodes::kNullPointer));
}

TEST_F(ExportsTest, BrokenFontListsAreToldAndLeaveTheEmptyText)
{
    ASSERT_TRUE(mCore.Start());
    for (const char* text : {"[{\"PostScriptName\":\"A", "7", "{}", "{\"DocumentFonts\":1}"}) {
        std::strcpy(mBuffer, text);
        testing::internal::CaptureStderr();
        EXPECT_EQ(mCore.pHandleOpenExistingDocument("/a.ai", mBuffer, &mSize, &mValue),
                  StatusCodes::kInvalidParam);
        EXPECT_STREQ(mBuffer, "");
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    StartsWith("PluginCore: HandleOpenExistingDocument: the font list"));
    }
}

TEST_F(ExportsTest, EntriesOfAnotherFormAreLeftOut)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.Open("/a.ai",
                         "[1,null,{},{\"PostScriptName\":2},{\"PostScriptName\":\"\"},"
                         "{\"PostScriptName\":\"DejaVuSans\"}]"),
              "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}");
}

TEST_F(ExportsTest, NothingIsWrittenBeyondASmallBuffer)
{
    FontTestHome::CopyFont("DejaVuSansMono-Bold", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    std::string text = MakeFontList({"DejaVuSansMono-Bold"});
    const size_t told = text.size() + 1;  // the answer is longer by the member's name
    text += std::string(1, '\0') + "guard";
    size_t size = told;
    testing::internal::CaptureStderr();
    EXPECT_EQ(mCore.pHandleOpenExistingDocument("/a.ai", text.data(), &size, &mValue),
              StatusCodes::kIndexOutOfRange);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("too small"));
    EXPECT_EQ(text[0], '\0');
    EXPECT_EQ(text.substr(told), "guard");
    EXPECT_EQ(size, told);
    size = 0;
    EXPECT_EQ(mCore.pHandleOpenExistingDocument("/missing.ai", text.data(), &size, &mValue),
              StatusCodes::kIndexOutOfRange);
}

TEST_F(ExportsTest, ABufferThatIsFullWithoutAZeroIsReadToItsEnd)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    std::string text = MakeFontList({"DejaVuSans", "LongEnoughForTheAnswer"});
    size_t size = text.size();
    text += "rubbish";
    EXPECT_EQ(mCore.pHandleOpenExistingDocument("/a.ai", text.data(), &size, &mValue), 0U);
    EXPECT_STREQ(text.c_str(), "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}");
    EXPECT_EQ(mValue, 1);
}

TEST_F(ExportsTest, WithoutAFontListTheFontsComeFromTheFile)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    const fs::path file = mHome.GetPath() / "drawing.eps";
    FontTestHome::WriteFile(file,
                            "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n"
                            "%%DocumentNeededResources: font DejaVuSans\n%%+ font Nowhere\n"
                            "%%EndComments\nshowpage\n%%EOF\n");
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.Open(file, ""), "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}");
}

TEST_F(ExportsTest, TheFontsOfAFileThatIsNoDocumentAreNone)
{
    ASSERT_TRUE(mCore.Start());
    FontTestHome::WriteFile(mHome.GetPath() / "text.ai", "not a document");
    EXPECT_EQ(mCore.Open(mHome.GetPath() / "text.ai", ""), "");
    EXPECT_EQ(mCore.Open(mHome.GetPath() / "missing.ai", ""), "");
    EXPECT_EQ(mCore.Open(mHome.GetPath(), ""), "");
    EXPECT_EQ(mCore.Open("", ""), "");
}

TEST_F(ExportsTest, WithoutAStartDocumentsAreRefused)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(mCore.pHandleCloseDocument("/a.ai", ""), StatusCodes::kNotInitialized);
    EXPECT_EQ(mCore.pHandleOpenExistingDocument("/a.ai", mBuffer, &mSize, &mValue),
              StatusCodes::kNotInitialized);
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 55),
              "PluginCore: HandleCloseDocument: called while it isn't ");
    EXPECT_EQ(mCore.pGetSettings(mBuffer, &mSize), 0U);
    EXPECT_EQ(mCore.pIdleEvent(), 0U);
    EXPECT_EQ(mCore.pProcessPanelMessages(1), 0U);
}

TEST_F(ExportsTest, AStartWithoutAUsableDatabaseFailsInOneLine)
{
    const fs::path database = mHome.GetData() / "Corvanta/fonts.db";
    FontTestHome::WriteFile(database, std::string(8192, 'x'));
    testing::internal::CaptureStderr();
    EXPECT_EQ(mCore.pInitializePluginCoreInterface("test", "24"), StatusCodes::kDatabaseError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: InitializePluginCoreInterface: " + database.string() +
                  ": file is not a database\n");
    EXPECT_EQ(fs::file_size(database), 8192U);
}

TEST_F(ExportsTest, IdsOfKnownDocumentsLast)
{
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize), 0U);
    EXPECT_STREQ(mBuffer, "");
    EXPECT_EQ(mCore.Open("/a.ai", "[]"), "");
    EXPECT_EQ(mCore.pHandleSaveDocument("/b.ai", "{}"), 0U);
    EXPECT_EQ(mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize), 0U);
    const std::string id = mBuffer;
    EXPECT_EQ(id.size(), 32U);
    EXPECT_EQ(mCore.pUpdateDocumentFontUsage(id.c_str(), "{}"), 0U);
    EXPECT_EQ(mCore.pTerminatePluginCoreInterface(), 0U);
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize), 0U);
    EXPECT_EQ(mBuffer, id);
    EXPECT_EQ(mCore.pGetIDForDocument("/b.ai", mBuffer, &mSize), 0U);
    EXPECT_NE(mBuffer, id);
    EXPECT_EQ(mCore.pUpdateDocumentFontUsage("nobody", "{}"), StatusCodes::kNotFound);
}

TEST_F(ExportsTest, ABlankDocumentGetsAFreshId)
{
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(mCore.pHandleCreateNewDocument(mBuffer, &mSize), 0U);
    const std::string first = mBuffer;
    EXPECT_EQ(mCore.pHandleCreateNewDocument(mBuffer, &mSize), 0U);
    EXPECT_FALSE(first.empty());
    EXPECT_NE(mBuffer, first);
    size_t small = 5;
    EXPECT_EQ(mCore.pHandleCreateNewDocument(mBuffer, &small), StatusCodes::kIndexOutOfRange);
}

TEST_F(ExportsTest, TheAboutTextGoesToStandardErrorWithoutAHost)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    FontTestHome::WriteFile(mHome.GetLibrary() / "bad.ttf", "bad");
    ASSERT_TRUE(mCore.Start());
    bool shown = false;
    testing::internal::CaptureStderr();
    EXPECT_EQ(mCore.pInvokeCommandDialog("", mBuffer, &shown), 0U);
    EXPECT_TRUE(shown);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "PluginCore: Corvanta Fonts: Font library: " + mHome.GetLibrary().string() +
                  "\n1 fonts in 1 files, 1 bad files skipped\n");
    EXPECT_STREQ(mBuffer, "");
}

}  // namespace
