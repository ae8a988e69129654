#pragma once

#include <string>
#include <vector>

#include "documents/OpenDocument.h"

// Writes small documents in the illustration program's own format. A story is a list of runs; a
// frame shows one of them. The text tree has its keys as numbers, or as words.
class NativeMaker {
public:
    enum class Keys { kNumbers, kWords };

    struct Run {
        int font = 0;    // index of a font; -1: none of its own
        int length = 0;  // with the last return
        int parent = 0;  // the style that it has its font from otherwise
    };

    explicit NativeMaker(Keys keys = Keys::kNumbers) : mKeys(keys) {}

    // The document's fonts; the first one is the default.
    NativeMaker& SetFonts(std::vector<std::string> names);
    // A style whose font is this one; its index is the number of styles before it.
    NativeMaker& AddStyle(int font, int parent = -1);
    // `portions`: how many characters each of its frames shows; one frame if there are none.
    NativeMaker& AddStory(const std::vector<Run>& runs, const std::vector<int>& portions = {});
    NativeMaker& AddFrame(int story, int frame = 0);
    // What stands in the art as it is, line by line.
    NativeMaker& AddLines(const std::string& lines);
    // Lines of the header.
    NativeMaker& AddHeader(const std::string& lines);

    std::string MakeTree() const;
    // The whole document, with these line ends.
    std::string MakeText(const std::string& lineEnd = "\r") const;

private:
    std::string Key(const char* number, const char* word) const;

    Keys mKeys;
    std::vector<std::string> mFonts;
    std::string mStyles;
    std::string mStories;
    std::string mArt;
    std::string mHeader;
    int mFrameCount = 0;
};

// What a document stands in. The PDF page around it shows Alpha-Regular.
std::string PackPlain(const std::string& text);
std::string PackZlib(const std::string& text);
std::string PackZstandard(const std::string& text);
std::string WrapInPdf(const std::string& native, size_t blocks = 3);
std::string WrapInEps(const std::string& native);
std::string WrapInDosEps(const std::string& eps);

// Lines that begin with a percent sign, with the end mark.
std::string EncodeAscii85(const std::string& bytes, const std::string& lineEnd = "\r");

// The document as zlib-packed .ai with line ends of CR.
documents::OpenResult OpenNative(const NativeMaker& maker);
