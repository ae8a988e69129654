#include "CloseFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ClosedFromTemplate : public CloseFixture {
protected:
    std::string Searched(const std::string& path, const void* found)
    {
        return "GetDocumentHandleForTemplatePath('" + path + "') returning " + HandleText(found);
    }
};

TEST_F(ClosedFromTemplate, ClosesTheTemplateOfAnUnsavedDocument)
{
    _t_AIDocument* const document = AddDocument("Untitled-1", {"A"});
    Record(document, "Untitled-1", 0, kStored, "/t/letter.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Close("Untitled-1", ""), Close("/t/letter.ait", "")));
}

TEST_F(ClosedFromTemplate, ClosesTheTemplateWithEmptyUsageEvenIfDisabled)
{
    core->enabled = false;
    const std::string path = ScratchFile("a.ai", "x");
    _t_AIDocument* const document = AddDocument(path, {"A"});
    Record(document, path, 1, kStored, "/t/letter.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("/t/letter.ait", "")));
}

TEST_F(ClosedFromTemplate, KeepsTheTemplateOfAnotherDocumentIfDisabled)
{
    core->enabled = false;
    _t_AIDocument* const document = AddDocument("Untitled-1");
    Record(document, "Untitled-1", 0, kStored, "/t/letter.ait");
    Record(AddDocument("Untitled-2"), "Untitled-2", 0, kStored, "/t/letter.ait");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled));
    EXPECT_TRUE(HasTrace(Erased(document)));
}

TEST_F(ClosedFromTemplate, ClosesTheTemplateWithTheUsageOfASavedDocument)
{
    const std::string path = ScratchFile("saved.ai", "x");
    _t_AIDocument* const document = AddDocument(path);
    Record(document, path, 0, kStored, "/t/letter.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Save(path, kStored), Close(path, kStored),
                                         Close("/t/letter.ait", kStored)));
}

class ClosedTwoOfATemplate : public ClosedFromTemplate,
                             public ::testing::WithParamInterface<int> {};

TEST_P(ClosedTwoOfATemplate, ClosesTheTemplateWithTheSecondDocument)
{
    Record(AddDocument("Untitled-1"), "Untitled-1", 0, kStored, "/t/letter.ait");
    Record(AddDocument("Untitled-2"), "Untitled-2", 0, kStored, "/t/letter.ait");
    _t_AIDocument* const first = host.DocumentHandle(GetParam());
    _t_AIDocument* const second = host.DocumentHandle(1 - GetParam());
    const std::string firstName = "Untitled-" + std::to_string(GetParam() + 1);
    const std::string secondName = "Untitled-" + std::to_string(2 - GetParam());
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 0, 4711);
    EXPECT_EQ(0, SendClosed(first, 1 - GetParam()));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close(firstName, "")));
    EXPECT_TRUE(HasTrace(Searched("/t/letter.ait", second)));
    EXPECT_EQ(0, SendClosed(second));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Close(secondName, ""), Close("/t/letter.ait", "")));
    EXPECT_TRUE(HasTrace(Searched("/t/letter.ait", nullptr)));
}

INSTANTIATE_TEST_SUITE_P(Order, ClosedTwoOfATemplate, ::testing::Values(0, 1));

TEST_F(ClosedFromTemplate, SearchIgnoresCase)
{
    _t_AIDocument* const document = AddDocument("Untitled-1");
    Record(document, "/a.ai", 7, kStored, "/t/Letter.ait");
    Record(AddDocument("Untitled-2"), "/b.ai", 7, kStored, "/T/LETTER.AIT");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("/a.ai", "")));
}

TEST_F(ClosedFromTemplate, UsesTheTemplatePathOfTheDocumentClosedLast)
{
    _t_AIDocument* const document = AddDocument("Untitled-1");
    Record(document, "/a.ai", 7, kStored, "/t/Letter.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Close("/a.ai", ""), Close("/t/Letter.ait", "")));
}

TEST_F(ClosedFromTemplate, ForgetsTheDocumentBeforeTheSearch)
{
    _t_AIDocument* const document = AddDocument("Untitled-1");
    Record(document, "/a.ai", 7, kStored, "/t/letter.ait");
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_LT(IndexOf(Erased(document)), IndexOf(Searched("/t/letter.ait", nullptr)));
}

TEST_F(ClosedFromTemplate, IgnoresDocumentsOfAnotherTemplate)
{
    _t_AIDocument* const document = AddDocument("Untitled-1");
    Record(document, "/a.ai", 7, kStored, "/t/letter.ait");
    Record(AddDocument("Untitled-2"), "/b.ai", 7, kStored, "/t/card.ait");
    EXPECT_EQ(0, SendClosed(document, 1));
    EXPECT_THAT(core->calls,
                ElementsAre(kIsEnabled, Close("/a.ai", ""), Close("/t/letter.ait", "")));
}

TEST_F(ClosedFromTemplate, SearchesNothingWithoutATemplate)
{
    _t_AIDocument* const document = AddDocument("/a.ai");
    Record(document, "/a.ai", 7, kStored);
    EXPECT_EQ(0, SendClosed(document));
    EXPECT_FALSE(HasTraceBeginningWith("GetDocumentHandleForTemplatePath("));
    EXPECT_THAT(core->calls, ElementsAre(kIsEnabled, Close("/a.ai", "")));
}

}  // namespace
