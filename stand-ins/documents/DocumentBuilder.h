#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "Document.h"

namespace documents {

// Fills a document's frames, stories and list of fonts, so that they always fit together. Font
// names that aren't valid UTF-8 are cleaned here. The document must outlive the builder and starts
// without text.
class DocumentBuilder {
public:
    // More runs than this throw LimitExceeded.
    static constexpr size_t kMaximumRuns = size_t{1} << 21;

    explicit DocumentBuilder(Document& document) : mDocument(document) {}

    // Both give the index of what was added. Runs of length 0 count as 1.
    size_t AddStory(std::vector<TextRun> runs);
    size_t AddFrame(size_t story, std::vector<TextRun> runs);

    // A frame that shows a story of its own.
    void AddFrameWithStory(std::vector<TextRun> runs);

private:
    void Clean(std::vector<TextRun>& runs);

    Document& mDocument;
    std::unordered_set<std::string> mFonts;
    size_t mRuns = 0;
};

}  // namespace documents
