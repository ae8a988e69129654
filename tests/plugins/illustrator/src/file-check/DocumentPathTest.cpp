#include "FileFormatHook.h"
#include "MessageFixture.h"

namespace {

class DocumentPath : public MessageFixture {
protected:
    DocumentPath() { Start(); }
};

TEST_F(DocumentPath, ReturnsTheFullPathOrTheName)
{
    host.AddDocument("/folder/a.ai");
    std::string out = "before";
    EXPECT_EQ(0, GetDocumentFileSpec(&out, false));
    EXPECT_EQ("/folder/a.ai", out);
    EXPECT_EQ(0, GetDocumentFileSpec(&out, true));
    EXPECT_EQ("a.ai", out);
    EXPECT_EQ(1U, host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/a.ai\", false)"));
    EXPECT_EQ(1U, host.CountCalls("AIFilePathSuite.GetFileName(\"/folder/a.ai\", false)"));
}

TEST_F(DocumentPath, ReturnsTheHostsFailureAndLeavesTheTextUnchanged)
{
    std::string out = "before";
    EXPECT_EQ(0x4E4F4443, GetDocumentFileSpec(&out, false));
    EXPECT_EQ("before", out);
    EXPECT_EQ(0U, host.CountCalls("AIFilePathSuite."));
}

TEST_F(DocumentPath, SucceedsWithAnEmptyPath)
{
    host.AddDocument("");
    std::string out = "before";
    EXPECT_EQ(0, GetDocumentFileSpec(&out, false));
    EXPECT_EQ("", out);
}

TEST_F(DocumentPath, ThrowsTheHostsErrorIfTheConversionFails)
{
    host.AddDocument("/a.ai");
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    std::string out;
    EXPECT_THROW((void)GetDocumentFileSpec(&out, false), ai::Error);
}

TEST_F(DocumentPath, ConversionToAnEmptyTextReturnsMinusOne)
{
    const ai::FilePath path;
    std::string out = "before";
    EXPECT_EQ(-1, GetAIPathAsUTF8String(path, out, false));
    EXPECT_EQ("", out);
}

TEST_F(DocumentPath, ConversionToAPathReturns0)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage("/folder/a.ai");
    std::string out = "before";
    EXPECT_EQ(0, GetAIPathAsUTF8String(message.record.GetFilePath(), out, false));
    EXPECT_EQ("/folder/a.ai", out);
    EXPECT_EQ(0, GetAIPathAsUTF8String(message.record.GetFilePath(), out, true));
    EXPECT_EQ("a.ai", out);
}

}  // namespace
