#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"
#include "suites/TextObjects.h"

// The ten suites of the text engine that have operations. References are counted.
namespace headless {

namespace {

using ATE::ATEErr;

template <class Object>
const SuiteRow& kSuiteOf = *FindSuiteRow(Object::kSuite);

template <class Object>
ATEErr AddRef(typename Object::Raw* reference)
{
    return Answer(kSuiteOf<Object>, "AddRef", [&](SuiteCall& call) {
        call.Handle("reference", reference);
        return call.host.handles.Retain(reference, Object::kHandleType, call.operation)
                   ? kHostSuccess
                   : kHostBadParameter;
    });
}

template <class Object>
ATEErr Release(typename Object::Raw* reference)
{
    return Answer(kSuiteOf<Object>, "Release", [&](SuiteCall& call) {
        call.Handle("reference", reference);
        return call.host.handles.Release(reference, Object::kHandleType, call.operation)
                   ? kHostSuccess
                   : kHostBadParameter;
    });
}

// Runs an operation that returns a reference derived from another one: `make` returns the new
// object.
template <class From, class To, class Make>
ATEErr Derive(const char* operation, typename From::Raw* from, typename To::Raw** out, Make make)
{
    return Answer(kSuiteOf<From>, operation, [&](SuiteCall& call) {
        call.Handle("reference", from);
        const From* const object = call.Find<From>(from);
        if (object == nullptr || !call.Require(out, "out")) return kHostBadParameter;
        *out = IssueText<To>(call.host.handles, make(*object));
        call.OutHandle("out", *out);
        return kHostSuccess;
    });
}

ATEErr GetStory(ATE::_TextFrame* frame, ATE::_Story** story)
{
    return Derive<TextFrameRef, StoryRef>("GetStory", frame, story, [](const TextFrameRef& from) {
        return StoryRef{{from.document}, from.document->content.frames[from.frame].story};
    });
}

ATEErr GetStories(ATE::_Story* story, ATE::_Stories** stories)
{
    return Derive<StoryRef, StoriesRef>("GetStories", story, stories, [](const StoryRef& from) {
        return StoriesRef{{from.document}};
    });
}

ATEErr GetTextRanges(ATE::_Stories* stories, ATE::_TextRanges** ranges)
{
    return Derive<StoriesRef, TextRangesRef>(
        "GetTextRanges", stories, ranges,
        [](const StoriesRef& from) { return TextRangesRef{{from.document}}; });
}

ATEErr GetCharInspector(ATE::_TextRanges* ranges, ATE::_CharInspector** inspector)
{
    return Derive<TextRangesRef, CharInspectorRef>(
        "GetCharInspector", ranges, inspector,
        [](const TextRangesRef& from) { return CharInspectorRef{{from.document}}; });
}

ATEErr GetInspectedFonts(ATE::_CharInspector* inspector, ATE::_ArrayFontRef** fonts)
{
    return Derive<CharInspectorRef, FontArrayRef>(
        "GetFont", inspector, fonts,
        [](const CharInspectorRef& from) { return FontArrayRef{{from.document}}; });
}

ATEErr GetSize(ATE::_ArrayFontRef* fonts, int* size)
{
    return Answer(kSuiteOf<FontArrayRef>, "GetSize", [&](SuiteCall& call) {
        call.Handle("reference", fonts);
        const auto* const object = call.Find<FontArrayRef>(fonts);
        if (object == nullptr || !call.Require(size, "size")) return kHostBadParameter;
        *size = static_cast<int>(object->document->content.fonts.size());
        call.Out("size", *size);
        return kHostSuccess;
    });
}

ATEErr GetArrayItem(ATE::_ArrayFontRef* fonts, int index, ATE::_Font** font)
{
    return Answer(kSuiteOf<FontArrayRef>, "Item", [&](SuiteCall& call) {
        call.Handle("reference", fonts);
        call.Arg("index", index);
        const auto* const object = call.Find<FontArrayRef>(fonts);
        if (object == nullptr || !call.Require(font, "font")) return kHostBadParameter;
        const std::vector<std::string>& names = object->document->content.fonts;
        if (index < 0 || static_cast<size_t>(index) >= names.size()) {
            return call.Refuse(kOutOfRange, "there is no font " + std::to_string(index));
        }
        *font = IssueText(call.host.handles,
                          FontRef{{object->document}, names[static_cast<size_t>(index)]});
        call.OutHandle("font", *font);
        return kHostSuccess;
    });
}

bool IsNull(ATE::_Font* font)
{
    bool isNull = true;
    // An invalid font is reported as null; the register has recorded the violation.
    (void)Answer(kSuiteOf<FontRef>, "IsNull", [&](SuiteCall& call) {
        call.Handle("reference", font);
        const auto* const object = call.Find<FontRef>(font);
        if (object == nullptr) return kHostBadParameter;
        isNull = object->postScriptName.empty();
        call.Out("isNull", isNull);
        return kHostSuccess;
    });
    return isNull;
}

ATEErr GetTextRunsIterator(ATE::_TextRange* range, ATE::_TextRunsIterator** iterator)
{
    return Derive<TextRangeRef, TextRunsIteratorRef>(
        "GetTextRunsIterator", range, iterator, [](const TextRangeRef& from) {
            return TextRunsIteratorRef{{from.document}, from.frame, from.firstRun, from.endRun};
        });
}

ATEErr GetUniqueCharFeatures(ATE::_TextRange* range, ATE::_CharFeatures** features)
{
    return Derive<TextRangeRef, CharFeaturesRef>(
        "GetUniqueCharFeatures", range, features, [](const TextRangeRef& from) {
            const auto& runs = from.document->content.frames[from.frame].runs;
            CharFeaturesRef common{{from.document}, {}};
            for (size_t i = from.firstRun; i < from.endRun; ++i) {
                if (i > from.firstRun && runs[i].postScriptName != common.postScriptName) {
                    common.postScriptName.clear();
                    break;
                }
                common.postScriptName = runs[i].postScriptName;
            }
            return common;
        });
}

ATEErr GetFeatureFont(ATE::_CharFeatures* features, bool* isAssigned, ATE::_Font** font)
{
    return Answer(kSuiteOf<CharFeaturesRef>, "GetFont", [&](SuiteCall& call) {
        call.Handle("reference", features);
        const auto* const object = call.Find<CharFeaturesRef>(features);
        if (object == nullptr || !call.Require(font, "font")) return kHostBadParameter;
        if (isAssigned != nullptr) *isAssigned = !object->postScriptName.empty();
        *font = IssueText(call.host.handles, FontRef{{object->document}, object->postScriptName});
        call.OutHandle("font", *font);
        return kHostSuccess;
    });
}

ATEErr IsNotDone(ATE::_TextRunsIterator* iterator, bool* isNotDone)
{
    return Answer(kSuiteOf<TextRunsIteratorRef>, "IsNotDone", [&](SuiteCall& call) {
        call.Handle("reference", iterator);
        const auto* const object = call.Find<TextRunsIteratorRef>(iterator);
        if (object == nullptr || !call.Require(isNotDone, "isNotDone")) return kHostBadParameter;
        *isNotDone = object->run < object->endRun;
        call.Out("isNotDone", *isNotDone);
        return kHostSuccess;
    });
}

ATEErr Next(ATE::_TextRunsIterator* iterator)
{
    return Answer(kSuiteOf<TextRunsIteratorRef>, "Next", [&](SuiteCall& call) {
        call.Handle("reference", iterator);
        auto* const object = call.Find<TextRunsIteratorRef>(iterator);
        if (object == nullptr) return kHostBadParameter;
        if (object->run >= object->endRun) {
            return call.Refuse(kOutOfRange, "the iterator is at its end");
        }
        ++object->run;
        return kHostSuccess;
    });
}

ATEErr GetIteratorItem(ATE::_TextRunsIterator* iterator, ATE::_TextRange** run)
{
    return Answer(kSuiteOf<TextRunsIteratorRef>, "Item", [&](SuiteCall& call) {
        call.Handle("reference", iterator);
        const auto* const object = call.Find<TextRunsIteratorRef>(iterator);
        if (object == nullptr || !call.Require(run, "run")) return kHostBadParameter;
        if (call.host.walkLimit.IsOver(*object->document)) return kHostTakesTooLong;
        if (object->run >= object->endRun) {
            return call.Refuse(kOutOfRange, "the iterator is at its end");
        }
        *run = IssueText(
            call.host.handles,
            TextRangeRef{{object->document}, object->frame, object->run, object->run + 1});
        call.OutHandle("run", *run);
        return kHostSuccess;
    });
}

}  // namespace

const ATE::TextFrameSuite kTextFrameTable = {AddRef<TextFrameRef>, Release<TextFrameRef>, GetStory};
const ATE::StorySuite kStoryTable = {AddRef<StoryRef>, Release<StoryRef>, GetStories};
const ATE::StoriesSuite kStoriesTable = {AddRef<StoriesRef>, Release<StoriesRef>, GetTextRanges};
const ATE::TextRangesSuite kTextRangesTable = {AddRef<TextRangesRef>, Release<TextRangesRef>,
                                               GetCharInspector};
const ATE::CharInspectorSuite kCharInspectorTable = {AddRef<CharInspectorRef>,
                                                     Release<CharInspectorRef>, GetInspectedFonts};
const ATE::ArrayFontRefSuite kArrayFontRefTable = {AddRef<FontArrayRef>, Release<FontArrayRef>,
                                                   GetSize, GetArrayItem};
const ATE::FontSuite kFontTable = {AddRef<FontRef>, Release<FontRef>, IsNull};
const ATE::TextRangeSuite kTextRangeTable = {AddRef<TextRangeRef>, Release<TextRangeRef>,
                                             GetTextRunsIterator, GetUniqueCharFeatures};
const ATE::CharFeaturesSuite kCharFeaturesTable = {AddRef<CharFeaturesRef>,
                                                   Release<CharFeaturesRef>, GetFeatureFont};
const ATE::TextRunsIteratorSuite kTextRunsIteratorTable = {
    AddRef<TextRunsIteratorRef>, Release<TextRunsIteratorRef>, IsNotDone, Next, GetIteratorItem};

}  // namespace headless
