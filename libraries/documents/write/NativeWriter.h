#pragma once

#include <string>
#include <string_view>
#include <vector>

class QPDF;
class QPDFObjectHandle;

namespace documents {

// Writes documents in the native format that docs/NATIVE.md describes, as text: header, text tree
// and art with text frames and placed files. For new documents only: samples and tests. The host
// keeps the native part of a document that it saves (NativeAdditions.h).
//
// A story is a list of runs; a frame shows a story or a part of it. The keys of the text tree are
// numbers or words. Each function returns the writer itself.
class NativeWriter {
public:
    enum class Keys { kNumbers, kWords };

    struct Run {
        int font = 0;    // index of the font; -1 for the font of the style
        int length = 0;  // in characters, with the return at the end
        int parent = 0;  // index of the style
    };

    explicit NativeWriter(Keys keys = Keys::kNumbers) : mKeys(keys) {}

    // Sets the program of %%Creator.
    NativeWriter& SetCreator(std::string program);
    // Sets the fonts of the text tree; the first one is the default. Without a call, the document
    // has no text tree.
    NativeWriter& SetFonts(std::vector<std::string> names);
    // Adds a style with this font, or with that of its parent if `font` is -1. Styles have the
    // indexes 0, 1 and so on.
    NativeWriter& AddStyle(int font, int parent = -1);
    // Adds a story. `portions` is the number of characters that each of its frames shows; without
    // it, the story has one frame. `text` is ASCII, with a return at the end of each paragraph.
    NativeWriter& AddStory(const std::vector<Run>& runs, const std::vector<int>& portions = {},
                           std::string_view text = "a(b)");
    // Adds a story of this text, with the return at the end, that has no list of runs.
    NativeWriter& AddPlainStory(const std::string& text, const std::vector<int>& portions = {});
    NativeWriter& AddFrame(int story, int frame = 0);
    // Adds a placed file, once per placing.
    NativeWriter& AddPlacedFile(const std::string& path);
    // Adds lines to the art, unchanged.
    NativeWriter& AddLines(const std::string& lines);
    // Adds lines to the header.
    NativeWriter& AddHeader(const std::string& lines);

    std::string MakeTree() const;
    // Returns the whole document, with these line ends.
    std::string MakeText(const std::string& lineEnd = "\r") const;

private:
    NativeWriter& AddView(const std::vector<int>& portions);
    std::string Key(const char* number, const char* word) const;

    Keys mKeys;
    std::string mCreator = "Headless Host";
    std::vector<std::string> mFonts;
    std::string mStyles;
    std::string mStories;
    std::string mArt;
    std::string mHeader;
    int mFrameCount = 0;
};

// Return a document as it is stored in a PDF: by versions 12 to 23, and by version 24 and later.
std::string PackZlib(const std::string& text);
std::string PackZstandard(const std::string& text);

// Stores a packed document as the native part of a page of `pdf`, in blocks of the size that the
// illustration program uses. Equal arguments give equal bytes.
void AttachNativePart(QPDF& pdf, QPDFObjectHandle page, const std::string& packed);

}  // namespace documents
