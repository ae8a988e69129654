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
    ~TextModel() override { EXPECT_THAT(host->errors.Lines(), testing::IsEmpty()); }

    AIArtHandle GetArt(size_t index) const
    {
        return static_cast<AIArtHandle>(document->art[index]);
    }

    std::string GetName(_Font* font) const
    {
        AIFontKey key = nullptr;
        char name[256] = {};
        EXPECT_EQ(headless::kFontsTable.FontKeyFromFontRef(font, &key), kNoErr);
        EXPECT_EQ(headless::kFontsTable.GetPostScriptFontName(key, name, 256), kNoErr);
        EXPECT_EQ(headless::kFontTable.Release(font), kNoErr);
        return name;
    }

    std::vector<std::string> WalkRuns(AIArtHandle art) const
    {
        std::vector<std::string> names;
        _TextRange* range = nullptr;
        _TextRunsIterator* iterator = nullptr;
        EXPECT_EQ(headless::kArtTextFrameTable.GetATETextRange(art, &range), kNoErr);
        EXPECT_EQ(headless::kTextRangeTable.GetTextRunsIterator(range, &iterator), kNoErr);
        bool more = false;
        while (headless::kTextRunsIteratorTable.IsNotDone(iterator, &more) == kNoErr && more) {
            _TextRange* run = nullptr;
            _CharFeatures* features = nullptr;
            _Font* font = nullptr;
            bool assigned = false;
            EXPECT_EQ(headless::kTextRunsIteratorTable.Item(iterator, &run), kNoErr);
            EXPECT_EQ(headless::kTextRangeTable.GetUniqueCharFeatures(run, &features), kNoErr);
            EXPECT_EQ(headless::kCharFeaturesTable.GetFont(features, &assigned, &font), kNoErr);
            EXPECT_TRUE(assigned);
            names.push_back(GetName(font));
            EXPECT_EQ(headless::kCharFeaturesTable.Release(features), kNoErr);
            EXPECT_EQ(headless::kTextRangeTable.Release(run), kNoErr);
            EXPECT_EQ(headless::kTextRunsIteratorTable.Next(iterator), kNoErr);
        }
        EXPECT_EQ(headless::kTextRunsIteratorTable.Release(iterator), kNoErr);
        EXPECT_EQ(headless::kTextRangeTable.Release(range), kNoErr);
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
    ASSERT_EQ(headless::kArtTextFrameTable.GetATETextRange(GetArt(0), &range), kNoErr);
    ASSERT_EQ(headless::kTextRangeTable.GetUniqueCharFeatures(range, &features), kNoErr);
    ASSERT_EQ(headless::kCharFeaturesTable.GetFont(features, &assigned, &font), kNoErr);
    EXPECT_FALSE(assigned);
    EXPECT_TRUE(headless::kFontTable.IsNull(font));
    AIFontKey key = nullptr;
    EXPECT_NE(headless::kFontsTable.FontKeyFromFontRef(font, &key), kNoErr);
    _Font* again = nullptr;
    EXPECT_EQ(headless::kCharFeaturesTable.GetFont(features, nullptr, &again), kNoErr);
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
    ASSERT_EQ(headless::kArtTextFrameTable.GetATETextFrame(GetArt(0), &frame), kNoErr);
    ASSERT_EQ(headless::kTextFrameTable.GetStory(frame, &story), kNoErr);
    ASSERT_EQ(headless::kStoryTable.GetStories(story, &stories), kNoErr);
    ASSERT_EQ(headless::kStoriesTable.GetTextRanges(stories, &ranges), kNoErr);
    ASSERT_EQ(headless::kTextRangesTable.GetCharInspector(ranges, &inspector), kNoErr);
    ASSERT_EQ(headless::kCharInspectorTable.GetFont(inspector, &all), kNoErr);
    ASSERT_EQ(headless::kArrayFontRefTable.GetSize(all, &size), kNoErr);
    std::vector<std::string> names;
    for (int i = 0; i < size; ++i) {
        _Font* font = nullptr;
        ASSERT_EQ(headless::kArrayFontRefTable.Item(all, i, &font), kNoErr);
        names.push_back(GetName(font));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"A", "B", "C"}));
}

TEST_F(TextModel, MatchesArtByTypeInPaintOrder)
{
    AIMatchingArtSpec frames(kTextFrameArt, 0, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&frames, 1, &matches, &count), kNoErr);
    ASSERT_EQ(count, 3);
    EXPECT_EQ((*matches)[0], GetArt(0));
    EXPECT_EQ((*matches)[2], GetArt(2));
    EXPECT_EQ(headless::kMdMemoryTable.MdMemoryDisposeHandle(reinterpret_cast<void**>(matches)),
              kNoErr);
    AIMatchingArtSpec none(3, 0, 0);
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&none, 1, &matches, &count), kNoErr);
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
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&locked, 1, &matches, &count), kNoErr);
    EXPECT_EQ(count, 0);
    ASSERT_EQ(headless::kMatchingArtTable.GetMatchingArt(&unlocked, 1, &matches, &count), kNoErr);
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
    ASSERT_EQ(strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count), kNoErr);
    EXPECT_EQ(count, 0u) << "the null string is empty";
    EXPECT_EQ(fields.buffer, nullptr);
    ASSERT_EQ(strings.Initialize(&wrapper, "a\0b", 3, kAIUTF8CharacterEncoding), kNoErr);
    ASSERT_EQ(strings.GetAs(wrapper, kAIUTF8CharacterEncoding, buffer, &count), kNoErr);
    EXPECT_EQ(std::string(fields.buffer, count), std::string("a\0b", 3));
    EXPECT_EQ(headless::kBlocksTable.FreeBlock(fields.buffer), kNoErr);
    ASSERT_EQ(strings.Destroy(&wrapper), kNoErr);
    EXPECT_EQ(string, nullptr);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, ThePathOfTheCurrentDocument)
{
    void* path = nullptr;
    void* text = nullptr;
    auto& file = reinterpret_cast<ai::FilePath&>(path);
    auto& string = reinterpret_cast<ai::UnicodeString&>(text);
    ASSERT_EQ(headless::kDocumentTable.GetDocumentFileSpecification(file), kNoErr);
    ASSERT_EQ(headless::kFilePathTable.GetFileName(file, false, string), kNoErr);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "name.pdf");
    ASSERT_EQ(headless::kFilePathTable.GetFullPath(file, false, string), kNoErr);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "/folder/name.pdf");
    ASSERT_EQ(headless::kPlacedTable.GetPlacedFilePathFromArt(GetArt(4), string), kNoErr);
    EXPECT_EQ(host->handles.Peek<headless::StringObject>(text)->text, "/q.png");
    EXPECT_EQ(headless::kUnicodeStringTable.Destroy(&string), kNoErr);
    EXPECT_EQ(headless::kFilePathTable.DisposeFilePath(&file), kNoErr);
    EXPECT_THAT(host->handles.ListLeaks(), testing::IsEmpty());
}

TEST_F(TextModel, WithoutADocumentTheDocumentOperationsFail)
{
    host->RemoveDocument(document);
    _t_AIDocument* current = nullptr;
    bool modified = false;
    EXPECT_NE(headless::kDocumentTable.GetDocument(&current), kNoErr);
    EXPECT_NE(headless::kDocumentTable.GetDocumentModified(&modified), kNoErr);
    EXPECT_EQ(current, nullptr);
}
