// The scripted host's text engine and fonts. A reference is a key of ScriptedHost::references; an
// operation on an unknown or expired reference, or one of another kind, is a fault.

#include "ScriptedHostSuites.h"

namespace {

ScriptedReference* Find(const std::string& kind, void* reference)
{
    const auto found = Host().references.find(reference);
    if (found != Host().references.end() && found->second.kind == kind) return &found->second;
    (void)Host().Fault("no live " + kind + " " + Handle(reference));
    return nullptr;
}

template <class Reference>
Reference* NewReference(const std::string& kind, std::vector<std::string> fonts)
{
    void* const handle = Host().NewHandle();
    Host().references[handle] = {kind, 1, std::move(fonts), 0};
    return static_cast<Reference*>(handle);
}

AIErr AddRefTo(const char* kind, void* reference)
{
    const AIErr code = Host().Record("ATE " + std::string(kind) + ".AddRef", "");
    if (code != kHostSuccess) return code;
    ScriptedReference* const found = Find(kind, reference);
    if (found == nullptr) return kHostBadParameter;
    ++found->count;
    return kHostSuccess;
}

AIErr ReleaseOf(const char* kind, void* reference)
{
    const AIErr code = Host().Record("ATE " + std::string(kind) + ".Release", "");
    if (code != kHostSuccess) return code;
    ScriptedReference* const found = Find(kind, reference);
    if (found == nullptr) return kHostBadParameter;
    if (--found->count == 0) Host().references.erase(reference);
    return kHostSuccess;
}

// The kinds of references: the name of the suite, which the log shows.
constexpr char kTextFrame[] = "TextFrame";
constexpr char kStory[] = "Story";
constexpr char kStories[] = "Stories";
constexpr char kTextRange[] = "TextRange";
constexpr char kTextRanges[] = "TextRanges";
constexpr char kTextRunsIterator[] = "TextRunsIterator";
constexpr char kCharFeatures[] = "CharFeatures";
constexpr char kCharInspector[] = "CharInspector";
constexpr char kArrayFontRef[] = "ArrayFontRef";
constexpr char kFont[] = "Font";

template <const char* kind, class Reference>
AIErr AddRef(Reference* reference)
{
    return AddRefTo(kind, reference);
}

template <const char* kind, class Reference>
AIErr Release(Reference* reference)
{
    return ReleaseOf(kind, reference);
}

// Returns a new reference, created from the record of `from`.
template <const char* from, const char* to, class Source, class Result>
AIErr Derive(const char* member, Source* source, Result** result,
             std::vector<std::string> (*fonts)(ScriptedReference&),
             const std::string& arguments = "")
{
    const std::string operation = "ATE " + std::string(from) + "." + member;
    if (const AIErr code = Host().Record(operation, arguments)) return code;
    ScriptedReference* const found = Find(from, source);
    if (found == nullptr) return kHostBadParameter;
    if (Host().GivesNull(operation)) return kHostSuccess;
    *result = NewReference<Result>(to, fonts(*found));
    return kHostSuccess;
}

std::vector<std::string> SameFonts(ScriptedReference& from) { return from.fonts; }

std::vector<std::string> StoryFonts(ScriptedReference&)
{
    const ScriptedDocument* const document = Host().Document();
    return document == nullptr ? std::vector<std::string>() : document->storyFonts;
}

std::vector<std::string> FontAtPosition(ScriptedReference& from)
{
    return {from.fonts.at(from.position)};
}

std::vector<std::string> FirstFont(ScriptedReference& from)
{
    return {from.fonts.empty() ? std::string(kNullFont) : from.fonts.front()};
}

ATE::ATEErr GetStory(ATE::_TextFrame* frame, ATE::_Story** story)
{
    return Derive<kTextFrame, kStory>("GetStory", frame, story, SameFonts);
}

ATE::ATEErr GetStories(ATE::_Story* story, ATE::_Stories** stories)
{
    return Derive<kStory, kStories>("GetStories", story, stories, StoryFonts);
}

ATE::ATEErr GetTextRanges(ATE::_Stories* stories, ATE::_TextRanges** ranges)
{
    return Derive<kStories, kTextRanges>("GetTextRanges", stories, ranges, SameFonts);
}

ATE::ATEErr GetCharInspector(ATE::_TextRanges* ranges, ATE::_CharInspector** inspector)
{
    return Derive<kTextRanges, kCharInspector>("GetCharInspector", ranges, inspector, SameFonts);
}

ATE::ATEErr InspectorFonts(ATE::_CharInspector* inspector, ATE::_ArrayFontRef** fonts)
{
    return Derive<kCharInspector, kArrayFontRef>("GetFont", inspector, fonts, SameFonts);
}

ATE::ATEErr GetSize(ATE::_ArrayFontRef* fonts, int* size)
{
    if (const AIErr code = Host().Record("ATE ArrayFontRef.GetSize", "")) return code;
    ScriptedReference* const found = Find("ArrayFontRef", fonts);
    if (found == nullptr) return kHostBadParameter;
    *size = static_cast<int>(found->fonts.size());
    return kHostSuccess;
}

ATE::ATEErr FontItem(ATE::_ArrayFontRef* fonts, int index, ATE::_Font** font)
{
    if (ScriptedReference* const found = Find("ArrayFontRef", fonts)) {
        found->position = static_cast<std::size_t>(index);
    }
    return Derive<kArrayFontRef, kFont>("Item", fonts, font, FontAtPosition, std::to_string(index));
}

bool IsNull(ATE::_Font* font)
{
    (void)Host().Record("ATE Font.IsNull", "");
    ScriptedReference* const found = font == nullptr ? nullptr : Find("Font", font);
    return found == nullptr || found->fonts.front() == kNullFont;
}

ATE::ATEErr GetTextRunsIterator(ATE::_TextRange* range, ATE::_TextRunsIterator** iterator)
{
    return Derive<kTextRange, kTextRunsIterator>("GetTextRunsIterator", range, iterator, SameFonts);
}

ATE::ATEErr GetUniqueCharFeatures(ATE::_TextRange* range, ATE::_CharFeatures** features)
{
    return Derive<kTextRange, kCharFeatures>("GetUniqueCharFeatures", range, features, SameFonts);
}

ATE::ATEErr FeaturesFont(ATE::_CharFeatures* features, bool* isAssigned, ATE::_Font** font)
{
    const std::string arguments = isAssigned == nullptr ? "null" : *isAssigned ? "true" : "false";
    if (isAssigned != nullptr) *isAssigned = true;
    return Derive<kCharFeatures, kFont>("GetFont", features, font, FirstFont, arguments);
}

ATE::ATEErr IsNotDone(ATE::_TextRunsIterator* iterator, bool* isNotDone)
{
    if (const AIErr code = Host().Record("ATE TextRunsIterator.IsNotDone", "")) return code;
    ScriptedReference* const found = Find("TextRunsIterator", iterator);
    if (found == nullptr) return kHostBadParameter;
    *isNotDone = found->position < found->fonts.size();
    return kHostSuccess;
}

ATE::ATEErr Next(ATE::_TextRunsIterator* iterator)
{
    if (const AIErr code = Host().Record("ATE TextRunsIterator.Next", "")) return code;
    ScriptedReference* const found = Find("TextRunsIterator", iterator);
    if (found == nullptr) return kHostBadParameter;
    ++found->position;
    return kHostSuccess;
}

ATE::ATEErr RunItem(ATE::_TextRunsIterator* iterator, ATE::_TextRange** run)
{
    return Derive<kTextRunsIterator, kTextRange>("Item", iterator, run, FontAtPosition);
}

AIErr GetDefaultFontForScript(AIFaceScript script, AIFontKey* key)
{
    const std::string operation = "AIFontSuite.GetDefaultFontForScript";
    if (const AIErr code = Host().Record(operation, std::to_string(script))) return code;
    const auto found = Host().defaultFonts.find(script);
    if (found == Host().defaultFonts.end()) return kScriptedNoDefaultFont;
    if (!Host().GivesNull(operation)) *key = Host().FontKey(found->second);
    return kHostSuccess;
}

AIErr GetPostScriptFontName(AIFontKey key, char* buffer, short bufferSize)
{
    const std::string* const name = Host().FontName(key);
    if (const AIErr code = Host().Record(
            "AIFontSuite.GetPostScriptFontName",
            (name == nullptr ? "unknown" : "font " + *name) + ", " + std::to_string(bufferSize))) {
        return code;
    }
    if (name == nullptr) return Host().Fault("unknown font key " + Handle(key));
    const std::string cut = name->substr(0, static_cast<std::size_t>(bufferSize) - 1);
    std::memcpy(buffer, cut.c_str(), cut.size() + 1);
    return kHostSuccess;
}

AIErr FontKeyFromFontRef(ATE::_Font* font, AIFontKey* key)
{
    ScriptedReference* const found = Find("Font", font);
    const std::string name = found == nullptr ? "unknown" : found->fonts.front();
    if (const AIErr code = Host().Record("AIFontSuite.FontKeyFromFontRef",
                                         "font " + name + ", key " + Handle(*key))) {
        return code;
    }
    if (found == nullptr) return kHostBadParameter;
    *key = Host().FontKey(name);
    return kHostSuccess;
}

}  // namespace

