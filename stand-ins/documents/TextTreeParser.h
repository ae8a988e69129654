#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TextTreeCursor.h"

namespace documents {

// What a text tree says of fonts and runs, as it stands there: indices into its own lists, which
// may lead nowhere.
struct ParsedTextTree {
    static constexpr long long kNone = -1;

    struct Style {
        long long font = kNone;
        long long parent = kNone;
    };
    struct Run {
        Style style;
        size_t length = 0;
    };
    struct Laid {
        long long frame = kNone;  // index into the tree's list of frames
        size_t length = 0;        // in characters
    };
    struct Story {
        std::vector<Run> runs;
        std::vector<long long> frames;  // indices into the tree's list of frames
        std::vector<Laid> laid;         // in the order of the text
    };

    std::vector<std::string> fonts;
    std::vector<Style> styles;
    long long defaultFont = kNone;
    std::vector<Story> stories;
};

// Throws LimitExceeded if the tree has more runs than can be kept.
ParsedTextTree ParseTextTree(std::string_view tree);

}  // namespace documents
