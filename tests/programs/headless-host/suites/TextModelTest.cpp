#include "ArtTypes.h"
#include "HostFixture.h"

using namespace ATE;

// Walks the text of a document with frames [A A B], [] and [C], and the placed files p and q.
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
        EXPECT_EQ(headless::kFontsTable.FontKeyFromFontRef(font, &key), kHostSuccess);
        EXPECT_EQ(headless::kFontsTable.GetPostScriptFontName(key, name, 256), kHostSuccess);
        EXPECT_EQ(headless::kFontTable.Release(font), kHostSuccess);
        return name;
    }

    std::vector<std::string> WalkRuns(AIArtHandle art) const
    {
        std::vector<std::string> names;
        _TextRange* range = nullptr;
        _TextRunsIterator* iterator = nullptr;
        EXPECT_EQ(headless::kArtTextFrameTable.GetATETextRange(art, &range), kHostSuccess);
        EXPECT_EQ(headless::kTextRangeTable.GetTextRunsIterator(range, &iterator), kHostSuccess);
        bool more = false;
        while (headless::kTextRunsIteratorTable.IsNotDone(iterator, &more) == kHostSuccess &&
               more) {
            _TextRange* run = nullptr;
            _CharFeatures* features = nullptr;
            _Font* font = nullptr;
            bool assigned = false;
            EXPECT_EQ(headless::kTextRunsIteratorTable.Item(iterator, &run), kHostSuccess);
            EXPECT_EQ(headless::kTextRangeTable.GetUniqueCharFeatures(run, &features),
                      kHostSuccess);
            EXPECT_EQ(headless::kCharFeaturesTable.GetFont(features, &assigned, &font),
                      kHostSuccess);
            EXPECT_TRUE(assigned);
            names.push_back(GetName(font));
            EXPECT_EQ(headless::kCharFeaturesTable.Release(features), kHostSuccess);
            EXPECT_EQ(headless::kTextRangeTable.Release(run), kHostSuccess);
            EXPECT_EQ(headless::kTextRunsIteratorTable.Next(iterator), kHostSuccess);
        }
        EXPECT_EQ(headless::kTextRunsIteratorTable.Release(iterator), kHostSuccess);
        EXPECT_EQ(headless::kTextRangeTable.Release(range), kHostSuccess);
        return names;
    }

    headless::DocumentObject* document = nullptr;
};

TEST_F(TextModel, GivesTheRunsOfEachFrameInOrder)
{
    EXPECT_EQ(WalkRuns(GetArt(0)), (std::vector<std::string>{"A", "A", "B"}));
    EXPECT_TRUE(WalkRuns(GetArt(1)).empty());
    EXPECT_EQ(WalkRuns(GetArt(2)), std::vector<std::string>{"C"});
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, AMixedRangeHasNoFontInCommon)
{
    _TextRange* range = nullptr;
    _CharFeatures* features = nullptr;
    _Font* font = nullptr;
    bool assigned = true;
    ASSERT_EQ(headless::kArtTextFrameTable.GetATETextRange(GetArt(0), &range), kHostSuccess);
    ASSERT_EQ(headless::kTextRangeTable.GetUniqueCharFeatures(range, &features), kHostSuccess);
    ASSERT_EQ(headless::kCharFeaturesTable.GetFont(features, &assigned, &font), kHostSuccess);
    EXPECT_FALSE(assigned);
    EXPECT_TRUE(headless::kFontTable.IsNull(font));
    AIFontKey key = nullptr;
    EXPECT_NE(headless::kFontsTable.FontKeyFromFontRef(font, &key), kHostSuccess);
    _Font* again = nullptr;
    EXPECT_EQ(headless::kCharFeaturesTable.GetFont(features, nullptr, &again), kHostSuccess);
}

