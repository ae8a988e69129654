#pragma once

#include <functional>
#include <string>
#include <vector>

#include "documents/write/WriteText.h"

// Documents back to bytes: what was opened, with what was added since.
namespace documents {

struct NativeAdditions;

// A text that was added, in the font of this name whether or not anybody has it.
struct AddedText {
    std::string postScriptName;
    std::string words;  // UTF-8
};

struct WriteOrder {
    // The file as it was opened; empty for a new document. Everything in it is kept.
    std::string base;
    std::vector<AddedText> texts;
    std::vector<std::string> fonts;        // all of the document, those of the base included
    std::vector<std::string> linkedFiles;  // likewise, repeats included
    std::vector<std::string> addedLinks;   // those that the base doesn't have
    std::string title;                     // of a new document

    // Where a font's file is; an empty path if the font is missing.
    std::function<FontFile(const std::string& postScriptName)> findFont;

    // What text in a missing font is drawn with. It keeps the name of its font.
    std::string substituteFont;
};

// The bytes of a PDF: the base's pages with the added text drawn on the first one, the placed files
// in the manifest of its metadata. The illustration program's own document in it stays as it is,
// and what was added is told beside it (see NativeAdditions.h). Throws std::exception with one
// line.
std::string WritePdf(const WriteOrder& order);

// The bytes of an EPS whose comments name all fonts and placed files, with what was added told
// beside a native part as well. Throws as above.
std::string WriteEps(const WriteOrder& order);

// What was added, as it is told beside a native part.
NativeAdditions MakeAdditions(const WriteOrder& order);

// The file of the wanted font, or of the substitute. Throws if there is neither.
FontFile ChooseFont(const WriteOrder& order, const std::string& postScriptName);

}  // namespace documents
