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

// Returns the font of the style, of its nearest parent that has one, or of the document; null if
// there is none. The limit ends a chain of parents that leads in a circle.
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

// Takes so many units of UTF-16, as which runs are measured, from the start of a text in UTF-8.
std::string_view TakeUnits(std::string_view& text, size_t units)
{
    size_t end = 0;
    for (size_t count = 0; end < text.size() && count < units; ++count) {
        const auto first = static_cast<unsigned char>(text[end]);
        if (first >= 0xf0) ++count;  // a pair of surrogates
        end += first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    }
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(taken.size());
    return taken;
}

// Removes the return that ends every story, which isn't part of the user's text.
void DropLastReturn(std::vector<ParsedTextTree::Run>& runs)
{
    while (!runs.empty() && runs.back().length == 0) runs.pop_back();
    if (!runs.empty() && --runs.back().length == 0) runs.pop_back();
}

// Returns what each frame of the story shows; empty if the layout is missing or contradicts the
// rest of the story. A frame can occur several times in the layout: its portion is from the first
// occurrence to the end of the last one. `length` is the length of the story's runs.
std::vector<NativeTextTree::Portion> MakePortions(const ParsedTextTree::Story& story, size_t length)
{
    if (story.layout.empty()) return {};
    std::vector<NativeTextTree::Portion> portions(story.frames.size());
    size_t start = 0;
    for (const ParsedTextTree::FrameText& text : story.layout) {
        const auto place = std::find(story.frames.begin(), story.frames.end(), text.frame);
        if (place == story.frames.end()) return {};
        NativeTextTree::Portion& portion =
            portions[static_cast<size_t>(place - story.frames.begin())];
        if (portion.length == 0) portion.start = start;
        start += text.length;
        portion.length = start - portion.start;
    }
    // +1: a story ends with a return that `length` doesn't include.
    return start <= length + 1 ? portions : std::vector<NativeTextTree::Portion>();
}

}  // namespace

NativeTextTree::NativeTextTree(std::string_view bytes, bool hasWords)
{
    ParsedTextTree tree = ParseTextTree(bytes, hasWords);
    mStories.reserve(tree.stories.size());
    for (ParsedTextTree::Story& parsed : tree.stories) {
        DropLastReturn(parsed.runs);
        Story story;
        size_t length = 0;
        std::string_view text = parsed.text;
        for (const ParsedTextTree::Run& run : parsed.runs) {
            length += run.length;
            const std::string_view part = TakeUnits(text, run.length);
            const std::string* const font = FindFont(tree, run.style);
            if (font == nullptr) {
                ++mUnknownFonts;
            } else {
                AppendRun(*font, run.length, story.runs);
                if (!part.empty()) story.words.push_back({*font, std::string(part)});
            }
        }
        // If a run was left out, the layout's lengths would select the wrong runs.
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
