#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// The fonts, text frames and placed files of a document on disk.
//
// All strings are valid UTF-8; invalid bytes of a file are replaced by U+FFFD. A Document is a
// plain value.
namespace documents {

enum class Kind { kUnknown, kIllustrator, kPDF, kEPS };

// Returns "unknown", "ai", "pdf" or "eps".
const char* GetKindName(Kind kind);

// Consecutive characters in one font.
struct TextRun {
    std::string postScriptName;
    size_t length = 0;  // in characters, an estimate for some readers; never 0
};

// A text frame. Several frames may show parts of one story.
struct TextFrame {
    size_t story = 0;  // index into Document::stories
    std::vector<TextRun> runs;
};

// All the text that flows through one or more frames.
struct Story {
    std::vector<TextRun> runs;
};

// How much of a font's program is in the file.
enum class Embedding { kUnknown, kNo, kSubset, kWhole };

// A font of a PDF's pages. The pages of an .ai file are a copy of the document for other programs.
struct PageFont {
    std::string postScriptName;
    Embedding embedding = Embedding::kUnknown;
};

struct Document {
    Kind kind = Kind::kUnknown;
    std::string creator;             // the program that wrote it; empty if unknown
    bool isTemplate = false;         // the extension is .ait, in upper or lower case
    std::string reader;              // the reader used: "native", "pdf", "dsc" or "ghostscript"
    std::vector<std::string> notes;  // what could not be read, one line each
    std::vector<TextFrame> frames;   // in paint order
    std::vector<Story> stories;
    std::vector<std::string> fonts;        // of all stories, without repeats, by first appearance
    std::vector<std::string> linkedFiles;  // placed files in order, repeats included

    // The fonts that the illustration program lists in the header of its own document, without
    // repeats; empty if there is no such list. It includes fonts of frames that hold nothing but a
    // return, which have no run: the program misses them when it opens the document. Lists in other
    // containers aren't the document's own: an EPS, also one around a native part, names what its
    // drawing code needs or an interpreter has. The reader of those comments takes their names as
    // text, a PDF has none.
    std::vector<std::string> fontList;

    // The rest is empty without Limits::hasDetails.

    // In the file's PDF pages, by first appearance; empty if it isn't a PDF.
    std::vector<PageFont> pageFonts;

    // The first words of the text in each font, by its PostScript name: without control characters,
    // at most kMostWordsBytes each. Not all readers know the text.
    static constexpr size_t kMostWordsBytes = 400;
    std::map<std::string, std::string> words;
};

struct DocumentFont {
    std::string postScriptName;
    bool isListed = false;  // only in Document::fontList: no run has it
};

// Returns every font that a program must have to open the document, each once: Document::fonts,
// then the others of fontList, each in its order.
std::vector<DocumentFont> GetAllFonts(const Document& document);

// Returns the names of GetAllFonts.
std::vector<std::string> GetAllFontNames(const Document& document);

// Returns the notes in one line, separated by "; ".
std::string JoinNotes(const Document& document);

}  // namespace documents
