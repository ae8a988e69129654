#pragma once

#include <string>
#include <vector>

#include "documents/OpenDocument.h"

// Writes small documents in the illustration program's native format. A story is a list of runs; a
// frame shows a story or a part of it. The keys of the text tree are numbers or words.
class NativeMaker {
public:
    enum class Keys { kNumbers, kWords };

    struct Run {
        int font = 0;    // index of the font; -1 for the font of the style
        int length = 0;  // in characters, with the return at the end
        int parent = 0;  // index of the style
    };

    explicit NativeMaker(Keys keys = Keys::kNumbers) : mKeys(keys) {}

    // Sets the document's fonts; the first one is the default.
    NativeMaker& SetFonts(std::vector<std::string> names);
    // Adds a style with this font, or with that of its parent if `font` is -1. Styles have the
    // indexes 0, 1 and so on.
    NativeMaker& AddStyle(int font, int parent = -1);
    // Adds a story. `portions` is the number of characters that each of its frames shows; without
    // it, the story has one frame.
    NativeMaker& AddStory(const std::vector<Run>& runs, const std::vector<int>& portions = {});
    // Adds a story of this text, with the return at the end, that has no list of runs.
    NativeMaker& AddPlainStory(const std::string& text, const std::vector<int>& portions = {});
    NativeMaker& AddFrame(int story, int frame = 0);
    // Adds lines to the art, unchanged.
    NativeMaker& AddLines(const std::string& lines);
    // Adds lines to the header.
    NativeMaker& AddHeader(const std::string& lines);

    std::string MakeTree() const;
    // Returns the whole document, with these line ends.
    std::string MakeText(const std::string& lineEnd = "\r") const;

private:
    NativeMaker& AddView(const std::vector<int>& portions);
    std::string Key(const char* number, const char* word) const;

    Keys mKeys;
    std::vector<std::string> mFonts;
    std::string mStyles;
    std::string mStories;
    std::string mArt;
    std::string mHeader;
    int mFrameCount = 0;
};

// Pack a native document, and wrap the packed document in a file. The page of the PDF shows
// Alpha-Regular.
std::string PackPlain(const std::string& text);
std::string PackZlib(const std::string& text);
std::string PackZstandard(const std::string& text);
std::string WrapInPdf(const std::string& native, size_t blocks = 3);
std::string WrapInEps(const std::string& native);
// As version 24 and later do: the document's lines up to its format mark are not packed.
std::string WrapInNewEps(const std::string& native);
std::string WrapInDosEps(const std::string& eps);

// Encodes `bytes` as lines that begin with a percent sign, with the end mark of ASCII85.
std::string EncodeAscii85(const std::string& bytes, const std::string& lineEnd = "\r");

// Opens the document, with CR as line end, packed with zlib, in a PDF.
documents::OpenResult OpenNative(const NativeMaker& maker);
