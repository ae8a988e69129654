#pragma once

#include <cstdint>

// References to objects of the host's text engine. They are opaque and reference-counted: the
// caller of an operation that returns one owns one count and gives it back with Release of the
// reference's suite, see ATESuites.h.
//
// This is the plug-in's side of the boundary. The headless host declares the same types in its
// TextObjects.h on purpose: the two sides of a boundary are built apart and only share its layout.
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
