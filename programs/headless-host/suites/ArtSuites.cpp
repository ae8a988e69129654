#include <cstring>

#include "ArtTypes.h"
#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"
#include "suites/TextObjects.h"

// The suites for art: matching, sets, placed files and text frames.
namespace headless {

namespace {

const SuiteRow& kMatchingArtSuite = *FindSuiteRow("AI Matching Art Suite");
const SuiteRow& kArtSetSuite = *FindSuiteRow("AI Art Set Suite");
const SuiteRow& kPlacedSuite = *FindSuiteRow("AI Placed Suite");
const SuiteRow& kTextFrameSuite = *FindSuiteRow("AI Text Frame Suite");

// The host's art has no attributes, so a spec matches only if it requires none of them.
template <class Spec>
bool Fits(const Spec& spec, const ArtItem& art)
{
    return spec.type == art.type && (spec.attr & spec.whichAttr) == 0;
}

template <class Spec>
std::vector<void*> MatchArt(const Host& host, const Spec* specs, int count)
{
    std::vector<void*> matches;
    for (void* const handle : host.GetCurrentDocument()->art) {
        const auto* const art = host.handles.Peek<ArtItem>(handle);
        for (int i = 0; i < count; ++i) {
            if (!Fits(specs[i], *art)) continue;
            matches.push_back(handle);
            break;
        }
    }
    return matches;
}

AIErr GetMatchingArt(AIMatchingArtSpec* specs, int16_t numSpecs, AIArtHandle*** matches,
                     int32_t* numMatches)
{
    return Answer(kMatchingArtSuite, "GetMatchingArt", [&](SuiteCall& call) {
        call.Arg("numSpecs", numSpecs);
        if (!call.Require(specs, "specs") || !call.Require(matches, "matches") ||
            !call.Require(numMatches, "numMatches") || call.host.GetCurrentDocument() == nullptr) {
            return kHostBadParameter;
        }
        if (numSpecs > 0) call.Arg("type", specs[0].type);
        const std::vector<void*> found = MatchArt(call.host, specs, numSpecs);
        *matches = nullptr;
        *numMatches = static_cast<int32_t>(found.size());
        if (!found.empty()) {
            // A memory handle points to a pointer to the memory: one block holds both.
            const size_t bytes = found.size() * sizeof(void*);
            auto* const block = static_cast<void**>(
                call.host.handles.IssueBlock(HandleType::kMemoryHandle, bytes + sizeof(void*)));
            block[0] = block + 1;
            std::memcpy(block + 1, found.data(), bytes);
            *matches = reinterpret_cast<AIArtHandle**>(block);
        }
        call.Out("numMatches", *numMatches);
        call.OutHandle("matches", *matches);
        return kHostSuccess;
    });
}

AIErr NewArtSet(AIArtSet* set)
{
    return Answer(kArtSetSuite, "NewArtSet", [&](SuiteCall& call) {
        if (!call.Require(set, "set")) return kHostBadParameter;
        *set = static_cast<AIArtSet>(call.host.handles.Issue(std::make_shared<ArtSetObject>()));
        call.OutHandle("set", *set);
        return kHostSuccess;
    });
}

AIErr DisposeArtSet(AIArtSet* set)
{
    return Answer(kArtSetSuite, "DisposeArtSet", [&](SuiteCall& call) {
        if (!call.Require(set, "set")) return kHostBadParameter;
        call.Handle("set", *set);
        if (!call.host.handles.Release(*set, HandleType::kArtSet, call.operation)) {
            return kHostBadParameter;
        }
        *set = nullptr;
        return kHostSuccess;
    });
}

AIErr CountArtSet(AIArtSet set, int* count)
{
    return Answer(kArtSetSuite, "CountArtSet", [&](SuiteCall& call) {
        call.Handle("set", set);
        const auto* const object = call.Find<ArtSetObject>(set);
        if (object == nullptr || !call.Require(count, "count")) return kHostBadParameter;
        *count = static_cast<int>(object->art.size());
        call.Out("count", *count);
        return kHostSuccess;
    });
}

AIErr IndexArtSet(AIArtSet set, int index, AIArtHandle* art)
{
    return Answer(kArtSetSuite, "IndexArtSet", [&](SuiteCall& call) {
        call.Handle("set", set);
        call.Arg("index", index);
        const auto* const object = call.Find<ArtSetObject>(set);
        if (object == nullptr || !call.Require(art, "art")) return kHostBadParameter;
        if (index < 0 || static_cast<size_t>(index) >= object->art.size()) {
            return call.Refuse(kOutOfRange, "there is no member " + std::to_string(index));
        }
        *art = static_cast<AIArtHandle>(object->art[static_cast<size_t>(index)]);
        call.OutHandle("art", *art);
        return kHostSuccess;
    });
}

AIErr MatchingArtSet(AIArtSpec* specs, short numSpecs, AIArtSet set)
{
    return Answer(kArtSetSuite, "MatchingArtSet", [&](SuiteCall& call) {
        call.Handle("set", set);
        call.Arg("numSpecs", numSpecs);
        auto* const object = call.Find<ArtSetObject>(set);
        if (object == nullptr || !call.Require(specs, "specs") ||
            call.host.GetCurrentDocument() == nullptr) {
            return kHostBadParameter;
        }
        const std::vector<void*> found = MatchArt(call.host, specs, numSpecs);
        object->art.insert(object->art.end(), found.begin(), found.end());
        call.Out("added", found.size());
        return kHostSuccess;
    });
}

// The art of a handle. Null, and a violation, if this is no valid handle of art of this type.
const ArtItem* FindArt(SuiteCall& call, AIArtHandle handle, int16_t type)
{
    call.Handle("art", handle);
    const auto* const art = call.Find<ArtItem>(handle);
    if (art == nullptr || art->type == type) return art;
    (void)call.Refuse(kBadArgument, call.host.handles.Describe(handle) + " is of art type " +
                                        std::to_string(art->type) + ", not " +
                                        std::to_string(type));
    return nullptr;
}

AIErr GetPlacedFilePathFromArt(AIArtHandle handle, ai::UnicodeString& path)
{
    return Answer(kPlacedSuite, "GetPlacedFilePathFromArt", [&](SuiteCall& call) {
        const ArtItem* const art = FindArt(call, handle, kPlacedArt);
        if (art == nullptr) return kHostBadParameter;
        const std::string& text = art->document->content.linkedFiles[art->index];
        PutString(call, path, text);
        call.Out("path", text);
        return kHostSuccess;
    });
}

AIErr GetATETextRange(AIArtHandle handle, ATE::_TextRange** range)
{
    return Answer(kTextFrameSuite, "GetATETextRange", [&](SuiteCall& call) {
        const ArtItem* const art = FindArt(call, handle, kTextFrameArt);
        if (art == nullptr || !call.Require(range, "range")) return kHostBadParameter;
        if (call.host.walkLimit.IsOver(*art->document)) return kHostTakesTooLong;
        const size_t runs = art->document->content.frames[art->index].runs.size();
        *range = IssueText(call.host.handles, TextRangeRef{{art->document}, art->index, 0, runs});
        call.OutHandle("range", *range);
        return kHostSuccess;
    });
}

AIErr GetATETextFrame(AIArtHandle handle, ATE::_TextFrame** frame)
{
    return Answer(kTextFrameSuite, "GetATETextFrame", [&](SuiteCall& call) {
        const ArtItem* const art = FindArt(call, handle, kTextFrameArt);
        if (art == nullptr || !call.Require(frame, "frame")) return kHostBadParameter;
        *frame = IssueText(call.host.handles, TextFrameRef{{art->document}, art->index});
        call.OutHandle("frame", *frame);
        return kHostSuccess;
    });
}

}  // namespace

const AIMatchingArtSuite kMatchingArtTable = {GetMatchingArt};
const AIArtSetSuite kArtSetTable = {NewArtSet, DisposeArtSet, CountArtSet, IndexArtSet,
                                    MatchingArtSet};
const AIPlacedSuite kPlacedTable = {GetPlacedFilePathFromArt};
const AITextFrameSuite kArtTextFrameTable = {GetATETextRange, GetATETextFrame};

}  // namespace headless
