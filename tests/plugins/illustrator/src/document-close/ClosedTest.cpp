#include "CloseFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Closed : public CloseFixture {};

TEST_F(Closed, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentClosedNotifier(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Closed, ReportsNothingIfDisabledAndWithoutTemplate)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    Record(document, ScratchFile("a.ai", "x"), 1, kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(Closed, ClosesAnUnchangedFileWithEmptyUsage)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    Record(document, path, ModificationTime(path), kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(Closed, SavesAndClosesANewerFileWithTheStoredUsage)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    Record(document, path, ModificationTime(path) - 1, kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored)));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(Closed, SavesAndClosesANewerFileWithEmptyUsageToo)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, ModificationTime(path) - 1, "");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, ""), Close(path, "")));
}

TEST_F(Closed, DoesNotSaveAnOlderFile)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, ModificationTime(path) + 1, kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(Closed, IgnoresFractionsOfASecond)
{
    const std::string path = ScratchFile("a.ai", "x");
    const long time = 1500000000;
    const timespec times[2] = {{time, 999999999}, {time, 999999999}};
    ASSERT_EQ(0, utimensat(AT_FDCWD, path.c_str(), times, 0));
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, time, kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(Closed, DoesNotSaveADeletedFile)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, 0, kStored);
    ASSERT_EQ(0, std::remove(path.c_str()));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(Closed, UsesAPathWithASlash)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    AddDocument("/other.ai", {"B"});
    Record(document, path, ModificationTime(path), kStored);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
}

TEST_F(Closed, UsesAPathWithABackslash)
{
    _t_AIDocument* const document = AddDocument("a");
    AddDocument("/other.ai", {"B"});
    Record(document, "C:\\a.ai", 7, kStored);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("C:\\a.ai", "")));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
}

TEST_F(Closed, DoesNotScanADocumentWithAPath)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    AddDocument("/other.ai", {"B"});
    Record(document, path, 1, kStored);
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_EQ(0U, Scans());
}

TEST_F(Closed, IgnoresTheStatusesOfPluginCore)
{
    const std::string path = ScratchFile("a.ai", "x");
    core->statuses["PluginIsEnabled"] = 9;
    core->statuses["HandleSaveDocument"] = 9;
    core->statuses["HandleCloseDocument"] = 9;
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, 1, kStored, "/t.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored),
                                         Close("/t.ait", kStored)));
}

TEST_F(Closed, ClosesTheDocumentOfTheMessageAndNotTheCurrentOne)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    _t_AIDocument* const other = AddDocument("/other.ai", {"B"});
    Record(document, path, 1, kStored);
    Record(other, "/other.ai", 1, "other usage");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored)));
    EXPECT_FALSE(HasTrace(Erased(other)));
    EXPECT_EQ("other usage", GetFontUsageForDocumentHandle(other));
}

TEST_F(Closed, ErasesTheRecord)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, 1, kStored, "/t.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_EQ("", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(0, GetTimestampForDocumentHandle(document));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(document));
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(document));
}

TEST_F(Closed, ErasesTheRecordAfterReportingToPluginCore)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, 1, kStored);
    bool erased = false;
    core->onCall["HandleCloseDocument"] = [&] { erased = HasTrace(Erased(document)); };
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_FALSE(erased);
    EXPECT_TRUE(HasTrace(Erased(document)));
}

}  // namespace
