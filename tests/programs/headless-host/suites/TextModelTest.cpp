#include "ArtTypes.h"
#include "HostFixture.h"
#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"

using namespace ATE;

// A document with the text frames [A A B], [] and [C] (fonts of runs), and the placed files p and
// q.
class TextModel : public HostFixture {
protected:
    TextModel()
    {
        AddFrame({"A", "A", "B"});
        AddFrame({});
        AddFrame({"C"});
        content.document.linkedFiles = {"/p.png", "/q.png"};
        document = host->AddDocument(content.document, "/folder/name.pdf");
        for (const headless::SuiteRow& row : headless::kSuiteRows) {
            (void)Acquire<char>(row.name, row.version);
        }
    }
    ~TextModel() override { EXPECT_THAT(host->violations.Lines(), testing::IsEmpty()); }

    AIArtHandle GetArt(size_t index) const
    {
        return static_cast<AIArtHandle>(document->art[index]);
    }

    std::string GetName(_Font* font) const
    {
        AIFontKey key = nullptr;
        char name[256] = {};
        EXPECT_EQ(kHostSuccess, headless::kFontsTable.FontKeyFromFontRef(font, &key));
        EXPECT_EQ(kHostSuccess, headless::kFontsTable.GetPostScriptFontName(key, name, 256));
        EXPECT_EQ(kHostSuccess, headless::kFontTable.Release(font));
        return name;
    }

    std::vector<std::string> WalkRuns(AIArtHandle art) const
    {
        std::vector<std::string> names;
        _TextRange* range = nullptr;
        _TextRunsIterator* iterator = nullptr;
        EXPECT_EQ(kHostSuccess, headless::kArtTextFrameTable.GetATETextRange(art, &range));
        EXPECT_EQ(kHostSuccess, headless::kTextRangeTable.GetTextRunsIterator(range, &iterator));
        bool more = false;
        while (headless::kTextRunsIteratorTable.IsNotDone(iterator, &more) == kHostSuccess &&
               more) {
            _TextRange* run = nullptr;
            _CharFeatures* features = nullptr;
            _Font* font = nullptr;
            bool assigned = false;
            EXPECT_EQ(kHostSuccess, headless::kTextRunsIteratorTable.Item(iterator, &run));
            EXPECT_EQ(kHostSuccess,
                      headless::kTextRangeTable.GetUniqueCharFeatures(run, &features));
            EXPECT_EQ(kHostSuccess,
                      headless::kCharFeaturesTable.GetFont(features, &assigned, &font));
            EXPECT_TRUE(assigned);
            names.push_back(GetName(font));
            EXPECT_EQ(kHostSuccess, headless::kCharFeaturesTable.Release(features));
            EXPECT_EQ(kHostSuccess, headless::kTextRangeTable.Release(run));
            EXPECT_EQ(kHostSuccess, headless::kTextRunsIteratorTable.Next(iterator));
        }
        EXPECT_EQ(kHostSuccess, headless::kTextRunsIteratorTable.Release(iterator));
        EXPECT_EQ(kHostSuccess, headless::kTextRangeTable.Release(range));
        return names;
    }

    headless::DocumentObject* document = nullptr;
};

TEST_F(TextModel, GivesTheRunsOfEachFrameInOrder)
{
    EXPECT_EQ((std::vector<std::string>{"A", "A", "B"}), WalkRuns(GetArt(0)));
    EXPECT_TRUE(WalkRuns(GetArt(1)).empty());
    EXPECT_EQ(std::vector<std::string>{"C"}, WalkRuns(GetArt(2)));
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, AMixedRangeHasTheNullFont)
{
    _TextRange* range = nullptr;
    _CharFeatures* features = nullptr;
    _Font* font = nullptr;
    bool assigned = true;
    ASSERT_EQ(kHostSuccess, headless::kArtTextFrameTable.GetATETextRange(GetArt(0), &range));
    ASSERT_EQ(kHostSuccess, headless::kTextRangeTable.GetUniqueCharFeatures(range, &features));
    ASSERT_EQ(kHostSuccess, headless::kCharFeaturesTable.GetFont(features, &assigned, &font));
    EXPECT_FALSE(assigned);
    EXPECT_TRUE(headless::kFontTable.IsNull(font));
    AIFontKey key = nullptr;
    EXPECT_NE(kHostSuccess, headless::kFontsTable.FontKeyFromFontRef(font, &key));
    _Font* again = nullptr;
    EXPECT_EQ(kHostSuccess, headless::kCharFeaturesTable.GetFont(features, nullptr, &again));
}

