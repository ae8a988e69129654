#pragma once

#include "checks/HandleRegister.h"
#include "model/HostObjects.h"

namespace ATE {
struct _TextFrame;
struct _Story;
struct _Stories;
struct _TextRange;
struct _TextRanges;
struct _TextRunsIterator;
struct _CharFeatures;
struct _CharInspector;
struct _ArrayFontRef;
struct _Font;
}  // namespace ATE

namespace headless {

// The objects behind the references of the text engine. References are counted, and expire with
// their document.

template <HandleType type, class RawType>
struct TextObject {
    using Raw = RawType;
    static constexpr HandleType kHandleType = type;
    DocumentObject* document;
};

struct TextFrameRef : TextObject<HandleType::kTextFrame, ATE::_TextFrame> {
    static constexpr const char* kSuite = "ATE TextFrame Suite";
    size_t frame;
};

struct StoryRef : TextObject<HandleType::kStory, ATE::_Story> {
    static constexpr const char* kSuite = "ATE Story Suite";
    size_t story;
};

struct StoriesRef : TextObject<HandleType::kStories, ATE::_Stories> {
    static constexpr const char* kSuite = "ATE Stories Suite";
};

struct TextRangesRef : TextObject<HandleType::kTextRanges, ATE::_TextRanges> {
    static constexpr const char* kSuite = "ATE TextRanges Suite";
};

struct CharInspectorRef : TextObject<HandleType::kCharInspector, ATE::_CharInspector> {
    static constexpr const char* kSuite = "ATE CharInspector Suite";
};

struct FontArrayRef : TextObject<HandleType::kFontArray, ATE::_ArrayFontRef> {
    static constexpr const char* kSuite = "ATE ArrayFontRef Suite";
};

// A font by its PostScript name; the null font has an empty name.
struct FontRef : TextObject<HandleType::kFont, ATE::_Font> {
    static constexpr const char* kSuite = "ATE Font Suite";
    std::string postScriptName;
};

// The runs [firstRun, endRun) of a frame.
struct TextRangeRef : TextObject<HandleType::kTextRange, ATE::_TextRange> {
    static constexpr const char* kSuite = "ATE TextRange Suite";
    size_t frame;
    size_t firstRun;
    size_t endRun;
};

struct TextRunsIteratorRef : TextObject<HandleType::kTextRunsIterator, ATE::_TextRunsIterator> {
    static constexpr const char* kSuite = "ATE TextRunsIterator Suite";
    size_t frame;
    size_t run;
    size_t endRun;
};

// The features that all characters of a range share. The name is empty if they share no font.
struct CharFeaturesRef : TextObject<HandleType::kCharFeatures, ATE::_CharFeatures> {
    static constexpr const char* kSuite = "ATE CharFeatures Suite";
    std::string postScriptName;
};

// Returns a new handle with one reference, owned by the object's document.
template <class Object>
typename Object::Raw* IssueText(HandleRegister& handles, Object object)
{
    const void* const owner = object.document->handle;
    return static_cast<typename Object::Raw*>(
        handles.Issue(std::make_shared<Object>(std::move(object)), owner));
}

}  // namespace headless
