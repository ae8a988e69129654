#pragma once

#include "ATETypes.h"

// The ten text engine suites that the plug-in calls, in the order of the host's tables. The other
// 77 are only acquired and released, so an empty table is enough for them. These rules apply to
// every operation unless its comment differs:
//
// Results     0, or an error code: kHostBadParameter for a null pointer, an unknown or expired
//             reference, or an index out of range. No operation throws.
// Outputs     Set on success only. A reference output has a count of one, which the caller gives
//             back with Release of the reference's own suite.
// AddRef      Adds one to the count of a reference.
// Release     Subtracts one; at 0 the reference becomes invalid. Never called with null.
// Lifetime    All references become invalid when the document is closed.
// Thread      [main-thread], while the plug-in handles a message and holds the suite.
namespace ATE {

// "ATE TextFrame Suite", version 101.
struct TextFrameSuite {
    ATEErr (*AddRef)(_TextFrame* frame);
    ATEErr (*Release)(_TextFrame* frame);
    // Returns the story that flows through the frame.
    ATEErr (*GetStory)(_TextFrame* frame, _Story** story);
};

// "ATE Story Suite", version 1.
struct StorySuite {
    ATEErr (*AddRef)(_Story* story);
    ATEErr (*Release)(_Story* story);
    // Returns all stories of the story's document.
    ATEErr (*GetStories)(_Story* story, _Stories** stories);
};

// "ATE Stories Suite", version 1.
struct StoriesSuite {
    ATEErr (*AddRef)(_Stories* stories);
    ATEErr (*Release)(_Stories* stories);
    // Returns the text of all these stories.
    ATEErr (*GetTextRanges)(_Stories* stories, _TextRanges** ranges);
};

// "ATE TextRanges Suite", version 1.
struct TextRangesSuite {
    ATEErr (*AddRef)(_TextRanges* ranges);
    ATEErr (*Release)(_TextRanges* ranges);
    // Returns an inspector, which reports the character attributes in all these ranges.
    ATEErr (*GetCharInspector)(_TextRanges* ranges, _CharInspector** inspector);
};

// "ATE CharInspector Suite", version 102.
struct CharInspectorSuite {
    ATEErr (*AddRef)(_CharInspector* inspector);
    ATEErr (*Release)(_CharInspector* inspector);
    // Returns the fonts used in the inspected ranges.
    ATEErr (*GetFont)(_CharInspector* inspector, _ArrayFontRef** fonts);
};

// "ATE ArrayFontRef Suite", version 1.
struct ArrayFontRefSuite {
    ATEErr (*AddRef)(_ArrayFontRef* fonts);
    ATEErr (*Release)(_ArrayFontRef* fonts);
    // Returns the number of fonts, which can include null fonts.
    ATEErr (*GetSize)(_ArrayFontRef* fonts, int* size);
    // Returns the font at `index`, from 0.
    ATEErr (*Item)(_ArrayFontRef* fonts, int index, _Font** font);
};

// "ATE Font Suite", version 1.
struct FontSuite {
    ATEErr (*AddRef)(_Font* font);
    ATEErr (*Release)(_Font* font);
    // Returns whether this is the null font, the font of text without a common font; true for an
    // invalid reference, too.
    bool (*IsNull)(_Font* font);
};

// "ATE TextRange Suite", version 1.
struct TextRangeSuite {
    ATEErr (*AddRef)(_TextRange* range);
    ATEErr (*Release)(_TextRange* range);
    // Returns an iterator at the first run of the range. A run is text with uniform attributes.
    ATEErr (*GetTextRunsIterator)(_TextRange* range, _TextRunsIterator** iterator);
    // Returns the character features that the whole range has in common.
    ATEErr (*GetUniqueCharFeatures)(_TextRange* range, _CharFeatures** features);
};

// "ATE CharFeatures Suite", version 102.
struct CharFeaturesSuite {
    ATEErr (*AddRef)(_CharFeatures* features);
    ATEErr (*Release)(_CharFeatures* features);
    // Returns the font; the null font if the features have none. Sets `isAssigned`, which may be
    // null, to whether they have one.
    ATEErr (*GetFont)(_CharFeatures* features, bool* isAssigned, _Font** font);
};

// "ATE TextRunsIterator Suite", version 1.
struct TextRunsIteratorSuite {
    ATEErr (*AddRef)(_TextRunsIterator* iterator);
    ATEErr (*Release)(_TextRunsIterator* iterator);
    // Returns true while the iterator is at a run, false behind the last one.
    ATEErr (*IsNotDone)(_TextRunsIterator* iterator, bool* isNotDone);
    // Moves to the next run. Fails behind the last one.
    ATEErr (*Next)(_TextRunsIterator* iterator);
    // Returns the run at the iterator. Fails behind the last one.
    ATEErr (*Item)(_TextRunsIterator* iterator, _TextRange** run);
};

}  // namespace ATE
