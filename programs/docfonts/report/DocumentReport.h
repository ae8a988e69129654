#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// What is known of one document's fonts and placed files on this system. The texts are as found:
// paths and names can have any bytes, so whatever shows them escapes them.
namespace docfonts {

enum class FontState {
    kInstalled,   // fontconfig provides it
    kInLibrary,   // in the font manager's library, not active now
    kOtherStyle,  // only another style of its family is here
    kMissing,
};

enum class Embedding { kUnknown, kNo, kSubset, kWhole };

// One font that a document uses or lists.
struct UsedFont {
    std::string postScriptName;
    std::string family;  // of the font that was found; as guessed from the name otherwise
    std::string style;
    FontState state = FontState::kMissing;
    std::string otherStyle;  // PostScript name of the style that is here; empty in other states
    std::string file;        // that provides the font or its other style; empty if missing
    int faceIndex = 0;       // as in FreeType: face in the low 16 bits, instance (from 1) above
    // The text in it; all 0 if only a list or a comment names the font. Characters are an estimate
    // for some readers.
    uint64_t frames = 0;
    uint64_t runs = 0;
    uint64_t characters = 0;
    Embedding embedding = Embedding::kUnknown;  // in the PDF page
    std::string words;      // the document's own text in this font: UTF-8, at most kMostWordsBytes
    bool isListed = false;  // only the document's own list names it: no run has it
};

constexpr size_t kMostWordsBytes = 400;

enum class PlacedState {
    kFound,
    kMoved,  // not where the document says, but a file of this name is beside the document
    kMissing,
};

struct PlacedFile {
    std::string path;  // as in the document
    PlacedState state = PlacedState::kMissing;
    std::string foundAt;  // empty if missing
};

struct DocumentReport {
    std::string path;    // as the user gave it, or below the folder that the user gave
    std::string format;  // "ai", "pdf", "eps"; "unknown" if it isn't a document
    std::string error;   // one line without the path; empty if it was read
    std::vector<UsedFont> fonts;
    std::vector<PlacedFile> placed;
    // With --placed: all documents that it places, and those that these place, each once. Only the
    // outermost report has them, in the order in which they were found.
    std::vector<DocumentReport> placedDocuments;

    std::string reader;  // "native", "pdf", "dsc" or "ghostscript"
    std::string note;    // what could not be read
    std::string creator;
    bool isTemplate = false;
    uint64_t frames = 0;
    uint64_t stories = 0;
    uint64_t runs = 0;  // as the frames show them
};

}  // namespace docfonts
