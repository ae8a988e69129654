#pragma once

#include "ATETypes.h"

// The ten text engine suites that are called. In each the first operation adds a count to a
// reference and the second gives one back; every reference that an operation writes is the
// caller's to release.
namespace ATE {

struct TextFrameSuite {
    ATEErr (*AddRef)(_TextFrame* frame);
    ATEErr (*Release)(_TextFrame* frame);
    ATEErr (*GetStory)(_TextFrame* frame, _Story** story);
};

struct StorySuite {
    ATEErr (*AddRef)(_Story* story);
    ATEErr (*Release)(_Story* story);
    // All stories of the document.
    ATEErr (*GetStories)(_Story* story, _Stories** stories);
};

struct StoriesSuite {
    ATEErr (*AddRef)(_Stories* stories);
    ATEErr (*Release)(_Stories* stories);
    ATEErr (*GetTextRanges)(_Stories* stories, _TextRanges** ranges);
};

struct TextRangesSuite {
    ATEErr (*AddRef)(_TextRanges* ranges);
    ATEErr (*Release)(_TextRanges* ranges);
    ATEErr (*GetCharInspector)(_TextRanges* ranges, _CharInspector** inspector);
};

struct CharInspectorSuite {
    ATEErr (*AddRef)(_CharInspector* inspector);
    ATEErr (*Release)(_CharInspector* inspector);
    // The fonts used in the inspected ranges.
    ATEErr (*GetFont)(_CharInspector* inspector, _ArrayFontRef** fonts);
};

struct ArrayFontRefSuite {
    ATEErr (*AddRef)(_ArrayFontRef* fonts);
    ATEErr (*Release)(_ArrayFontRef* fonts);
    ATEErr (*GetSize)(_ArrayFontRef* fonts, int* size);
    ATEErr (*Item)(_ArrayFontRef* fonts, int index, _Font** font);
};

struct FontSuite {
    ATEErr (*AddRef)(_Font* font);
    ATEErr (*Release)(_Font* font);
    bool (*IsNull)(_Font* font);
};

struct TextRangeSuite {
    ATEErr (*AddRef)(_TextRange* range);
    ATEErr (*Release)(_TextRange* range);
    ATEErr (*GetTextRunsIterator)(_TextRange* range, _TextRunsIterator** iterator);
    // The features common to the whole range.
    ATEErr (*GetUniqueCharFeatures)(_TextRange* range, _CharFeatures** features);
};

struct CharFeaturesSuite {
    ATEErr (*AddRef)(_CharFeatures* features);
    ATEErr (*Release)(_CharFeatures* features);
    // `isAssigned` may be null.
    ATEErr (*GetFont)(_CharFeatures* features, bool* isAssigned, _Font** font);
};

struct TextRunsIteratorSuite {
    ATEErr (*AddRef)(_TextRunsIterator* iterator);
    ATEErr (*Release)(_TextRunsIterator* iterator);
    ATEErr (*IsNotDone)(_TextRunsIterator* iterator, bool* isNotDone);
    ATEErr (*Next)(_TextRunsIterator* iterator);
    // The run of uniform attributes at the iterator.
    ATEErr (*Item)(_TextRunsIterator* iterator, _TextRange** run);
};

}  // namespace ATE
