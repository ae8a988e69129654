#pragma once

#include <functional>
#include <string>
#include <vector>

#include "documents/write/WriteText.h"

// Writes a document that was opened, together with what was added to it since.
namespace documents {

struct NativeAdditions;

// A text that was added, in the font of this name. The font may be missing.
struct AddedText {
    std::string postScriptName;
    std::string words;  // UTF-8
};

struct WriteOrder {
    // The bytes of the file that was opened; empty for a new document. All of it is kept.
    std::string base;
    std::vector<AddedText> texts;
    std::vector<std::string> fonts;        // of the whole document, base included
    std::vector<std::string> linkedFiles;  // of the whole document, with repeats
    std::vector<std::string> addedLinks;   // those of linkedFiles that the base doesn't have
    std::string title;                     // of a new document

    // Returns the file of a font; an empty path if the font is missing.
    std::function<FontFile(const std::string& postScriptName)> findFont;

    // Font for drawing text whose font is missing. The text keeps the name of its own font.
    std::string substituteFont;
};

// Returns a PDF: the base's pages, with the added text drawn on the first one. A native part
// remains unchanged and gets NativeAdditions beside it, and the manifest of the metadata lists all
// placed files. Without a native part, the added placed files are stored as NativeAdditions and the
// metadata remains unchanged. Throws std::exception with a message of one line.
std::string WritePdf(const WriteOrder& order);

// Returns an EPS whose comments list all fonts and placed files. What was added to a base is also
// written as NativeAdditions. Throws as WritePdf does.
std::string WriteEps(const WriteOrder& order);

// Returns the additions of the order, in the form that is stored beside a native part.
NativeAdditions MakeAdditions(const WriteOrder& order);

// Returns the file of the font, or of the substitute font. Throws if neither can be used.
FontFile ChooseFont(const WriteOrder& order, const std::string& postScriptName);

}  // namespace documents
