#pragma once

#include <cstdint>

// References of the host's text engine. Each is counted: whoever is given one owns one count and
// gives it back with the Release of the suite that speaks of it.
namespace ATE {

typedef int32_t ATEErr;

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