TEST_F(TextModel, TheInspectorListsTheFontsOfAllStories)
{
    _TextFrame* frame = nullptr;
    _Story* story = nullptr;
    _Stories* stories = nullptr;
    _TextRanges* ranges = nullptr;
    _CharInspector* inspector = nullptr;
    _ArrayFontRef* all = nullptr;
    int size = 0;
    ASSERT_EQ(kHostSuccess, headless::kArtTextFrameTable.GetATETextFrame(GetArt(0), &frame));
    ASSERT_EQ(kHostSuccess, headless::kTextFrameTable.GetStory(frame, &story));
    ASSERT_EQ(kHostSuccess, headless::kStoryTable.GetStories(story, &stories));
    ASSERT_EQ(kHostSuccess, headless::kStoriesTable.GetTextRanges(stories, &ranges));
    ASSERT_EQ(kHostSuccess, headless::kTextRangesTable.GetCharInspector(ranges, &inspector));
    ASSERT_EQ(kHostSuccess, headless::kCharInspectorTable.GetFont(inspector, &all));
    ASSERT_EQ(kHostSuccess, headless::kArrayFontRefTable.GetSize(all, &size));
    std::vector<std::string> names;
    for (int i = 0; i < size; ++i) {
        _Font* font = nullptr;
        ASSERT_EQ(kHostSuccess, headless::kArrayFontRefTable.Item(all, i, &font));
        names.push_back(GetName(font));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"A", "B", "C"}));
}

TEST_F(TextModel, MatchesArtByTypeInPaintOrder)
{
    AIMatchingArtSpec frames(kTextFrameArt, 0, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    ASSERT_EQ(kHostSuccess,
              headless::kMatchingArtTable.GetMatchingArt(&frames, 1, &matches, &count));
    ASSERT_EQ(3, count);
    EXPECT_EQ((*matches)[0], GetArt(0));
    EXPECT_EQ((*matches)[2], GetArt(2));
    EXPECT_EQ(kHostSuccess,
              headless::kMdMemoryTable.MdMemoryDisposeHandle(reinterpret_cast<void**>(matches)));
    AIMatchingArtSpec none(3, 0, 0);
    ASSERT_EQ(kHostSuccess, headless::kMatchingArtTable.GetMatchingArt(&none, 1, &matches, &count));
    EXPECT_EQ(nullptr, matches);
    EXPECT_EQ(0, count);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, NoArtMatchesARequiredAttribute)
{
    AIMatchingArtSpec locked(kTextFrameArt, 2, 2);
    AIMatchingArtSpec unlocked(kTextFrameArt, 2, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = -1;
    ASSERT_EQ(kHostSuccess,
              headless::kMatchingArtTable.GetMatchingArt(&locked, 1, &matches, &count));
    EXPECT_EQ(0, count);
    ASSERT_EQ(kHostSuccess,
              headless::kMatchingArtTable.GetMatchingArt(&unlocked, 1, &matches, &count));
    EXPECT_EQ(3, count);
}

TEST_F(TextModel, StringsKeepZeroBytesAndAreReadIntoABlock)
{
    void* string = nullptr;
    auto& wrapper = reinterpret_cast<ai::UnicodeString&>(string);
    struct {
        unsigned long count;
        char* buffer;
    } fields = {0, nullptr};
    auto& buffer = reinterpret_cast<ai::UnicodeString::Buffer&>(fields);
    unsigned long count = 99;
    const auto& strings = headless::kUnicodeStringTable;
    ASSERT_EQ(kHostSuccess, strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count));
    EXPECT_EQ(0U, count) << "the null string is empty";
    EXPECT_EQ(nullptr, fields.buffer);
    ASSERT_EQ(kHostSuccess, strings.Initialize(&wrapper, "a\0b", 3, kAIUTF8CharacterEncoding));
    ASSERT_EQ(kHostSuccess, strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count));
    EXPECT_EQ(std::string(fields.buffer, count), std::string("a\0b", 3));
    EXPECT_EQ(kHostSuccess, headless::kBlocksTable.FreeBlock(fields.buffer));
    ASSERT_EQ(kHostSuccess, strings.Destroy(&wrapper));
    EXPECT_EQ(nullptr, string);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, GivesThePathsOfTheDocumentAndOfPlacedFiles)
{
    void* path = nullptr;
    void* text = nullptr;
    auto& file = reinterpret_cast<ai::FilePath&>(path);
    auto& string = reinterpret_cast<ai::UnicodeString&>(text);
    ASSERT_EQ(kHostSuccess, headless::kDocumentTable.GetDocumentFileSpecification(file));
    ASSERT_EQ(kHostSuccess, headless::kFilePathTable.GetFileName(file, false, string));
    EXPECT_EQ("name.pdf", host->handles.Peek<headless::StringObject>(text)->text);
    ASSERT_EQ(kHostSuccess, headless::kFilePathTable.GetFullPath(file, false, string));
    EXPECT_EQ("/folder/name.pdf", host->handles.Peek<headless::StringObject>(text)->text);
    ASSERT_EQ(kHostSuccess, headless::kPlacedTable.GetPlacedFilePathFromArt(GetArt(4), string));
    EXPECT_EQ("/q.png", host->handles.Peek<headless::StringObject>(text)->text);
    EXPECT_EQ(kHostSuccess, headless::kUnicodeStringTable.Destroy(&string));
    EXPECT_EQ(kHostSuccess, headless::kFilePathTable.DisposeFilePath(&file));
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, WithoutADocumentTheDocumentOperationsFail)
{
    host->RemoveDocument(document);
    _t_AIDocument* current = nullptr;
    bool modified = false;
    EXPECT_NE(kHostSuccess, headless::kDocumentTable.GetDocument(&current));
    EXPECT_NE(kHostSuccess, headless::kDocumentTable.GetDocumentModified(&modified));
    EXPECT_EQ(nullptr, current);
}

