#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// The stories of a native document of version 11 and later, with the font of each run resolved:
// the font that the run names, else that of its nearest parent style that names one, else the
// document's default font. The tree's own list of fonts isn't used: it holds fonts without any
// text.
class NativeTextTree {
public:
    // The part of a story that one of its frames shows, in characters.
    struct Portion {
        size_t start = 0;
        size_t length = 0;
    };

    // A part of the text, in one font.
    struct Words {
        std::string postScriptName;
        std::string text;  // UTF-8, control characters included
    };

    struct Story {
        std::vector<TextRun> runs;  // without the return that ends every story
        // By the frame's index in the story. Empty if the tree has no layout, or one that doesn't
        // fit the runs.
        std::vector<Portion> portions;
        std::vector<Words> words;  // only if they were asked for
    };

    // Parses the decoded text tree, which isn't needed afterwards. Leaves out runs whose font can't
    // be resolved and counts them. Throws LimitExceeded.
    //
    // hasWords   whether the stories get the words of their first characters
    explicit NativeTextTree(std::string_view tree, bool hasWords = false);

    const std::vector<Story>& GetStories() const { return mStories; }
    size_t GetUnknownFonts() const { return mUnknownFonts; }

    // Returns the runs that a frame of a story shows: a part of the story's, or all of them if the
    // layout isn't known. `story` must be an index into GetStories(); `frame` may be anything.
    std::vector<TextRun> GetFrameRuns(size_t story, size_t frame) const;

private:
    std::vector<Story> mStories;
    size_t mUnknownFonts = 0;
};

}  // namespace documents
