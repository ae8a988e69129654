#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// Adds frames and stories to a document and keeps its list of fonts consistent with them. Replaces
// invalid UTF-8 in font names, and leaves out runs whose font's name is none (see FontName.h). The
// document must outlive the builder and have no text at first.
class DocumentBuilder {
public:
    // A document with more runs than about this makes the functions below throw LimitExceeded.
    static constexpr size_t kMaximumRuns = size_t{1} << 21;

    explicit DocumentBuilder(Document& document) : mDocument(document) {}

    // Return the index of the new story or frame. A run of length 0 gets length 1.
    size_t AddStory(std::vector<TextRun> runs);
    size_t AddFrame(size_t story, std::vector<TextRun> runs);

    // Adds a story with these runs and a frame that shows all of it.
    void AddFrameWithStory(std::vector<TextRun> runs);

    // Adds text in a font to the document's words, unless they are complete. Replaces control
    // characters and invalid UTF-8.
    void AddWords(const std::string& postScriptName, std::string_view text);

    // Whether the words of a font are complete.
    bool HasWords(const std::string& postScriptName);

    // Sets the document's own list of fonts, without repeats and names that are none. Fonts of the
    // text so far that a list with names lacks get a note.
    void SetFontList(const std::vector<std::string>& names);

private:
    void NoteLongNames();
    // Corrects names and lengths, and enforces the limit.
    void Clean(std::vector<TextRun>& runs);

    Document& mDocument;
    std::unordered_set<std::string> mFonts;
    // The strings of the document's words, by the name as it is in the file, null if there is none
    // so far. Text comes in many short pieces, for each of which the name would be made valid.
    std::unordered_map<std::string, std::string*> mWords;
    size_t mRuns = 0;
    bool mHasLongNames = false;
};

}  // namespace documents
