#pragma once

#include <cstddef>
#include <string>
#include <vector>

// What a document on disk holds, as far as fonts and placed files go.
//
// All texts are UTF-8; bytes of a file that aren't are replaced. A Document is a plain value.
namespace documents {

enum class Kind { kUnknown, kIllustrator, kPDF, kEPS };

// "unknown", "ai", "pdf", "eps".
const char* GetKindName(Kind kind);

// A stretch of text in one font.
struct TextRun {
    std::string postScriptName;
    size_t length = 0;  // in characters, as far as the reader can count them; never 0
};

// One frame of text in paint order. Several frames may show one story.
struct TextFrame {
    size_t story = 0;  // index into Document::stories
    std::vector<TextRun> runs;
};

// All the text that flows through one or more frames.
struct Story {
    std::vector<TextRun> runs;
};

struct Document {
    Kind kind = Kind::kUnknown;
    std::string creator;             // the program that wrote it, empty if it doesn't say
    bool isTemplate = false;         // told by the extension .ait, in any case of letters
    std::string reader;              // which reader answered: "native", "pdf", "dsc", "ghostscript"
    std::vector<std::string> notes;  // what a reader couldn't make use of, a line each
    std::vector<TextFrame> frames;
    std::vector<Story> stories;
    std::vector<std::string> fonts;        // over all stories, each once, by first appearance
    std::vector<std::string> linkedFiles;  // placed files in order, repeats included
};

// The notes in one line.
std::string JoinNotes(const Document& document);

}  // namespace documents