AIFontKey ScriptedHost::FontKey(const std::string& name)
{
    for (const auto& each : mFontKeys) {
        if (each.second == name) return each.first;
    }
    void* const key = NewHandle();
    mFontKeys[key] = name;
    return key;
}

const std::string* ScriptedHost::FontName(AIFontKey key) const
{
    const auto found = mFontKeys.find(key);
    return found == mFontKeys.end() ? nullptr : &found->second;
}

ATE::_Font* ScriptedHost::NewFontReference(const std::string& name)
{
    return NewReference<ATE::_Font>("Font", {name});
}

ATE::_TextRange* ScriptedHost::NewRunReference(const std::string& fontName)
{
    return NewReference<ATE::_TextRange>("TextRange", {fontName});
}

void* ScriptedHost::NewReferenceOfKind(const std::string& kind, std::vector<std::string> fonts)
{
    return NewReference<void>(kind, std::move(fonts));
}

AIFontSuite* FontSuiteOfHost()
{
    static AIFontSuite suite = {GetDefaultFontForScript, GetPostScriptFontName, FontKeyFromFontRef};
    return &suite;
}

void* TextEngineSuite(const std::string& ownName)
{
    static ATE::TextFrameSuite textFrame = {AddRef<kTextFrame>, Release<kTextFrame>, GetStory};
    static ATE::StorySuite story = {AddRef<kStory>, Release<kStory>, GetStories};
    static ATE::StoriesSuite stories = {AddRef<kStories>, Release<kStories>, GetTextRanges};
    static ATE::TextRangesSuite ranges = {AddRef<kTextRanges>, Release<kTextRanges>,
                                          GetCharInspector};
    static ATE::CharInspectorSuite inspector = {AddRef<kCharInspector>, Release<kCharInspector>,
                                                InspectorFonts};
    static ATE::ArrayFontRefSuite fonts = {AddRef<kArrayFontRef>, Release<kArrayFontRef>, GetSize,
                                           FontItem};
    static ATE::FontSuite font = {AddRef<kFont>, Release<kFont>, IsNull};
    static ATE::TextRangeSuite range = {AddRef<kTextRange>, Release<kTextRange>,
                                        GetTextRunsIterator, GetUniqueCharFeatures};
    static ATE::CharFeaturesSuite features = {AddRef<kCharFeatures>, Release<kCharFeatures>,
                                              FeaturesFont};
    static ATE::TextRunsIteratorSuite iterator = {
        AddRef<kTextRunsIterator>, Release<kTextRunsIterator>, IsNotDone, Next, RunItem};
    static const std::map<std::string, void*> suites = {{"TextFrame", &textFrame},
                                                        {"Story", &story},
                                                        {"Stories", &stories},
                                                        {"TextRanges", &ranges},
                                                        {"CharInspector", &inspector},
                                                        {"ArrayFontRef", &fonts},
                                                        {"Font", &font},
                                                        {"TextRange", &range},
                                                        {"CharFeatures", &features},
                                                        {"TextRunsIterator", &iterator}};
    const auto found = suites.find(ownName);
    return found == suites.end() ? nullptr : found->second;
}
