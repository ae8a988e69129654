#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// The text of a native document of version 11 and later: all its stories, whatever shows them.
//
// A tree of dictionaries, whose keys are numbers, or words in version 11. Fonts stand in a list of
// their own, which holds more than are used; each run names its font, or its parent style's holds,
// or the document's default font.
class NativeTextTree {
public:
    // How many characters of a story one of its frames shows.
    struct Portion {
        size_t start = 0;
        size_t length = 0;
    };

    struct Story {
        std::vector<TextRun> runs;  // without the return that ends every story
        // By the frame's index in the story. Empty if the tree doesn't tell how the text is laid
        // out, or tells something that doesn't fit the runs.
        std::vector<Portion> portions;
    };

    // `tree` is only read here. Runs whose font isn't told at all count as `unknownFonts`, and are
    // left out.
    explicit NativeTextTree(std::string_view tree);

    const std::vector<Story>& GetStories() const { return mStories; }
    size_t GetUnknownFonts() const { return mUnknownFonts; }

    // The runs that the frame with this index in the story shows, without what no frame has room
    // for: all of them if the layout isn't known.
    std::vector<TextRun> GetFrameRuns(size_t story, size_t frame) const;

private:
    std::vector<Story> mStories;
    size_t mUnknownFonts = 0;
};

}  // namespace documents
