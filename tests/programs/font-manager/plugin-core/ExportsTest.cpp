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
    void TearDown() override { EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface()); }

    FontTestHome mHome;
    Framework mCore;
    char mBuffer[256] = {};
    size_t mSize = sizeof mBuffer;
    int mValue = 0;
};

TEST_F(ExportsTest, ExportsAllFunctions)
{
#define CHECK(name) EXPECT_NE(nullptr, mCore.p##name) << #name;
    PLUGIN_CORE_FUNCTIONS(CHECK)
#undef CHECK
}

TEST_F(ExportsTest, SupportsVersionSevenOnly)
{
    EXPECT_EQ(0U, mCore.pGetAPIVersion(&mValue, 7));
    EXPECT_EQ(7, mValue);
    EXPECT_EQ(StatusCodes::kVersionMismatch, mCore.pGetAPIVersion(&mValue, 6));
    EXPECT_EQ(StatusCodes::kVersionMismatch, mCore.pGetAPIVersion(&mValue, 8));
}

TEST_F(ExportsTest, NullPointerReturnsKNullPointer)
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

TEST_F(ExportsTest, InvalidFontListIsReportedAndEmptiesTheBuffer)
{
    ASSERT_TRUE(mCore.Start());
    for (const char* text : {"[{\"PostScriptName\":\"A", "7", "{}", "{\"DocumentFonts\":1}"}) {
        std::strcpy(mBuffer, text);
        testing::internal::CaptureStderr();
        EXPECT_EQ(StatusCodes::kInvalidParam,
                  mCore.pHandleOpenExistingDocument("/a.ai", mBuffer, &mSize, &mValue));
        EXPECT_STREQ("", mBuffer);
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    StartsWith("PluginCore: HandleOpenExistingDocument: the font list"));
    }
}

TEST_F(ExportsTest, SkipsEntriesOfAnotherForm)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ("{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}",
              mCore.Open("/a.ai",
                         "[1,null,{},{\"PostScriptName\":2},{\"PostScriptName\":\"\"},"
                         "{\"PostScriptName\":\"DejaVuSans\"}]"));
}

TEST_F(ExportsTest, WritesNothingBeyondASmallBuffer)
{
    FontTestHome::CopyFont("DejaVuSansMono-Bold", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    std::string text = MakeFontList({"DejaVuSansMono-Bold"});
    const size_t capacity = text.size() + 1;  // the answer is longer: it has the member's name
    text += std::string(1, '\0') + "guard";
    size_t size = capacity;
    testing::internal::CaptureStderr();
    EXPECT_EQ(StatusCodes::kIndexOutOfRange,
              mCore.pHandleOpenExistingDocument("/a.ai", text.data(), &size, &mValue));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("too small"));
    EXPECT_EQ('\0', text[0]);
    EXPECT_EQ("guard", text.substr(capacity));
    EXPECT_EQ(capacity, size);
    size = 0;
    EXPECT_EQ(StatusCodes::kIndexOutOfRange,
              mCore.pHandleOpenExistingDocument("/missing.ai", text.data(), &size, &mValue));
}

TEST_F(ExportsTest, ReadsABufferWithoutAZeroByteToItsEnd)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    ASSERT_TRUE(mCore.Start());
    std::string text = MakeFontList({"DejaVuSans", "LongEnoughForTheAnswer"});
    size_t size = text.size();
    text += "rubbish";
    EXPECT_EQ(0U, mCore.pHandleOpenExistingDocument("/a.ai", text.data(), &size, &mValue));
    EXPECT_STREQ("{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}", text.c_str());
    EXPECT_EQ(1, mValue);
}

TEST_F(ExportsTest, ReadsTheFileWithoutAFontList)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    const fs::path file = mHome.GetPath() / "drawing.eps";
    FontTestHome::WriteFile(file,
                            "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n"
                            "%%DocumentNeededResources: font DejaVuSans\n%%+ font Nowhere\n"
                            "%%EndComments\nshowpage\n%%EOF\n");
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ("{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSans\"}]}", mCore.Open(file, ""));
}

TEST_F(ExportsTest, FileThatIsNotADocumentHasNoFonts)
{
    ASSERT_TRUE(mCore.Start());
    FontTestHome::WriteFile(mHome.GetPath() / "text.ai", "not a document");
    EXPECT_EQ("", mCore.Open(mHome.GetPath() / "text.ai", ""));
    EXPECT_EQ("", mCore.Open(mHome.GetPath() / "missing.ai", ""));
    EXPECT_EQ("", mCore.Open(mHome.GetPath(), ""));
    EXPECT_EQ("", mCore.Open("", ""));
}

