#include "ArtTypes.h"
#include "Suites.h"

namespace wrong {

namespace {

constexpr size_t kNameBytes = 256;

// Throws if the last call closed a document: its art and text are gone.
struct Guard {
    size_t closed = life.closedInside;
    void Check() const
    {
        if (closed != life.closedInside) throw Failure{kHostBadParameter};
    }
};

struct TextSuites {
    Suite<AITextFrameSuite> frames{"AI Text Frame Suite", 1004};
    Suite<ATE::TextRangeSuite> ranges{"ATE TextRange Suite", 1};
    Suite<ATE::TextRunsIteratorSuite> iterators{"ATE TextRunsIterator Suite", 1};
    Suite<ATE::CharFeaturesSuite> features{"ATE CharFeatures Suite", 102};
    Suite<ATE::FontSuite> fonts{"ATE Font Suite", 1};
    Suite<ATE::TextFrameSuite> engineFrames{"ATE TextFrame Suite", 101};
    Suite<ATE::StorySuite> stories{"ATE Story Suite", 1};
    Suite<AIFontSuite> names{"AI Font Suite", 1006};
    Guard guard;

    void Expect(const char* call, AIErr status) const
    {
        wrong::Expect(call, status);
        guard.Check();
    }
};

std::string ReadName(const TextSuites& suites, AIFontKey key)
{
    char name[kNameBytes] = "";
    suites.Expect("GetPostScriptFontName",
                  suites.names->GetPostScriptFontName(key, name, sizeof name));
    return name;
}

void ReadRun(const TextSuites& suites, ATE::_TextRange* run)
{
    Reference<ATE::CharFeaturesSuite, ATE::_CharFeatures> features(suites.features);
    suites.Expect("GetUniqueCharFeatures", suites.ranges->GetUniqueCharFeatures(run, &features));
    Reference<ATE::FontSuite, ATE::_Font> font(suites.fonts);
    suites.Expect("GetFont", suites.features->GetFont(features, nullptr, &font));
    AIFontKey key = nullptr;
    suites.Expect("FontKeyFromFontRef", suites.names->FontKeyFromFontRef(font, &key));
    life.frameFonts.push_back(ReadName(suites, key));
    if (life.frameFonts.back() != "Default-Regular") life.sawUnknown = true;
}

void ReadFrame(const TextSuites& suites, AIArtHandle art)
{
    life.frameFonts.clear();
    Reference<ATE::TextFrameSuite, ATE::_TextFrame> frame(suites.engineFrames);
    suites.Expect("GetATETextFrame", suites.frames->GetATETextFrame(art, &frame));
    Reference<ATE::StorySuite, ATE::_Story> story(suites.stories);
    suites.Expect("GetStory", suites.engineFrames->GetStory(frame, &story));
    Reference<ATE::TextRangeSuite, ATE::_TextRange> range(suites.ranges);
    suites.Expect("GetATETextRange", suites.frames->GetATETextRange(art, &range));
    Reference<ATE::TextRunsIteratorSuite, ATE::_TextRunsIterator> iterator(suites.iterators);
    suites.Expect("GetTextRunsIterator", suites.ranges->GetTextRunsIterator(range, &iterator));
    for (;;) {
        bool isNotDone = false;
        suites.Expect("IsNotDone", suites.iterators->IsNotDone(iterator, &isNotDone));
        if (!isNotDone) break;
        Reference<ATE::TextRangeSuite, ATE::_TextRange> run(suites.ranges);
        suites.Expect("Item", suites.iterators->Item(iterator, &run));
        ReadRun(suites, run);
        suites.Expect("Next", suites.iterators->Next(iterator));
    }
    Tell(Moment::kFrame);
}

class ArtSet {
public:
    explicit ArtSet(int16_t type)
    {
        Expect("NewArtSet", mSets->NewArtSet(&mSet));
        try {
            AIArtSpec spec(type, 0, 0);
            Expect("MatchingArtSet", mSets->MatchingArtSet(&spec, 1, mSet));
            Expect("CountArtSet", mSets->CountArtSet(mSet, &mCount));
        } catch (...) {
            Dispose();
            throw;
        }
    }
    ~ArtSet() { Dispose(); }
    ArtSet(const ArtSet&) = delete;
    ArtSet& operator=(const ArtSet&) = delete;

    int GetCount() const { return mCount; }
    AIArtHandle Get(int index) const
    {
        AIArtHandle art = nullptr;
        Expect("IndexArtSet", mSets->IndexArtSet(mSet, index, &art));
        return art;
    }

private:
    void Dispose() noexcept
    {
        GiveBack([this] { return mSets->DisposeArtSet(&mSet); });
    }

    const Suite<AIArtSetSuite> mSets{"AI Art Set Suite", 1009};
    AIArtSet mSet = nullptr;
    int mCount = 0;
};

void ReadPlaced(const Guard& guard)
{
    const Suite<AIPlacedSuite> suite("AI Placed Suite", 1009);
    const ArtSet placed(kPlacedArt);
    guard.Check();
    life.placed = static_cast<size_t>(placed.GetCount());
    for (int i = 0; i < placed.GetCount(); ++i) {
        const AIArtHandle art = placed.Get(i);
        guard.Check();
        Word path(DestroyString);
        Expect("GetPlacedFilePathFromArt",
               suite->GetPlacedFilePathFromArt(art, path.As<ai::UnicodeString>()));
        guard.Check();
    }
}

}  // namespace

void Walk()
{
    life.frames = 0;
    life.placed = 0;
    life.sawUnknown = false;
    life.frameFonts.clear();
    const TextSuites suites;
    const ArtSet frames(kTextFrameArt);
    suites.guard.Check();
    AIFontKey standard = nullptr;
    suites.Expect("GetDefaultFontForScript", suites.names->GetDefaultFontForScript(0, &standard));
    for (int i = 0; i < frames.GetCount(); ++i) {
        const AIArtHandle art = frames.Get(i);
        suites.guard.Check();
        ++life.frames;
        ReadFrame(suites, art);
    }
    ReadPlaced(suites.guard);
    Tell(Moment::kWalked);
}

}  // namespace wrong
