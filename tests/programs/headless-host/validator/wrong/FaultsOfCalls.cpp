#include "ArtTypes.h"
#include "Faults.h"
#include "Suites.h"

namespace wrong {

namespace {

constexpr size_t kMostTicks = 5000;
constexpr char kFonts[] = "AI Font Suite";
constexpr int kFontsVersion = 1006;

void CallReleasedSuite()
{
    const AIDocumentSuite* documents = nullptr;
    SPBasicSuite* const basic = life.data->basic;
    if (basic->AcquireSuite("AI Document Suite", 1017, &documents) != kHostSuccess) return;
    (void)basic->ReleaseSuite("AI Document Suite", 1017);
    _t_AIDocument* document = nullptr;
    (void)documents->GetDocument(&document);
}

// Has `use` called with the first text frame, if there is one.
void UseFrame(void (*use)(const AITextFrameSuite& frames, AIArtHandle art))
{
    const Suite<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    const Suite<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    AIArtSpec spec(kTextFrameArt, 0, 0);
    AIArtSet set = nullptr;
    if (sets->NewArtSet(&set) != kHostSuccess) return;
    (void)sets->MatchingArtSet(&spec, 1, set);
    AIArtHandle art = nullptr;
    int count = 0;
    (void)sets->CountArtSet(set, &count);
    if (count > 0) (void)sets->IndexArtSet(set, 0, &art);
    (void)sets->DisposeArtSet(&set);
    if (art != nullptr) use(*frames.operator->(), art);
}

// The frame's text, although `art` is no art.
void UseAsFrame(void* art)
{
    const Suite<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    ATE::_TextRange* range = nullptr;
    (void)frames->GetATETextRange(static_cast<AIArtHandle>(art), &range);
}

void UseReleasedRange(const AITextFrameSuite& frames, AIArtHandle art)
{
    const Suite<ATE::TextRangeSuite> ranges("ATE TextRange Suite", 1);
    ATE::_TextRange* range = nullptr;
    if (frames.GetATETextRange(art, &range) != kHostSuccess) return;
    (void)ranges->Release(range);
    ATE::_TextRunsIterator* iterator = nullptr;
    (void)ranges->GetTextRunsIterator(range, &iterator);
}

void KeepRange(const AITextFrameSuite& frames, AIArtHandle art)
{
    ATE::_TextRange* range = nullptr;
    (void)frames.GetATETextRange(art, &range);
}

void GetMemberBehindEnd()
{
    const Suite<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    AIArtSet set = nullptr;
    if (sets->NewArtSet(&set) != kHostSuccess) return;
    AIArtHandle art = nullptr;
    (void)sets->IndexArtSet(set, 0, &art);
    (void)sets->DisposeArtSet(&set);
}

void GetNameIntoNoBytes()
{
    const Suite<AIFontSuite> fonts(kFonts, kFontsVersion);
    AIFontKey key = nullptr;
    char none = '\0';
    if (fonts->GetDefaultFontForScript(0, &key) != kHostSuccess) return;
    (void)fonts->GetPostScriptFontName(key, &none, 0);
}

void KeepBlock()
{
    const Suite<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    void* block = nullptr;
    if (blocks->AllocateBlock(1, "kept", &block) == kHostSuccess) life.kept.push_back(block);
}

bool HasFailedAtUpdate(const char* call) { return life.HasFailed(call) && life.IsIn("AI Update"); }

}  // namespace

const std::vector<Fault> kFaultsOfCalls = {
    {401, "calls-released-suite",
     [] {
         if (life.Is(Moment::kTick)) CallReleasedSuite();
     }},
    {402, "releases-suite-that-it-never-held",
     [] {
         if (!life.Is(Moment::kTick)) return;
         (void)life.data->basic->ReleaseSuite(kFonts, kFontsVersion);
     }},
    {403, "keeps-suite",
     [] {
         const void* suite = nullptr;
         if (!life.Is(Moment::kTick)) return;
         (void)life.data->basic->AcquireSuite(kFonts, kFontsVersion, &suite);
     }},
    {404, "acquires-suite-without-name",
     [] {
         const void* suite = nullptr;
         if (!life.Is(Moment::kTick)) return;
         (void)life.data->basic->AcquireSuite(nullptr, 1, &suite);
     }},
    {405, "needs-the-suite-of-timers",
     [] {
         const bool isStart = life.IsIn("Startup") && life.HasFailed("AcquireSuite");
         if (isStart && life.failedSuite == "AI Timer Suite") Crash();
     }},
    {408, "knows-one-status-of-acquiring",
     [] {
         if (life.HasFailed("AcquireSuite") && life.status == kHostOutOfMemory) Break();
     }},
    {411, "takes-negative-status-for-success",
     [] {
         if (life.HasFailed("NewArtSet") && life.status < 0) Crash();
     }},
    {501, "passes-null-handle",
     [] {
         if (life.Is(Moment::kOpened)) UseAsFrame(nullptr);
     }},
    {502, "passes-unknown-handle",
     [] {
         static int sNoHandle = 0;
         if (life.Is(Moment::kOpened)) UseAsFrame(&sNoHandle);
     }},
    {503, "uses-released-text-range",
     [] {
         if (life.Is(Moment::kOpened)) UseFrame(UseReleasedRange);
     }},
    {504, "takes-document-for-art",
     [] {
         if (life.Is(Moment::kOpened)) UseAsFrame(life.document->handle);
     }},
    {505, "keeps-text-range",
     [] {
         if (life.Is(Moment::kOpened)) UseFrame(KeepRange);
     }},
    {506, "gets-member-behind-the-end",
     [] {
         if (life.Is(Moment::kOpened)) GetMemberBehindEnd();
     }},
    {507, "passes-no-place-for-the-result",
     [] {
         if (!life.Is(Moment::kOpened)) return;
         const Suite<AIDocumentSuite> documents("AI Document Suite", 1017);
         (void)documents->GetDocument(nullptr);
     }},
    {508, "passes-empty-buffer",
     [] {
         if (life.Is(Moment::kOpened)) GetNameIntoNoBytes();
     }},
    {513, "uses-path-that-it-did-not-get",
     [] {
         if (life.HasFailed("GetPlacedFilePathFromArt")) Crash();
     }},
    {601, "keeps-block-per-document",
     [] {
         if (life.Is(Moment::kOpened)) KeepBlock();
     }},
    {602, "keeps-block-per-tick",
     [] {
         if (life.Is(Moment::kTick)) KeepBlock();
     }},
    {603, "needs-block-for-menu",
     [] {
         if (HasFailedAtUpdate("AllocateBlock")) Crash();
     }},
    {604, "needs-string-for-menu",
     [] {
         if (HasFailedAtUpdate("Initialize")) Crash();
     }},
    {607, "has-room-for-five-thousand-ticks",
     [] {
         if (life.Is(Moment::kTick) && life.ticks > kMostTicks) Crash();
     }},
};

}  // namespace wrong