TEST_F(ExportsTest, DocumentFunctionsFailWithoutAStart)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(StatusCodes::kNotInitialized, mCore.pHandleCloseDocument("/a.ai", ""));
    EXPECT_EQ(StatusCodes::kNotInitialized,
              mCore.pHandleOpenExistingDocument("/a.ai", mBuffer, &mSize, &mValue));
    EXPECT_EQ(
        "PluginCore: HandleCloseDocument: PluginCore is not started\n"
        "PluginCore: HandleOpenExistingDocument: PluginCore is not started\n",
        testing::internal::GetCapturedStderr());
    EXPECT_EQ(0U, mCore.pGetSettings(mBuffer, &mSize));
    EXPECT_EQ(0U, mCore.pIdleEvent());
    EXPECT_EQ(0U, mCore.pProcessPanelMessages(1));
}

TEST_F(ExportsTest, StartFailsWithOneLineIfTheDatabaseIsDamaged)
{
    const fs::path database = mHome.GetData() / "Corvanta/fonts.db";
    FontTestHome::WriteFile(database, std::string(8192, 'x'));
    testing::internal::CaptureStderr();
    EXPECT_EQ(StatusCodes::kDatabaseError, mCore.pInitializePluginCoreInterface("test", "24"));
    EXPECT_EQ("PluginCore: InitializePluginCoreInterface: " + database.string() +
                  ": file is not a database; 'Vexcor repair' keeps it under another name and "
                  "creates a new one\n",
              testing::internal::GetCapturedStderr());
    EXPECT_EQ(8192U, fs::file_size(database));
}

TEST_F(ExportsTest, IdsOfDocumentsOutliveARestart)
{
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(0U, mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize));
    EXPECT_STREQ("", mBuffer);
    EXPECT_EQ("", mCore.Open("/a.ai", "[]"));
    EXPECT_EQ(0U, mCore.pHandleSaveDocument("/b.ai", "{}"));
    EXPECT_EQ(0U, mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize));
    const std::string id = mBuffer;
    EXPECT_EQ(32U, id.size());
    EXPECT_EQ(0U, mCore.pUpdateDocumentFontUsage(id.c_str(), "{}"));
    EXPECT_EQ(0U, mCore.pTerminatePluginCoreInterface());
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(0U, mCore.pGetIDForDocument("/a.ai", mBuffer, &mSize));
    EXPECT_EQ(id, mBuffer);
    EXPECT_EQ(0U, mCore.pGetIDForDocument("/b.ai", mBuffer, &mSize));
    EXPECT_NE(id, mBuffer);
    EXPECT_EQ(StatusCodes::kNotFound, mCore.pUpdateDocumentFontUsage("nobody", "{}"));
}

TEST_F(ExportsTest, BlankDocumentGetsANewId)
{
    ASSERT_TRUE(mCore.Start());
    EXPECT_EQ(0U, mCore.pHandleCreateNewDocument(mBuffer, &mSize));
    const std::string first = mBuffer;
    EXPECT_EQ(0U, mCore.pHandleCreateNewDocument(mBuffer, &mSize));
    EXPECT_FALSE(first.empty());
    EXPECT_NE(first, mBuffer);
    size_t small = 5;
    EXPECT_EQ(StatusCodes::kIndexOutOfRange, mCore.pHandleCreateNewDocument(mBuffer, &small));
}

TEST_F(ExportsTest, AboutTextIsPrintedOnStandardErrorWithoutAHost)
{
    FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
    FontTestHome::WriteFile(mHome.GetLibrary() / "bad.ttf", "bad");
    ASSERT_TRUE(mCore.Start());
    bool shown = false;
    testing::internal::CaptureStderr();
    EXPECT_EQ(0U, mCore.pInvokeCommandDialog("", mBuffer, &shown));
    EXPECT_TRUE(shown);
    EXPECT_EQ("PluginCore: Corvanta Fonts: Font library: " + mHome.GetLibrary().string() +
                  "\n1 fonts in 1 files, 1 bad files skipped\n",
              testing::internal::GetCapturedStderr());
    EXPECT_STREQ("", mBuffer);
}

}  // namespace