TEST_F(TextModel, TheInspectorHasTheFontsOfAllStories)
{
    _TextFrame* frame = nullptr;
    _Story* story = nullptr;
    _Stories* stories = nullptr;
    _TextRanges* ranges = nullptr;
    _CharInspector* inspector = nullptr;
    _ArrayFontRef* all = nullptr;
    int size = 0;
    ASSERT_EQ(headless::kArtTextFrameTable.GetATETextFrame(GetArt(0), &frame), kHostSuccess);
    ASSERT_EQ(headless::kTextFrameTable.GetStory(frame, &story), kHostSuccess);
    ASSERT_EQ(headless::kStoryTable.GetStories(story, &stories), kHostSuccess);
    ASSERT_EQ(headless::kStoriesTable.GetTextRanges(stories, &ranges), kHostSuccess);
    ASSERT_EQ(headless::kTextRangesTable.GetCharInspector(ranges, &inspector), kHostSuccess);
    ASSERT_EQ(headless::kCharInspectorTable.GetFont(inspector, &all), kHostSuccess);
    ASSERT_EQ(headless::kArrayFontRefTable.GetSize(all, &size), kHostSuccess);
    std::vector<std::string> names;
    for (int i = 0; i < size; ++i) {
        _Font* font = nullptr;
        ASSERT_EQ(headless::kArrayFontRefTable.Item(all, i, &font), kHostSuccess);
        names.push_back(GetName(font));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"A", "B", "C"}));
}

TEST_F(TextModel, MatchesArtByTypeInPaintOrder)
{
    AIMatchingArtSpec frames(kTextFrameArt, 0, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&frames, 1, &matches, &count),
              kHostSuccess);
    ASSERT_EQ(count, 3);
    EXPECT_EQ((*matches)[0], GetArt(0));
    EXPECT_EQ((*matches)[2], GetArt(2));
    EXPECT_EQ(headless::kMdMemoryTable.MdMemoryDisposeHandle(reinterpret_cast<void**>(matches)),
              kHostSuccess);
    AIMatchingArtSpec none(3, 0, 0);
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&none, 1, &matches, &count), kHostSuccess);
    EXPECT_EQ(matches, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, ArtWithAnAttributeThatIsAskedForIsNotThere)
{
    AIMatchingArtSpec locked(kTextFrameArt, 2, 2);
    AIMatchingArtSpec unlocked(kTextFrameArt, 2, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = -1;
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&locked, 1, &matches, &count),
              kHostSuccess);
    EXPECT_EQ(count, 0);
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&unlocked, 1, &matches, &count),
              kHostSuccess);
    EXPECT_EQ(count, 3);
}

TEST_F(TextModel, StringsKeepTheirZeroBytesAndComeInABlock)
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
    ASSERT_EQ(strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count), kHostSuccess);
    EXPECT_EQ(count, 0u) << "the null string is empty";
    EXPECT_EQ(fields.buffer, nullptr);
    ASSERT_EQ(strings.Initialize(&wrapper, "a\0b", 3, kAIUTF8CharacterEncoding), kHostSuccess);
    ASSERT_EQ(strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count), kHostSuccess);
    EXPECT_EQ(std::string(fields.buffer, count), std::string("a\0b", 3));
    EXPECT_EQ(headless::kBlocksTable.FreeBlock(fields.buffer), kHostSuccess);
    ASSERT_EQ(strings.Destroy(&wrapper), kHostSuccess);
    EXPECT_EQ(string, nullptr);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, ThePathOfTheCurrentDocument)
{
    void* path = nullptr;
    void* text = nullptr;
    auto& file = reinterpret_cast<ai::FilePath&>(path);
    auto& string = reinterpret_cast<ai::UnicodeString&>(text);
    ASSERT_EQ(headless::kDocumentTable.GetDocumentFileSpecification(file), kHostSuccess);
    ASSERT_EQ(headless::kFilePathTable.GetFileName(file, false, string), kHostSuccess);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "name.pdf");
    ASSERT_EQ(headless::kFilePathTable.GetFullPath(file, false, string), kHostSuccess);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "/folder/name.pdf");
    ASSERT_EQ(headless::kPlacedTable.GetPlacedFilePathFromArt(GetArt(4), string), kHostSuccess);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "/q.png");
    EXPECT_EQ(headless::kUnicodeStringTable.Destroy(&string), kHostSuccess);
    EXPECT_EQ(headless::kFilePathTable.DisposeFilePath(&file), kHostSuccess);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, WithoutADocumentTheDocumentOperationsFail)
{
    host->RemoveDocument(document);
    _t_AIDocument* current = nullptr;
    bool modified = false;
    EXPECT_NE(headless::kDocumentTable.GetDocument(&current), kHostSuccess);
    EXPECT_NE(headless::kDocumentTable.GetDocumentModified(&modified), kHostSuccess);
    EXPECT_EQ(current, nullptr);
}
