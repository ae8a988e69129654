#include "suites/SuiteTable.h"

#include <cstring>

#include "suites/SuiteTables.h"

namespace headless {

namespace {

constexpr size_t kEmptyTableCount = 78;

// A table without functions, one per suite that is acquired and never called: each suite has an
// address of its own.
struct EmptyTable {
    void (*unanswered)();
};

const EmptyTable kEmptyTables[kEmptyTableCount] = {};

}  // namespace

const SuiteRow kSuiteRows[kSuiteRowCount] = {
    {"ATE ApplicationPaint Suite", 1, &kEmptyTables[0], false},
    {"ATE CompFont Suite", 1, &kEmptyTables[1], false},
    {"ATE CompFontClass Suite", 1, &kEmptyTables[2], false},
    {"ATE CompFontClassSet Suite", 1, &kEmptyTables[3], false},
    {"ATE CompFontComponent Suite", 1, &kEmptyTables[4], false},
    {"ATE CompFontSet Suite", 1, &kEmptyTables[5], false},
    {"ATE GlyphRun Suite", 1, &kEmptyTables[6], false},
    {"ATE GlyphRunsIterator Suite", 1, &kEmptyTables[7], false},
    {"ATE MojiKumi Suite", 1, &kEmptyTables[8], false},
    {"ATE MojiKumiSet Suite", 1, &kEmptyTables[9], false},
    {"ATE TextFrame Suite", 101, &kTextFrameTable, true},
    {"ATE TextFramesIterator Suite", 1, &kEmptyTables[10], false},
    {"ATE TextLine Suite", 2, &kEmptyTables[11], false},
    {"ATE TextLinesIterator Suite", 1, &kEmptyTables[12], false},
    {"ATE TextResources Suite", 1, &kEmptyTables[13], false},
    {"ATE ApplicationTextResources Suite", 1, &kEmptyTables[14], false},
    {"ATE DocumentTextResources Suite", 101, &kEmptyTables[15], false},
    {"ATE VersionInfo Suite", 1, &kEmptyTables[16], false},
    {"ATE ArrayApplicationPaintRef Suite", 1, &kEmptyTables[17], false},
    {"ATE ArrayReal Suite", 1, &kEmptyTables[18], false},
    {"ATE ArrayBool Suite", 1, &kEmptyTables[19], false},
    {"ATE ArrayInteger Suite", 1, &kEmptyTables[20], false},
    {"ATE ArrayLineCapType Suite", 1, &kEmptyTables[21], false},
    {"ATE ArrayFigureStyle Suite", 1, &kEmptyTables[22], false},
    {"ATE ArrayLineJoinType Suite", 1, &kEmptyTables[23], false},
    {"ATE ArrayWariChuJustification Suite", 1, &kEmptyTables[24], false},
    {"ATE ArrayStyleRunAlignment Suite", 1, &kEmptyTables[25], false},
    {"ATE ArrayAutoKernType Suite", 1, &kEmptyTables[26], false},
    {"ATE ArrayBaselineDirection Suite", 1, &kEmptyTables[27], false},
    {"ATE ArrayLanguage Suite", 1, &kEmptyTables[28], false},
    {"ATE ArrayFontCapsOption Suite", 1, &kEmptyTables[29], false},
    {"ATE ArrayFontBaselineOption Suite", 1, &kEmptyTables[30], false},
    {"ATE ArrayFontOpenTypePositionOption Suite", 1, &kEmptyTables[31], false},
    {"ATE ArrayUnderlinePosition Suite", 1, &kEmptyTables[32], false},
    {"ATE ArrayStrikethroughPosition Suite", 1, &kEmptyTables[33], false},
    {"ATE ArrayParagraphJustification Suite", 1, &kEmptyTables[34], false},
    {"ATE ArrayArrayReal Suite", 1, &kEmptyTables[35], false},
    {"ATE ArrayBurasagariType Suite", 1, &kEmptyTables[36], false},
    {"ATE ArrayPreferredKinsokuOrder Suite", 1, &kEmptyTables[37], false},
    {"ATE ArrayKinsokuRef Suite", 1, &kEmptyTables[38], false},
    {"ATE ArrayMojiKumiRef Suite", 1, &kEmptyTables[39], false},
    {"ATE ArrayMojiKumiSetRef Suite", 1, &kEmptyTables[40], false},
    {"ATE ArrayTabStopsRef Suite", 1, &kEmptyTables[41], false},
    {"ATE ArrayLeadingType Suite", 1, &kEmptyTables[42], false},
    {"ATE ArrayFontRef Suite", 1, &kArrayFontRefTable, true},
    {"ATE ArrayGlyphID Suite", 1, &kEmptyTables[43], false},
    {"ATE ArrayRealPoint Suite", 1, &kEmptyTables[44], false},
    {"ATE ArrayRealMatrix Suite", 1, &kEmptyTables[45], false},
    {"ATE ArrayParagraphDirection Suite", 1, &kEmptyTables[46], false},
    {"ATE ArrayJustificationMethod Suite", 1, &kEmptyTables[47], false},
    {"ATE ArrayKashidaWidth Suite", 1, &kEmptyTables[48], false},
    {"ATE ArrayKashidas Suite", 1, &kEmptyTables[49], false},
    {"ATE ArrayDirOverride Suite", 1, &kEmptyTables[50], false},
    {"ATE ArrayDigitSet Suite", 1, &kEmptyTables[51], false},
    {"ATE ArrayDiacVPos Suite", 1, &kEmptyTables[52], false},
    {"ATE CharFeatures Suite", 102, &kCharFeaturesTable, true},
    {"ATE CharInspector Suite", 102, &kCharInspectorTable, true},
    {"ATE CharStyle Suite", 1, &kEmptyTables[53], false},
    {"ATE CharStyles Suite", 1, &kEmptyTables[54], false},
    {"ATE CharStylesIterator Suite", 1, &kEmptyTables[55], false},
    {"ATE Find Suite", 101, &kEmptyTables[56], false},
    {"ATE Font Suite", 1, &kFontTable, true},
    {"ATE Glyph Suite", 1, &kEmptyTables[57], false},
    {"ATE Glyphs Suite", 1, &kEmptyTables[58], false},
    {"ATE GlyphsIterator Suite", 1, &kEmptyTables[59], false},
    {"ATE Kinsoku Suite", 1, &kEmptyTables[60], false},
    {"ATE KinsokuSet Suite", 1, &kEmptyTables[61], false},
    {"ATE ParaFeatures Suite", 101, &kEmptyTables[62], false},
    {"ATE Paragraph Suite", 1, &kEmptyTables[63], false},
    {"ATE ParagraphsIterator Suite", 1, &kEmptyTables[64], false},
    {"ATE ParaInspector Suite", 101, &kEmptyTables[65], false},
    {"ATE ParaStyle Suite", 1, &kEmptyTables[66], false},
    {"ATE ParaStyles Suite", 1, &kEmptyTables[67], false},
    {"ATE ParaStylesIterator Suite", 1, &kEmptyTables[68], false},
    {"ATE Spell Suite", 102, &kEmptyTables[69], false},
    {"ATE Stories Suite", 1, &kStoriesTable, true},
    {"ATE Story Suite", 1, &kStoryTable, true},
    {"ATE TabStop Suite", 1, &kEmptyTables[70], false},
    {"ATE TabStops Suite", 1, &kEmptyTables[71], false},
    {"ATE TabStopsIterator Suite", 1, &kEmptyTables[72], false},
    {"ATE TextRange Suite", 1, &kTextRangeTable, true},
    {"ATE TextRanges Suite", 1, &kTextRangesTable, true},
    {"ATE TextRangesIterator Suite", 1, &kEmptyTables[73], false},
    {"ATE TextRunsIterator Suite", 1, &kTextRunsIteratorTable, true},
    {"ATE WordsIterator Suite", 1, &kEmptyTables[74], false},
    {"ATE ArrayLine Suite", 1, &kEmptyTables[75], false},
    {"ATE ArrayComposerEngine Suite", 1, &kEmptyTables[76], false},
    {"AI File Path Suite", 1006, &kFilePathTable, true},
    {"AI User Suite", 1017, &kEmptyTables[77], false},
    {"AI Font Suite", 1006, &kFontsTable, true},
    {"AI Notifier Suite", 1004, &kNotifierTable, true},
    {"AI Matching Art Suite", 1007, &kMatchingArtTable, true},
    {"AI Placed Suite", 1009, &kPlacedTable, true},
    {"AI Text Frame Suite", 1004, &kArtTextFrameTable, true},
    {"SP Blocks Suite", 2, &kBlocksTable, true},
    {"AI MdMemory Suite", 1003, &kMdMemoryTable, true},
    {"AI Art Set Suite", 1009, &kArtSetTable, true},
    {"AI Unicode String Suite", 1008, &kUnicodeStringTable, true},
    {"AI Document Suite", 1017, &kDocumentTable, true},
    {"AI File Format Suite", 1015, &kFileFormatTable, true},
    {"AI Menu Suite", 1011, &kMenuTable, true},
    {"AI Timer Suite", 1005, &kTimerTable, true},
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

}  // namespace headless
