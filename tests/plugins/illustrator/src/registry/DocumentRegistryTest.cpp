#include "RegistryFixture.h"

namespace {

typedef RegistryFixture DocumentRegistry;

TEST_F(DocumentRegistry, NewRecordIsEmpty)
{
    const DocumentData data = DocumentData();
    EXPECT_EQ("", data.filePath);
    EXPECT_EQ(0, data.timestamp);
    EXPECT_EQ("", data.fontUsage);
    EXPECT_EQ("", data.templatePath);
}

TEST_F(DocumentRegistry, StoresTheFourFieldsSeparately)
{
    _t_AIDocument* const document = Document(0x10);
    SetFilePathForDocumentHandle(document, "/a.ai");
    SetTimestampForDocumentHandle(document, 5000000000);
    SetFontUsageForDocumentHandle(document, "{}");
    SetTemplatePathForDocumentHandle(document, "/t.ait");
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(5000000000, GetTimestampForDocumentHandle(document));
    EXPECT_EQ("{}", GetFontUsageForDocumentHandle(document));
    EXPECT_EQ("/t.ait", GetTemplatePathForDocumentHandle(document));
}

TEST_F(DocumentRegistry, SetterReplacesTheValue)
{
    _t_AIDocument* const document = Document(0x10);
    SetFilePathForDocumentHandle(document, "/a.ai");
    SetFilePathForDocumentHandle(document, "/b.ai");
    EXPECT_EQ("/b.ai", GetFilePathForDocumentHandle(document));
}

TEST_F(DocumentRegistry, StoresDocumentsSeparately)
{
    SetFilePathForDocumentHandle(Document(0x10), "/a.ai");
    SetFilePathForDocumentHandle(Document(0x20), "/b.ai");
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(Document(0x10)));
    EXPECT_EQ("/b.ai", GetFilePathForDocumentHandle(Document(0x20)));
}

TEST_F(DocumentRegistry, GetterReturnsACopy)
{
    _t_AIDocument* const document = Document(0x10);
    SetFilePathForDocumentHandle(document, "/a.ai");
    std::string path = GetFilePathForDocumentHandle(document);
    path += "x";
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(document));
}

TEST_F(DocumentRegistry, EachGetterCreatesARecordForAnUnknownHandle)
{
    EXPECT_EQ("", GetFilePathForDocumentHandle(Document(0x10)));
    EXPECT_EQ(0, GetTimestampForDocumentHandle(Document(0x20)));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(Document(0x30)));
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(Document(0x40)));
    for (const std::uintptr_t number : {0x10, 0x20, 0x30, 0x40}) {
        ClearTraces();
        ForgetAboutDocumentHandle(Document(number));
        EXPECT_EQ(1U, Traces().size());
        EXPECT_NE(std::string::npos, Traces()[0].text.find("erased 1 map entries.")) << number;
    }
}

TEST_F(DocumentRegistry, StoresARecordForTheNullHandle)
{
    SetFilePathForDocumentHandle(nullptr, "/a/b.ai");
    EXPECT_EQ("/a/b.ai", GetFilePathForDocumentHandle(nullptr));
    ForgetAboutDocumentHandle(nullptr);
    EXPECT_EQ("", GetFilePathForDocumentHandle(nullptr));
    ClearTraces();
    ForgetAboutDocumentHandle(nullptr);
    EXPECT_TRUE(HasTrace("ForgetAboutDocumentHandle(00000000) erased 1 map entries."));
}

TEST_F(DocumentRegistry, OverwritesThePathOfTheNullHandle)
{
    SetFilePathForDocumentHandle(nullptr, "/a.ai");
    SetFilePathForDocumentHandle(nullptr, "/b.ai");
    EXPECT_EQ("/b.ai", GetFilePathForDocumentHandle(nullptr));
}

