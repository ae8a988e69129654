#include "CloseFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Sends all messages of a document from the open to the close.
class DocumentLife : public CloseFixture {
protected:
    _t_AIDocument* Open(const std::string& path, const std::vector<std::string>& fonts)
    {
        EXPECT_EQ(-1, SendCheck(path));
        _t_AIDocument* const document = AddDocument(path, fonts);
        EXPECT_EQ(0, SendNotifier(kOpened, document));
        return document;
    }
    _t_AIDocument* OpenTemplate(const std::string& path, const std::string& name)
    {
        EXPECT_EQ(-1, SendCheck(path));
        _t_AIDocument* const document = AddDocument(name, {"A"});
        EXPECT_EQ(0, SendNotifier(kOpened, document));
        return document;
    }
    void SendSaved()
    {
        EXPECT_EQ(0, SendNotifier(kAfterSave));
        EXPECT_EQ(0, SendNotifier(kWritten));
    }
};

TEST_F(DocumentLife, OpenedAndClosed)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(DocumentLife, ChangedSavedAndClosed)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SetFonts({"A", "B"});
    Forget();
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    SetModificationTime(path, 1500000001);
    Forget();
    SendSaved();
    const std::string saved = Save(path, Usage({"A", "B"}));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, saved, kIsEnabled, saved));
    // The save doesn't change the timestamp, so the close sends the usage again.
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, saved, Close(path, Usage({"A", "B"}))));
}

TEST_F(DocumentLife, SavedWithinTheSecondOfItsOpening)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SendSaved();
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(DocumentLife, ClosedInTheBackground)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    SetFonts({"B"});
    SetModificationTime(path, 1500000001);
    AddDocument("/other.ai", {"C"});
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(path, Usage({"A"})), Close(path, Usage({"A"}))));
}

TEST_F(DocumentLife, NewSavedAndClosed)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(0, SendNotifier(kNew, document));
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    const std::string path = ScratchFile("a.ai", "x");
    Current().path = path;
    Forget();
    SendSaved();
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"})), kIsEnabled,
                                         Save(path, Usage({"A"}))));
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    EXPECT_EQ("", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}))));
}

TEST_F(DocumentLife, FromATemplateChangedSavedAndChangedAgain)
{
    _t_AIDocument* const document = OpenTemplate("/t/letter.ait", "Untitled-1");
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    EXPECT_EQ("Untitled-1", GetFilePathForDocumentHandle(document));
    const std::string path = ScratchFile("a.ai", "x");
    Current().path = path;
    SendSaved();
    EXPECT_EQ("Untitled-1", GetFilePathForDocumentHandle(document));
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    EXPECT_EQ(path, GetFilePathForDocumentHandle(document));
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(path, Usage({"A"})), Close(path, Usage({"A"})),
                            Close("/t/letter.ait", Usage({"A"}))));
}

TEST_F(DocumentLife, FromATemplateSavedAndClosedBeforeAnyChange)
{
    const std::string other = ScratchFile("other.ai", "x");
    _t_AIDocument* const document = OpenTemplate("/t/letter.ait", "Untitled-1");
    Current().path = ScratchFile("a.ai", "x");
    SendSaved();
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    AddDocument(other, {"B"});
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(other, Usage({"A"})), Close(other, Usage({"A"})),
                            Close("/t/letter.ait", Usage({"A"}))));
}

TEST_F(DocumentLife, Version8FileIsSavedOnlyAtItsClose)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 8.0\n");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SetModificationTime(path, 1500000001);
    Forget();
    SendSaved();
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, kIsEnabled));
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(path, Usage({"A"})), Close(path, Usage({"A"}))));
}

TEST_F(DocumentLife, DisabledThroughout)
{
    core->enabled = false;
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(0, SendNotifier(kChanged, document));
    SendSaved();
    EXPECT_EQ(0, SendNotifier(kAboutToClose, document));
    EXPECT_THAT(core->CalledNames(), ::testing::Each("PluginIsEnabled"));
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

}  // namespace
