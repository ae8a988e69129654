#include "FileFormatHook.h"
#include "MessageFixture.h"

namespace {

class DocumentPath : public MessageTest {
protected:
    DocumentPath() { Start(); }
};

TEST_F(DocumentPath, WholePathAndName)
{
    host.AddDocument("/folder/a.ai");
    std::string out = "before";
    EXPECT_EQ(GetDocumentFileSpec(&out, false), 0);
    EXPECT_EQ(out, "/folder/a.ai");
    EXPECT_EQ(GetDocumentFileSpec(&out, true), 0);
    EXPECT_EQ(out, "a.ai");
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/a.ai\", false)"), 1U);
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFileName(\"/folder/a.ai\", false)"), 1U);
}

TEST_F(DocumentPath, FailureOfTheHostIsTheResultAndLeavesTheText)
{
    std::string out = "before";
    EXPECT_EQ(GetDocumentFileSpec(&out, false), 0x4E4F4443);
    EXPECT_EQ(out, "before");
    EXPECT_EQ(host.CountCalls("AIFilePathSuite."), 0U);
}

TEST_F(DocumentPath, EmptyPathIsASuccessWithAnEmptyText)
{
    host.AddDocument("");
    std::string out = "before";
    EXPECT_EQ(GetDocumentFileSpec(&out, false), 0);
    EXPECT_EQ(out, "");
}

TEST_F(DocumentPath, ConversionThatFailsThrowsTheHostsError)
{
    host.AddDocument("/a.ai");
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    std::string out;
    EXPECT_THROW((void)GetDocumentFileSpec(&out, false), ai::Error);
}

TEST_F(DocumentPath, EmptyResultOfTheConversionIsMinusOne)
{
    const ai::FilePath path;
    std::string out = "before";
    EXPECT_EQ(GetAIPathAsUTF8String(path, out, false), -1);
    EXPECT_EQ(out, "");
}

TEST_F(DocumentPath, FilledResultOfTheConversionIs0)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage("/folder/a.ai");
    std::string out = "before";
    EXPECT_EQ(GetAIPathAsUTF8String(message.record.GetFilePath(), out, false), 0);
    EXPECT_EQ(out, "/folder/a.ai");
    EXPECT_EQ(GetAIPathAsUTF8String(message.record.GetFilePath(), out, true), 0);
    EXPECT_EQ(out, "a.ai");
}

}  // namespace
