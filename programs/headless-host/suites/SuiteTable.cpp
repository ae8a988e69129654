#include "suites/SuiteTable.h"

#include <cstring>

#include "suites/SuiteTables.h"

namespace headless {

namespace {

// What a plug-in gets for a suite that it acquires but never calls.
struct EmptyTable {
    void (*noOperation)();
};

const EmptyTable kEmptyTables[kSuiteRowCount] = {};  // by the index of the row

}  // namespace

const SuiteRow kSuiteRows[kSuiteRowCount] = {
    {"ATE ApplicationPaint Suite", 1, nullptr},
    {"ATE CompFont Suite", 1, nullptr},
    {"ATE CompFontClass Suite", 1, nullptr},
    {"ATE CompFontClassSet Suite", 1, nullptr},
    {"ATE CompFontComponent Suite", 1, nullptr},
    {"ATE CompFontSet Suite", 1, nullptr},
    {"ATE GlyphRun Suite", 1, nullptr},
    {"ATE GlyphRunsIterator Suite", 1, nullptr},
    {"ATE MojiKumi Suite", 1, nullptr},
    {"ATE MojiKumiSet Suite", 1, nullptr},
    {"ATE TextFrame Suite", 101, &kTextFrameTable},
    {"ATE TextFramesIterator Suite", 1, nullptr},
    {"ATE TextLine Suite", 2, nullptr},
    {"ATE TextLinesIterator Suite", 1, nullptr},
    {"ATE TextResources Suite", 1, nullptr},
    {"ATE ApplicationTextResources Suite", 1, nullptr},
    {"ATE DocumentTextResources Suite", 101, nullptr},
    {"ATE VersionInfo Suite", 1, nullptr},
    {"ATE ArrayApplicationPaintRef Suite", 1, nullptr},
    {"ATE ArrayReal Suite", 1, nullptr},
    {"ATE ArrayBool Suite", 1, nullptr},
    {"ATE ArrayInteger Suite", 1, nullptr},
    {"ATE ArrayLineCapType Suite", 1, nullptr},
    {"ATE ArrayFigureStyle Suite", 1, nullptr},
    {"ATE ArrayLineJoinType Suite", 1, nullptr},
    {"ATE ArrayWariChuJustification Suite", 1, nullptr},
    {"ATE ArrayStyleRunAlignment Suite", 1, nullptr},
    {"ATE ArrayAutoKernType Suite", 1, nullptr},
    {"ATE ArrayBaselineDirection Suite", 1, nullptr},
    {"ATE ArrayLanguage Suite", 1, nullptr},
    {"ATE ArrayFontCapsOption Suite", 1, nullptr},
    {"ATE ArrayFontBaselineOption Suite", 1, nullptr},
    {"ATE ArrayFontOpenTypePositionOption Suite", 1, nullptr},
    {"ATE ArrayUnderlinePosition Suite", 1, nullptr},
    {"ATE ArrayStrikethroughPosition Suite", 1, nullptr},
    {"ATE ArrayParagraphJustification Suite", 1, nullptr},
    {"ATE ArrayArrayReal Suite", 1, nullptr},
    {"ATE ArrayBurasagariType Suite", 1, nullptr},
    {"ATE ArrayPreferredKinsokuOrder Suite", 1, nullptr},
    {"ATE ArrayKinsokuRef Suite", 1, nullptr},
    {"ATE ArrayMojiKumiRef Suite", 1, nullptr},
    {"ATE ArrayMojiKumiSetRef Suite", 1, nullptr},
    {"ATE ArrayTabStopsRef Suite", 1, nullptr},
    {"ATE ArrayLeadingType Suite", 1, nullptr},
    {"ATE ArrayFontRef Suite", 1, &kArrayFontRefTable},
    {"ATE ArrayGlyphID Suite", 1, nullptr},
    {"ATE ArrayRealPoint Suite", 1, nullptr},
    {"ATE ArrayRealMatrix Suite", 1, nullptr},
    {"ATE ArrayParagraphDirection Suite", 1, nullptr},
    {"ATE ArrayJustificationMethod Suite", 1, nullptr},
    {"ATE ArrayKashidaWidth Suite", 1, nullptr},
    {"ATE ArrayKashidas Suite", 1, nullptr},
    {"ATE ArrayDirOverride Suite", 1, nullptr},
    {"ATE ArrayDigitSet Suite", 1, nullptr},
    {"ATE ArrayDiacVPos Suite", 1, nullptr},
    {"ATE CharFeatures Suite", 102, &kCharFeaturesTable},
    {"ATE CharInspector Suite", 102, &kCharInspectorTable},
    {"ATE CharStyle Suite", 1, nullptr},
    {"ATE CharStyles Suite", 1, nullptr},
    {"ATE CharStylesIterator Suite", 1, nullptr},
    {"ATE Find Suite", 101, nullptr},
    {"ATE Font Suite", 1, &kFontTable},
    {"ATE Glyph Suite", 1, nullptr},
    {"ATE Glyphs Suite", 1, nullptr},
    {"ATE GlyphsIterator Suite", 1, nullptr},
    {"ATE Kinsoku Suite", 1, nullptr},
    {"ATE KinsokuSet Suite", 1, nullptr},
    {"ATE ParaFeatures Suite", 101, nullptr},
    {"ATE Paragraph Suite", 1, nullptr},
    {"ATE ParagraphsIterator Suite", 1, nullptr},
    {"ATE ParaInspector Suite", 101, nullptr},
    {"ATE ParaStyle Suite", 1, nullptr},
    {"ATE ParaStyles Suite", 1, nullptr},
    {"ATE ParaStylesIterator Suite", 1, nullptr},
    {"ATE Spell Suite", 102, nullptr},
    {"ATE Stories Suite", 1, &kStoriesTable},
    {"ATE Story Suite", 1, &kStoryTable},
    {"ATE TabStop Suite", 1, nullptr},
    {"ATE TabStops Suite", 1, nullptr},
    {"ATE TabStopsIterator Suite", 1, nullptr},
    {"ATE TextRange Suite", 1, &kTextRangeTable},
    {"ATE TextRanges Suite", 1, &kTextRangesTable},
    {"ATE TextRangesIterator Suite", 1, nullptr},
    {"ATE TextRunsIterator Suite", 1, &kTextRunsIteratorTable},
    {"ATE WordsIterator Suite", 1, nullptr},
    {"ATE ArrayLine Suite", 1, nullptr},
    {"ATE ArrayComposerEngine Suite", 1, nullptr},
    {"AI File Path Suite", 1006, &kFilePathTable},
    {"AI User Suite", 1017, nullptr},
    {"AI Font Suite", 1006, &kFontsTable},
    {"AI Notifier Suite", 1004, &kNotifierTable},
    {"AI Matching Art Suite", 1007, &kMatchingArtTable},
    {"AI Placed Suite", 1009, &kPlacedTable},
    {"AI Text Frame Suite", 1004, &kArtTextFrameTable},
    {"SP Blocks Suite", 2, &kBlocksTable},
    {"AI MdMemory Suite", 1003, &kMdMemoryTable},
    {"AI Art Set Suite", 1009, &kArtSetTable},
    {"AI Unicode String Suite", 1008, &kUnicodeStringTable},
    {"AI Document Suite", 1017, &kDocumentTable},
    {"AI File Format Suite", 1015, &kFileFormatTable},
    {"AI Menu Suite", 1011, &kMenuTable},
    {"AI Timer Suite", 1005, &kTimerTable},
};

const SuiteRow* FindSuiteRow(const char* name)
{
    for (const SuiteRow& row : kSuiteRows) {
        if (std::strcmp(row.name, name) == 0) return &row;
    }
    return nullptr;
}

const SuiteRow* FindSuiteRow(const char* name, int version)
{
    const SuiteRow* const row = FindSuiteRow(name);
    return row != nullptr && row->version == version ? row : nullptr;
}

const void* GetSuiteTable(const SuiteRow& row)
{
    return row.operations != nullptr ? row.operations : &kEmptyTables[&row - kSuiteRows];
}

}  // namespace headless