TEST_F(TextModel, AWalkThatTakesTooLongEnds)
{
    double now = 1000;
    int told = 0;
    host->walkLimit.clock = [&now] { return now; };
    host->walkLimit.sink = [&](const headless::DocumentObject& one) {
        EXPECT_EQ(document, &one);
        ++told;
    };
    host->walkLimit.BeginMessage();
    EXPECT_EQ(std::vector<std::string>{"C"}, WalkRuns(GetArt(2)));
    now += headless::TextWalkLimit::kSeconds + 1;  // between two messages
    host->walkLimit.BeginMessage();
    _TextRange* range = nullptr;
    EXPECT_EQ(kHostSuccess, headless::kArtTextFrameTable.GetATETextRange(GetArt(0), &range));
    _TextRunsIterator* iterator = nullptr;
    EXPECT_EQ(kHostSuccess, headless::kTextRangeTable.GetTextRunsIterator(range, &iterator));
    now += headless::TextWalkLimit::kSeconds / 2;
    _TextRange* run = nullptr;
    EXPECT_EQ(kHostSuccess, headless::kTextRunsIteratorTable.Item(iterator, &run));
    now += headless::TextWalkLimit::kSeconds / 2 + 1;
    _TextRange* none = nullptr;
    EXPECT_EQ(headless::kHostTakesTooLong, headless::kTextRunsIteratorTable.Item(iterator, &none));
    EXPECT_EQ(headless::kHostTakesTooLong,
              headless::kArtTextFrameTable.GetATETextRange(GetArt(2), &none));
    EXPECT_EQ(nullptr, none);
    EXPECT_TRUE(document->tookTooLong);
    EXPECT_EQ(1, told);
    for (_TextRange* const each : {range, run}) {
        EXPECT_EQ(kHostSuccess, headless::kTextRangeTable.Release(each));
    }
    EXPECT_EQ(kHostSuccess, headless::kTextRunsIteratorTable.Release(iterator));
}
