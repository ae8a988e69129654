#include "documents/native/NativeTextTree.h"

#include <algorithm>
#include <utility>

#include "documents/native/TextTreeParser.h"

namespace documents {

namespace {

constexpr size_t kMostParents = 32;

const std::string* FindFontName(const ParsedTextTree& tree, long long index)
{
    if (index < 0 || static_cast<size_t>(index) >= tree.fonts.size()) return nullptr;
    const std::string& name = tree.fonts[static_cast<size_t>(index)];
    return name.empty() ? nullptr : &name;
}

// Null if neither the style nor one above it nor the document says which font.
const std::string* FindFont(const ParsedTextTree& tree, ParsedTextTree::Style style)
{
    for (size_t depth = 0; depth < kMostParents; ++depth) {
        if (style.font != ParsedTextTree::kNone) return FindFontName(tree, style.font);
        if (style.parent < 0 || static_cast<size_t>(style.parent) >= tree.styles.size()) break;
        style = tree.styles[static_cast<size_t>(style.parent)];
    }
    return FindFontName(tree, tree.defaultFont);
}

void AppendRun(const std::string& font, size_t length, std::vector<TextRun>& runs)
{
    if (length > 0) runs.push_back({font, length});
}

// Every story ends in a return that is no text of the user's.
void DropLastReturn(std::vector<ParsedTextTree::Run>& runs)
{
    while (!runs.empty() && runs.back().length == 0) runs.pop_back();
    if (!runs.empty() && --runs.back().length == 0) runs.pop_back();
}

std::vector<NativeTextTree::Portion> MakePortions(const ParsedTextTree::Story& story, size_t length)
{
    if (story.laid.empty()) return {};
    std::vector<NativeTextTree::Portion> portions(story.frames.size());
    size_t start = 0;
    for (const ParsedTextTree::Laid& laid : story.laid) {
        const auto place = std::find(story.frames.begin(), story.frames.end(), laid.frame);
        if (place == story.frames.end()) return {};
        NativeTextTree::Portion& portion =
            portions[static_cast<size_t>(place - story.frames.begin())];
        if (portion.length == 0) portion.start = start;
        start += laid.length;
        portion.length = start - portion.start;
    }
    // With the last return, which isn't counted in `length`.
    return start <= length + 1 ? portions : std::vector<NativeTextTree::Portion>();
}

}  // namespace

NativeTextTree::NativeTextTree(std::string_view bytes)
{
    ParsedTextTree tree = ParseTextTree(bytes);
    mStories.reserve(tree.stories.size());
    for (ParsedTextTree::Story& parsed : tree.stories) {
        DropLastReturn(parsed.runs);
        Story story;
        size_t length = 0;
        for (const ParsedTextTree::Run& run : parsed.runs) {
            length += run.length;
            const std::string* const font = FindFont(tree, run.style);
            if (font == nullptr) {
                ++mUnknownFonts;
            } else {
                AppendRun(*font, run.length, story.runs);
            }
        }
        // With text left out the layout's counts would fall on other runs.
        if (mUnknownFonts == 0) story.portions = MakePortions(parsed, length);
        mStories.push_back(std::move(story));
    }
}

std::vector<TextRun> NativeTextTree::GetFrameRuns(size_t index, size_t frame) const
{
    const Story& story = mStories[index];
    if (frame >= story.portions.size()) return story.runs;
    const size_t start = story.portions[frame].start;
    const size_t end = start + story.portions[frame].length;
    std::vector<TextRun> runs;
    size_t position = 0;
    for (const TextRun& run : story.runs) {
        const size_t from = std::max(start, position);
        const size_t to = std::min(end, position + run.length);
        if (from < to) AppendRun(run.postScriptName, to - from, runs);
        position += run.length;
    }
    return runs;
}

}  // namespace documents
