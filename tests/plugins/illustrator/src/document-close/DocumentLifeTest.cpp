#include "CloseTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Documents from their opening to their close, by the host's messages alone.
class DocumentLife : public CloseTest {
protected:
    _t_AIDocument* Open(const std::string& path, const std::vector<std::string>& fonts)
    {
        EXPECT_EQ(SendCheck(path), -1);
        _t_AIDocument* const document = AddDocument(path, fonts);
        EXPECT_EQ(SendNotifier(kOpened, document), 0);
        return document;
    }
    _t_AIDocument* OpenTemplate(const std::string& path, const std::string& name)
    {
        EXPECT_EQ(SendCheck(path), -1);
        _t_AIDocument* const document = AddDocument(name, {"A"});
        EXPECT_EQ(SendNotifier(kOpened, document), 0);
        return document;
    }
    void SendSaved()
    {
        EXPECT_EQ(SendNotifier(kAfterSave), 0);
        EXPECT_EQ(SendNotifier(kWritten), 0);
    }
};

TEST_F(DocumentLife, OpenedAndClosed)
{
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(DocumentLife, ChangedSavedAndClosed)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SetFonts({"A", "B"});
    Forget();
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    SetModificationTime(path, 1500000001);
    Forget();
    SendSaved();
    const std::string saved = Save(path, Usage({"A", "B"}));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, saved, kIsEnabled, saved));
    // The save leaves the time of the open, so the close sends the usage once more.
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, saved, Close(path, Usage({"A", "B"}))));
}

TEST_F(DocumentLife, SavedWithinTheSecondOfItsOpening)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SendSaved();
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(path, "")));
}

TEST_F(DocumentLife, ClosedInTheBackgroundWithTheUsageOfItsLastChange)
{
    const std::string path = ScratchFile("a.ai", "x");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    SetFonts({"B"});
    SetModificationTime(path, 1500000001);
    AddDocument("/other.ai", {"C"});
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(path, Usage({"A"})), Close(path, Usage({"A"}))));
}

TEST_F(DocumentLife, NewSavedAndClosed)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(SendNotifier(kNew, document), 0);
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    const std::string path = ScratchFile("a.ai", "x");
    Current().path = path;
    Forget();
    SendSaved();
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, Usage({"A"})), kIsEnabled,
                                         Save(path, Usage({"A"}))));
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "");
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    AddDocument("/other.ai", {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Activate("", Usage({"B"}))));
}

TEST_F(DocumentLife, FromATemplateChangedSavedAndChangedAgain)
{
    _t_AIDocument* const document = OpenTemplate("/t/letter.ait", "Untitled-1");
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "Untitled-1");
    const std::string path = ScratchFile("a.ai", "x");
    Current().path = path;
    SendSaved();
    EXPECT_EQ(GetFilePathForDocumentHandle(document), "Untitled-1");
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(document), path);
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document), 0);
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
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    AddDocument(other, {"B"});
    EXPECT_EQ(SendClosed(document, 1), 0);
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(other, Usage({"A"})), Close(other, Usage({"A"})),
                            Close("/t/letter.ait", Usage({"A"}))));
}

TEST_F(DocumentLife, Version8FileIsSavedAtItsCloseAllTheSame)
{
    const std::string path = ScratchFile("a.eps", "%!PS\n%%Creator: Adobe Illustrator(R) 8.0\n");
    SetModificationTime(path, 1500000000);
    _t_AIDocument* const document = Open(path, {"A"});
    SetModificationTime(path, 1500000001);
    Forget();
    SendSaved();
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, kIsEnabled));
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Save(path, Usage({"A"})), Close(path, Usage({"A"}))));
}

TEST_F(DocumentLife, DisabledThroughout)
{
    core->enabled = false;
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = Open(path, {"A"});
    EXPECT_EQ(SendNotifier(kChanged, document), 0);
    SendSaved();
    EXPECT_EQ(SendNotifier(kAboutToClose, document), 0);
    EXPECT_THAT(core->CalledNames(), ::testing::Each("PluginIsEnabled"));
    EXPECT_EQ(SendClosed(document), 0);
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

}  // namespace
