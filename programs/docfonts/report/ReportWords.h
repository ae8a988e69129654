#pragma once

#include "docfonts/report/DocumentReport.h"

// The words for states, as all outputs of the program have them.
namespace docfonts {

// "installed", "in the library", "only as another style" or "missing".
const char* GetWord(FontState state);

// "unknown", "no", "subset" or "whole".
const char* GetWord(Embedding embedding);

// "found", "moved" or "missing".
const char* GetWord(PlacedState state);

// Whether the font itself isn't here: missing, or here only as another style of its family.
bool IsMissing(const UsedFont& font);
bool IsMissing(const PlacedFile& file);

// Whether a font or placed file of the document, or of those that it places, is missing.
bool LacksAnything(const DocumentReport& report);

// Removes what is here from a report and from the documents that it places.
void KeepMissing(DocumentReport& report);

}  // namespace docfonts
