#pragma once

#include "AISuites.h"
#include "ATESuites.h"
#include "SPBasicSuite.h"

namespace headless {

// The function tables of the suites that have operations. Each is defined in the file of its
// operations.

extern const ATE::TextFrameSuite kTextFrameTable;
extern const ATE::StorySuite kStoryTable;
extern const ATE::StoriesSuite kStoriesTable;
extern const ATE::TextRangeSuite kTextRangeTable;
extern const ATE::TextRangesSuite kTextRangesTable;
extern const ATE::TextRunsIteratorSuite kTextRunsIteratorTable;
extern const ATE::CharFeaturesSuite kCharFeaturesTable;
extern const ATE::CharInspectorSuite kCharInspectorTable;
extern const ATE::ArrayFontRefSuite kArrayFontRefTable;
extern const ATE::FontSuite kFontTable;

extern const AIArtSetSuite kArtSetTable;
extern const AIDocumentSuite kDocumentTable;
extern const AIFileFormatSuite kFileFormatTable;
extern const AIFilePathSuite kFilePathTable;
extern const AIFontSuite kFontsTable;
extern const AIMatchingArtSuite kMatchingArtTable;
extern const AIMdMemorySuite kMdMemoryTable;
extern const AIMenuSuite kMenuTable;
extern const AINotifierSuite kNotifierTable;
extern const AIPlacedSuite kPlacedTable;
extern const AITextFrameSuite kArtTextFrameTable;
extern const AITimerSuite kTimerTable;
extern const AIUnicodeStringSuite kUnicodeStringTable;
extern const SPBlocksSuite kBlocksTable;

// The suite that is part of every message. Not const, because the message's pointer isn't.
extern SPBasicSuite gBasicSuite;

}  // namespace headless
