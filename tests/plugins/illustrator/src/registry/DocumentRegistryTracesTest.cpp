#include "RegistryFixture.h"

namespace {

typedef RegistryFixture DocumentRegistryTraces;

void ExpectTraces(const std::string& entry, const std::string& exit)
{
    ASSERT_EQ(2U, Traces().size());
    EXPECT_EQ(entry, Traces()[0].text);
    EXPECT_EQ(1, Traces()[0].indentChange);
    EXPECT_EQ(exit, Traces()[1].text);
    EXPECT_EQ(-1, Traces()[1].indentChange);
    ClearTraces();
}

TEST_F(DocumentRegistryTraces, StringSetters)
{
    _t_AIDocument* const document = Document(0x1A2B);
    SetFilePathForDocumentHandle(document, "/a.ai");
    ExpectTraces("Entering SetFilePathForDocumentHandle(00001a2b, '/a.ai')",
                 "Exiting SetFilePathForDocumentHandle()");
    SetFontUsageForDocumentHandle(document, "{\"%s\":[]}");
    ExpectTraces("Entering SetFontUsageForDocumentHandle(00001a2b, '{\"%s\":[]}')",
                 "Exiting SetFontUsageForDocumentHandle()");
    SetTemplatePathForDocumentHandle(document, "/t.ait");
    ExpectTraces("Entering SetTemplatePathForDocumentHandle(00001a2b, '/t.ait')",
                 "Exiting SetTemplatePathForDocumentHandle()");
}

TEST_F(DocumentRegistryTraces, TimestampSetter)
{
    SetTimestampForDocumentHandle(Document(0x1A2B), 0x5F00);
    ExpectTraces("Entering SetTimestampForDocumentHandle(00001a2b, 0x00005f00)",
                 "Exiting SetTimestampForDocumentHandle()");
}

TEST_F(DocumentRegistryTraces, StringGetters)
{
    _t_AIDocument* const document = Document(0x1A2B);
    SetFilePathForDocumentHandle(document, "/a.ai");
    SetFontUsageForDocumentHandle(document, "{}");
    ClearTraces();
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(document));
    ExpectTraces("Entering GetFilePathForDocumentHandle(00001a2b)",
                 "GetFilePathForDocumentHandle(00001a2b) returning '/a.ai'");
    EXPECT_EQ("{}", GetFontUsageForDocumentHandle(document));
    ExpectTraces("Entering GetFontUsageForDocumentHandle(00001a2b)",
                 "GetFontUsageForDocumentHandle(00001a2b) returning '{}'");
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(document));
    ExpectTraces("Entering GetTemplatePathForDocumentHandle(00001a2b)",
                 "GetTemplatePathForDocumentHandle(00001a2b) returning ''");
}

TEST_F(DocumentRegistryTraces, TimestampGetter)
{
    SetTimestampForDocumentHandle(Document(0x1A2B), 0x123456789);
    ClearTraces();
    EXPECT_EQ(0x123456789, GetTimestampForDocumentHandle(Document(0x1A2B)));
    ExpectTraces("Entering GetTimestampForDocumentHandle(00001a2b)",
                 "GetTimestampForDocumentHandle(00001a2b) returning 0x23456789");
}

TEST_F(DocumentRegistryTraces, PrintsTheLow32BitsOfAHandle)
{
    SetFilePathForDocumentHandle(Document(0x123456789A), "/a.ai");
    EXPECT_TRUE(HasTrace("Entering SetFilePathForDocumentHandle(3456789a, '/a.ai')"));
}

TEST_F(DocumentRegistryTraces, SearchPrintsThePathUnchanged)
{
    SetTemplatePathForDocumentHandle(Document(0x1A2B), "/t.ait");
    ClearTraces();
    EXPECT_EQ(Document(0x1A2B), GetDocumentHandleForTemplatePath("/T.AIT"));
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/Other.ait"));
    EXPECT_EQ((std::vector<std::string>{
                  "GetDocumentHandleForTemplatePath('/T.AIT') returning 00001a2b",
                  "GetDocumentHandleForTemplatePath('/Other.ait') returning 00000000"}),
              TraceTexts());
}

TEST_F(DocumentRegistryTraces, ForgettingPrintsTheNumberOfEntries)
{
    SetFilePathForDocumentHandle(Document(0x1A2B), "/a.ai");
    ClearTraces();
    ForgetAboutDocumentHandle(Document(0x1A2B));
    ForgetAboutDocumentHandle(Document(0x1A2B));
    ASSERT_EQ(
        (std::vector<std::string>{"ForgetAboutDocumentHandle(00001a2b) erased 1 map entries.",
                                  "ForgetAboutDocumentHandle(00001a2b) erased 0 map entries."}),
        TraceTexts());
    EXPECT_EQ(0, Traces()[0].indentChange);
    EXPECT_EQ(0, Traces()[1].indentChange);
}

}  // namespace
