// The scripted host's art, art sets and fonts.

#include "ArtTypes.h"
#include "ScriptedHostSuites.h"

namespace {

constexpr std::size_t kFrameBase = 0xF0000;
constexpr std::size_t kPlacedBase = 0xE0000;

AIArtHandle ArtHandle(std::size_t base, std::size_t index)
{
    return reinterpret_cast<AIArtHandle>(base + index * 16);
}

// Returns the index of the art, or -1 for a handle of another kind.
int IndexOf(AIArtHandle art, std::size_t base, std::size_t count)
{
    for (std::size_t index = 0; index < count; ++index) {
        if (ArtHandle(base, index) == art) return static_cast<int>(index);
    }
    return -1;
}

std::string ArtName(AIArtHandle art)
{
    const ScriptedDocument* const document = Host().Document();
    if (document == nullptr) return "art without a document";
    const int frame = IndexOf(art, kFrameBase, document->frames.size());
    if (frame >= 0) return "frame " + std::to_string(frame);
    const int placed = IndexOf(art, kPlacedBase, document->placedPaths.size());
    return placed >= 0 ? "placed " + std::to_string(placed) : "unknown art";
}

template <class Spec>
std::string SpecText(const Spec* specs, int count)
{
    std::string text;
    for (int index = 0; index < count; ++index) {
        text += "{" + std::to_string(specs[index].type) + ", " +
                std::to_string(specs[index].whichAttr) + ", " + std::to_string(specs[index].attr) +
                "}, ";
    }
    return text + std::to_string(count);
}

template <class Spec>
std::vector<AIArtHandle> Matches(const Spec* specs, int count)
{
    std::vector<AIArtHandle> matches;
    const ScriptedDocument* const document = Host().Document();
    for (int each = 0; document != nullptr && each < count; ++each) {
        const bool frames = specs[each].type == kTextFrameArt;
        const bool placed = specs[each].type == kPlacedArt;
        const std::size_t size = frames   ? document->frames.size()
                                 : placed ? document->placedPaths.size()
                                          : 0;
        for (std::size_t index = 0; index < size; ++index) {
            matches.push_back(ArtHandle(frames ? kFrameBase : kPlacedBase, index));
        }
    }
    return matches;
}

AIErr GetMatchingArt(AIMatchingArtSpec* specs, int16_t numSpecs, AIArtHandle*** matches,
                     int32_t* numMatches)
{
    const std::string operation = "AIMatchingArtSuite.GetMatchingArt";
    if (const AIErr code = Host().Record(operation, SpecText(specs, numSpecs))) return code;
    if (Host().Document() == nullptr) return kScriptedNoDocument;
    if (Host().GivesNull(operation)) return kHostSuccess;
    auto array = std::make_unique<ScriptedArtArray>();
    array->art = Matches(specs, numSpecs);
    array->first = array->art.data();
    *numMatches = static_cast<int32_t>(array->art.size());
    *matches = &array->first;
    Host().artArrays[static_cast<void*>(*matches)] = std::move(array);
    return kHostSuccess;
}

AIErr MdMemoryDisposeHandle(void** handle)
{
    if (const AIErr code = Host().Record("AIMdMemorySuite.MdMemoryDisposeHandle", "")) return code;
    if (Host().artArrays.erase(handle) == 0) return Host().Fault("unknown memory handle freed");
    return kHostSuccess;
}

AIErr GetPlacedFilePathFromArt(AIArtHandle art, ai::UnicodeString& path)
{
    if (const AIErr code = Host().Record("AIPlacedSuite.GetPlacedFilePathFromArt", ArtName(art))) {
        return code;
    }
    const ScriptedDocument* const document = Host().Document();
    if (document == nullptr) return kScriptedNoDocument;
    const int placed = IndexOf(art, kPlacedBase, document->placedPaths.size());
    if (placed < 0) return Host().Fault("not placed art");
    SetHostString(path, document->placedPaths[static_cast<std::size_t>(placed)]);
    return kHostSuccess;
}

template <class Reference>
AIErr FrameReference(const char* operation, const char* kind, AIArtHandle art, Reference** out)
{
    if (const AIErr code = Host().Record(operation, ArtName(art))) return code;
    const ScriptedDocument* const document = Host().Document();
    if (document == nullptr) return kScriptedNoDocument;
    const int frame = IndexOf(art, kFrameBase, document->frames.size());
    if (frame < 0) return Host().Fault("not a text frame");
    if (Host().GivesNull(operation)) return kHostSuccess;
    void* const handle = Host().NewHandle();
    Host().references[handle] = {kind, 1, document->frames[static_cast<std::size_t>(frame)].runs,
                                 0};
    *out = static_cast<Reference*>(handle);
    return kHostSuccess;
}

AIErr GetATETextRange(AIArtHandle art, ATE::_TextRange** range)
{
    return FrameReference("AITextFrameSuite.GetATETextRange", "TextRange", art, range);
}

AIErr GetATETextFrame(AIArtHandle art, ATE::_TextFrame** frame)
{
    return FrameReference("AITextFrameSuite.GetATETextFrame", "TextFrame", art, frame);
}

AIErr NewArtSet(AIArtSet* set)
{
    if (const AIErr code = Host().Record("AIArtSetSuite.NewArtSet", "")) return code;
    void* const handle = Host().NewHandle();
    Host().artSets[handle] = {};
    *set = static_cast<AIArtSet>(handle);
    return kHostSuccess;
}

AIErr DisposeArtSet(AIArtSet* set)
{
    if (const AIErr code = Host().Record("AIArtSetSuite.DisposeArtSet", "")) return code;
    if (Host().artSets.erase(*set) == 0) return Host().Fault("unknown art set");
    *set = nullptr;
    return kHostSuccess;
}

AIErr CountArtSet(AIArtSet set, int* count)
{
    if (const AIErr code = Host().Record("AIArtSetSuite.CountArtSet", "")) return code;
    const auto found = Host().artSets.find(set);
    if (found == Host().artSets.end()) return Host().Fault("unknown art set");
    *count = static_cast<int>(found->second.size());
    return kHostSuccess;
}

AIErr IndexArtSet(AIArtSet set, int index, AIArtHandle* art)
{
    if (const AIErr code = Host().Record("AIArtSetSuite.IndexArtSet", std::to_string(index))) {
        return code;
    }
    const auto found = Host().artSets.find(set);
    if (found == Host().artSets.end()) return Host().Fault("unknown art set");
    if (index < 0 || index >= static_cast<int>(found->second.size())) {
        return Host().Fault("index outside of the art set");
    }
    *art = found->second[static_cast<std::size_t>(index)];
    return kHostSuccess;
}

AIErr MatchingArtSet(AIArtSpec* specs, short numSpecs, AIArtSet set)
{
    if (const AIErr code =
            Host().Record("AIArtSetSuite.MatchingArtSet", SpecText(specs, numSpecs))) {
        return code;
    }
    if (Host().Document() == nullptr) return kScriptedNoDocument;
    const auto found = Host().artSets.find(set);
    if (found == Host().artSets.end()) return Host().Fault("unknown art set");
    found->second = Matches(specs, numSpecs);
    return kHostSuccess;
}

}  // namespace

AIArtHandle ScriptedHost::FrameHandle(int frame) const
{
    return ArtHandle(kFrameBase, static_cast<std::size_t>(frame));
}

AIMdMemorySuite* MdMemorySuite()
{
    static AIMdMemorySuite suite = {MdMemoryDisposeHandle};
    return &suite;
}

AIMatchingArtSuite* MatchingArtSuite()
{
    static AIMatchingArtSuite suite = {GetMatchingArt};
    return &suite;
}

AIPlacedSuite* PlacedSuite()
{
    static AIPlacedSuite suite = {GetPlacedFilePathFromArt};
    return &suite;
}

AITextFrameSuite* TextFrameSuiteOfHost()
{
    static AITextFrameSuite suite = {GetATETextRange, GetATETextFrame};
    return &suite;
}

AIArtSetSuite* ArtSetSuite()
{
    static AIArtSetSuite suite = {NewArtSet, DisposeArtSet, CountArtSet, IndexArtSet,
                                  MatchingArtSet};
    return &suite;
}
