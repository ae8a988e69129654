#pragma once

#include "AISuites.h"
#include "ATESuites.h"

// One global per row of the plug-in's suite table (SuiteTable.h), in the order of the rows. The
// wrappers call through them.
//
// Value     AcquireSuites sets it, at the first message; the shutdown makes it null again. It is
//           also null if the host refused the suite or one of an earlier row.
// Owner     The tables belong to the host. The globals exist as long as the process.
// Thread    [main-thread]; not guarded.
// void*     Such a suite is acquired and released but never called.

extern void* sApplicationPaint;
extern void* sCompFont;
extern void* sCompFontClass;
extern void* sCompFontClassSet;
extern void* sCompFontComponent;
extern void* sCompFontSet;
extern void* sGlyphRun;
extern void* sGlyphRunsIterator;
extern void* sMojiKumi;
extern void* sMojiKumiSet;
extern ATE::TextFrameSuite* sTextFrame;
extern void* sTextFramesIterator;
extern void* sTextLine;
extern void* sTextLinesIterator;
extern void* sTextResources;
extern void* sApplicationTextResources;
extern void* sDocumentTextResources;
extern void* sVersionInfo;
extern void* sArrayApplicationPaintRef;
extern void* sArrayReal;
extern void* sArrayBool;
extern void* sArrayInteger;
extern void* sArrayLineCapType;
extern void* sArrayFigureStyle;
extern void* sArrayLineJoinType;
extern void* sArrayWariChuJustification;
extern void* sArrayStyleRunAlignment;
extern void* sArrayAutoKernType;
extern void* sArrayBaselineDirection;
extern void* sArrayLanguage;
extern void* sArrayFontCapsOption;
extern void* sArrayFontBaselineOption;
extern void* sArrayFontOpenTypePositionOption;
extern void* sArrayUnderlinePosition;
extern void* sArrayStrikethroughPosition;
extern void* sArrayParagraphJustification;
extern void* sArrayArrayReal;
extern void* sArrayBurasagariType;
extern void* sArrayPreferredKinsokuOrder;
extern void* sArrayKinsokuRef;
extern void* sArrayMojiKumiRef;
extern void* sArrayMojiKumiSetRef;
extern void* sArrayTabStopsRef;
extern void* sArrayLeadingType;
extern ATE::ArrayFontRefSuite* sArrayFontRef;
extern void* sArrayGlyphID;
extern void* sArrayRealPoint;
extern void* sArrayRealMatrix;
extern void* sArrayParagraphDirection;
extern void* sArrayJustificationMethod;
extern void* sArrayKashidaWidth;
extern void* sArrayKashidas;
extern void* sArrayDirOverride;
extern void* sArrayDigitSet;
extern void* sArrayDiacVPos;
extern ATE::CharFeaturesSuite* sCharFeatures;
extern ATE::CharInspectorSuite* sCharInspector;
extern void* sCharStyle;
extern void* sCharStyles;
extern void* sCharStylesIterator;
extern void* sFind;
extern ATE::FontSuite* sFont;
extern void* sGlyph;
extern void* sGlyphs;
extern void* sGlyphsIterator;
extern void* sKinsoku;
extern void* sKinsokuSet;
extern void* sParaFeatures;
extern void* sParagraph;
extern void* sParagraphsIterator;
extern void* sParaInspector;
extern void* sParaStyle;
extern void* sParaStyles;
extern void* sParaStylesIterator;
extern void* sSpell;
extern ATE::StoriesSuite* sStories;
extern ATE::StorySuite* sStory;
extern void* sTabStop;
extern void* sTabStops;
extern void* sTabStopsIterator;
extern ATE::TextRangeSuite* sTextRange;
extern ATE::TextRangesSuite* sTextRanges;
extern void* sTextRangesIterator;
extern ATE::TextRunsIteratorSuite* sTextRunsIterator;
extern void* sWordsIterator;
extern void* sArrayLine;
extern void* sArrayComposerEngine;
extern AIFilePathSuite* sAIFilePath;
extern void* gUserSuite;
extern AIFontSuite* gFontSuite;
extern AINotifierSuite* gNotifierSuite;
extern AIMatchingArtSuite* sMatchingArt;
extern AIPlacedSuite* sPlacedSuite;
extern AITextFrameSuite* sTextFrameSuite;
extern SPBlocksSuite* sSPBlocks;
extern AIMdMemorySuite* sMdMemorySuite;
extern AIArtSetSuite* gArtSetSuite;
extern AIUnicodeStringSuite* sAIUnicodeString;
extern AIDocumentSuite* gDocumentSuite;