TEST_F(DocumentRegistry, ForgetsAllFieldsOfOneDocument)
{
    SetFilePathForDocumentHandle(Document(0x10), "/a.ai");
    SetTimestampForDocumentHandle(Document(0x10), 7);
    SetFontUsageForDocumentHandle(Document(0x10), "{}");
    SetTemplatePathForDocumentHandle(Document(0x10), "/t.ait");
    SetFilePathForDocumentHandle(Document(0x20), "/b.ai");
    ForgetAboutDocumentHandle(Document(0x10));
    EXPECT_EQ("", GetFilePathForDocumentHandle(Document(0x10)));
    EXPECT_EQ(0, GetTimestampForDocumentHandle(Document(0x10)));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(Document(0x10)));
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(Document(0x10)));
    EXPECT_EQ("/b.ai", GetFilePathForDocumentHandle(Document(0x20)));
}

TEST_F(DocumentRegistry, FindsATemplateCaseInsensitively)
{
    SetTemplatePathForDocumentHandle(Document(0x10), "/templates/CARD.AIT");
    EXPECT_EQ(Document(0x10), GetDocumentHandleForTemplatePath("/Templates/Card.ait"));
}

TEST_F(DocumentRegistry, FindsNoTemplateThatDiffersOtherwise)
{
    SetTemplatePathForDocumentHandle(Document(0x10), "/Templates/Caf\xC3\xA9.ait");
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/Templates/Caf\xC3\xA9.ait/"));
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/Templates/Cafe\xCC\x81.ait"));
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/Templates/CAF\xC3\x89.AIT"));
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/Templates/Caf"));
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("\\Templates\\Caf\xC3\xA9.ait"));
    EXPECT_EQ(Document(0x10), GetDocumentHandleForTemplatePath("/Templates/Caf\xC3\xA9.ait"));
}

TEST_F(DocumentRegistry, ComparesOnlyTheTemplatePath)
{
    SetFilePathForDocumentHandle(Document(0x10), "/t.ait");
    SetFontUsageForDocumentHandle(Document(0x10), "/t.ait");
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/t.ait"));
}

TEST_F(DocumentRegistry, FindsTheLowestHandle)
{
    SetTemplatePathForDocumentHandle(Document(0x20), "/t.ait");
    SetTemplatePathForDocumentHandle(Document(0x10), "/t.ait");
    SetTemplatePathForDocumentHandle(Document(0x30), "/t.ait");
    EXPECT_EQ(Document(0x10), GetDocumentHandleForTemplatePath("/t.ait"));
    ForgetAboutDocumentHandle(Document(0x10));
    EXPECT_EQ(Document(0x20), GetDocumentHandleForTemplatePath("/t.ait"));
}

TEST_F(DocumentRegistry, ReturnsNullForAMatchUnderTheNullHandle)
{
    SetTemplatePathForDocumentHandle(nullptr, "/t.ait");
    SetTemplatePathForDocumentHandle(Document(0x10), "/t.ait");
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/t.ait"));
}

TEST_F(DocumentRegistry, FindsTheFirstDocumentWithoutATemplateForAnEmptyPath)
{
    SetTemplatePathForDocumentHandle(Document(0x10), "/t.ait");
    SetFilePathForDocumentHandle(Document(0x20), "/b.ai");
    SetFilePathForDocumentHandle(Document(0x30), "/c.ai");
    EXPECT_EQ(Document(0x20), GetDocumentHandleForTemplatePath(""));
}

TEST_F(DocumentRegistry, SearchCreatesNoRecords)
{
    EXPECT_EQ(nullptr, GetDocumentHandleForTemplatePath("/t.ait"));
    ClearTraces();
    ForgetAboutDocumentHandle(nullptr);
    EXPECT_TRUE(HasTrace("ForgetAboutDocumentHandle(00000000) erased 0 map entries."));
}

TEST_F(DocumentRegistry, SearchDoesNotChangeTheStoredPath)
{
    SetTemplatePathForDocumentHandle(Document(0x10), "/T.AIT");
    const std::string path = "/t.Ait";
    EXPECT_EQ(Document(0x10), GetDocumentHandleForTemplatePath(path));
    EXPECT_EQ("/T.AIT", GetTemplatePathForDocumentHandle(Document(0x10)));
    EXPECT_EQ("/t.Ait", path);
}

}  // namespace
