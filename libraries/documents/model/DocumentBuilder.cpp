#include "documents/model/DocumentBuilder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/Strings.h"
#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/FontName.h"

namespace documents {

namespace {

// Returns so many whole characters from the start of a text in UTF-8 as have at most `size` bytes.
std::string_view CutText(std::string_view text, size_t size)
{
    if (text.size() <= size) return text;
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xc0) == 0x80) --size;
    return text.substr(0, size);
}

// Of most names, which are valid UTF-8 then.
bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

size_t DocumentBuilder::AddStory(std::vector<TextRun> runs)
{
    Clean(runs);
    for (const TextRun& run : runs) {
        if (mFonts.insert(run.postScriptName).second) {
            mDocument.fonts.push_back(run.postScriptName);
        }
    }
    mDocument.stories.push_back({std::move(runs)});
    return mDocument.stories.size() - 1;
}

size_t DocumentBuilder::AddFrame(size_t story, std::vector<TextRun> runs)
{
    Clean(runs);
    mDocument.frames.push_back({story, std::move(runs)});
    return mDocument.frames.size() - 1;
}

void DocumentBuilder::AddFrameWithStory(std::vector<TextRun> runs)
{
    const size_t story = AddStory(std::move(runs));
    (void)AddFrame(story, mDocument.stories[story].runs);  // the index isn't needed
}

bool DocumentBuilder::HasWords(const std::string& postScriptName)
{
    const auto [place, isNew] = mWords.try_emplace(postScriptName, nullptr);
    if (isNew) {
        const auto found = mDocument.words.find(base::ToValidUtf8(postScriptName));
        if (found != mDocument.words.end()) place->second = &found->second;
    }
    const std::string* const words = place->second;
    return words != nullptr && words->size() + 1 >= Document::kMostWordsBytes;
}

void DocumentBuilder::AddWords(const std::string& postScriptName, std::string_view text)
{
    if (!IsFontName(postScriptName)) return;
    std::string*& kept = mWords[postScriptName];
    // The strings of a map keep their places.
    if (kept == nullptr) kept = &mDocument.words[base::ToValidUtf8(postScriptName)];
    std::string& words = *kept;
    if (words.size() + 1 >= Document::kMostWordsBytes) return;
    std::string added = base::ToValidUtf8(CutText(text, Document::kMostWordsBytes));
    for (char& c : added) {
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = ' ';
    }
    added = base::Trim(added);
    if (added.empty()) return;
    if (!words.empty()) words += ' ';
    words += added;
    words.resize(CutText(words, Document::kMostWordsBytes).size());
}

void DocumentBuilder::SetFontList(const std::vector<std::string>& names)
{
    std::unordered_set<std::string> listed;
    for (const std::string& name : names) {
        if (!IsFontName(name)) {
            NoteLongNames();
            continue;
        }
        std::string valid = base::ToValidUtf8(name);
        if (listed.insert(valid).second) mDocument.fontList.push_back(std::move(valid));
    }
    if (listed.empty()) return;
    constexpr size_t kMostNamed = 3;
    size_t count = 0;
    std::string unlisted;
    for (const std::string& font : mDocument.fonts) {
        if (listed.count(font) != 0 || ++count > kMostNamed) continue;
        unlisted += (unlisted.empty() ? "" : ", ") + font;
    }
    if (count == 0) return;
    if (count > kMostNamed) unlisted += " and " + std::to_string(count - kMostNamed) + " more";
    mDocument.notes.push_back("fonts of its text that its own list of fonts lacks: " + unlisted);
}

void DocumentBuilder::NoteLongNames()
{
    if (mHasLongNames) return;
    mHasLongNames = true;
    mDocument.notes.push_back("font names that are empty or have more than " +
                              std::to_string(kMostFontNameBytes) + " bytes are left out");
}

void DocumentBuilder::Clean(std::vector<TextRun>& runs)
{
    // Stories and frames are counted too, because an empty one needs memory. A run is counted
    // twice: in its story and in a frame.
    mRuns += runs.size() + 1;
    if (mRuns > kMaximumRuns * 2) throw LimitExceeded("too large: more text than can be read");
    const auto named = std::remove_if(runs.begin(), runs.end(), [](const TextRun& run) {
        return !IsFontName(run.postScriptName);
    });
    if (named != runs.end()) NoteLongNames();
    runs.erase(named, runs.end());
    for (TextRun& run : runs) {
        if (!IsAscii(run.postScriptName)) {
            run.postScriptName = base::ToValidUtf8(run.postScriptName);
        }
        run.length = std::max<size_t>(run.length, 1);
    }
}

}  // namespace documents
