#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

// The parts of a text tree that determine the fonts of runs, as in the file: every index may be
// out of range.
struct ParsedTextTree {
    static constexpr long long kNone = -1;

    struct Style {
        long long font = kNone;    // index into `fonts`
        long long parent = kNone;  // index into `styles`
    };
    struct Run {
        Style style;
        size_t length = 0;  // in characters
    };
    struct FrameText {            // text that the layout puts into a frame
        long long frame = kNone;  // the frame's number in the document
        size_t length = 0;        // in characters
    };
    struct Story {
        std::vector<Run> runs;  // one of the whole text if the story has no list of runs
        // The frames' numbers in the document, by the frame's index in the story.
        std::vector<long long> frames;
        std::vector<FrameText> layout;  // in the order of the text
        std::string text;               // the start of it in UTF-8; only if it was asked for
    };

    std::vector<std::string> fonts;  // PostScript names, used or not
    std::vector<Style> styles;
    long long defaultFont = kNone;  // index into `fonts`
    std::vector<Story> stories;
};

// Parses a decoded text tree. Returns what could be read of a damaged tree. Throws LimitExceeded
// if the tree has too many runs.
//
// hasTexts   whether the stories get their texts
ParsedTextTree ParseTextTree(std::string_view tree, bool hasTexts = false);

}  // namespace documents
