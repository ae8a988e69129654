#include "TextTreeParser.h"

#include <algorithm>

#include "DocumentBuilder.h"
#include "ReadBudget.h"

namespace documents {

namespace {

constexpr long long kMostCharacters = 1LL << 40;

// A key in its two forms.
struct Key {
    std::string_view number;
    std::string_view word;
    friend bool operator==(std::string_view key, const Key& wanted)
    {
        return key == wanted.number || key == wanted.word;
    }
};

constexpr Key kDocumentResources = {"0", "DocumentResources"};
constexpr Key kDocumentObjects = {"1", "DocumentObjects"};
constexpr Key kFontSet = {"1", "FontSet"};
constexpr Key kStyleSheetSet = {"5", "StyleSheetSet"};
constexpr Key kResources = {"0", "Resources"};
constexpr Key kResource = {"0", "Resource"};
constexpr Key kIdentifier = {"0", "Identifier"};
constexpr Key kName = {"0", "Name"};
constexpr Key kTextObjects = {"1", "TextObjects"};
constexpr Key kDefaultFeatures = {"2", "OriginalNormalStyleFeatures"};
constexpr Key kModel = {"0", "Model"};
constexpr Key kView = {"1", "View"};
constexpr Key kStyleRun = {"6", "StyleRun"};
constexpr Key kRunArray = {"0", "RunArray"};
constexpr Key kRunData = {"0", "RunData"};
constexpr Key kStyleSheet = {"0", "StyleSheet"};
constexpr Key kParent = {"5", "Parent"};
constexpr Key kFeatures = {"6", "Features"};
constexpr Key kFont = {"0", "Font"};
constexpr Key kLength = {"1", "Length"};

size_t ToLength(long long number)
{
    return static_cast<size_t>(std::clamp(number, 0LL, kMostCharacters));
}

class Parser {
public:
    explicit Parser(std::string_view tree) : mCursor(tree) {}

    ParsedTextTree Parse()
    {
        mCursor.ForEachTopEntry([this](std::string_view key) {
            if (key == kDocumentResources) ParseResources();
            if (key == kDocumentObjects) ParseObjects();
        });
        return std::move(mTree);
    }

private:
    using Style = ParsedTextTree::Style;

    void CountItem()
    {
        if (++mItems > DocumentBuilder::kMaximumRuns) {
            throw LimitExceeded("too large: more text than can be read");
        }
    }

    void ParseResources()
    {
        mCursor.ForEachEntry([this](std::string_view key) {
            if (key == kFontSet) {
                ParseList([this] { ParseFont(); });
            } else if (key == kStyleSheetSet) {
                ParseList([this] { mTree.styles.push_back(ParseStyle()); });
            }
        });
    }

    // Each resource of a set.
    template <class Resource>
    void ParseList(Resource resource)
    {
        mCursor.ForEachEntry([&](std::string_view key) {
            if (!(key == kResources)) return;
            mCursor.ForEachItem([&] {
                bool found = false;
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (!(part == kResource) || found) return;
                    CountItem();
                    found = true;
                    resource();
                });
            });
        });
    }

    void ParseFont()
    {
        std::string name;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (!(key == kIdentifier)) return;
            mCursor.ForEachEntry([&](std::string_view part) {
                if (part == kName) name = mCursor.TakeText();
            });
        });
        mTree.fonts.push_back(std::move(name));
    }

    Style ParseStyle()
    {
        Style style;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == kParent) {
                style.parent = mCursor.TakeNumber(ParsedTextTree::kNone);
            } else if (key == kFeatures) {
                style.font = ParseFeatures();
            }
        });
        return style;
    }

    long long ParseFeatures()
    {
        long long font = ParsedTextTree::kNone;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == kFont) font = mCursor.TakeNumber(ParsedTextTree::kNone);
        });
        return font;
    }

    void ParseObjects()
    {
        mCursor.ForEachEntry([this](std::string_view key) {
            if (key == kTextObjects) {
                mCursor.ForEachItem([this] { ParseStory(); });
            } else if (key == kDefaultFeatures) {
                mTree.defaultFont = ParseFeatures();
            }
        });
    }

    void ParseStory()
    {
        CountItem();
        ParsedTextTree::Story story;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == kModel) {
                ParseModel(story);
            } else if (key == kView) {
                ParseView(story);
            }
        });
        mTree.stories.push_back(std::move(story));
    }

    void ParseModel(ParsedTextTree::Story& story)
    {
        mCursor.ForEachEntry([&](std::string_view key) {
            if (!(key == kStyleRun)) return;
            mCursor.ForEachEntry([&](std::string_view part) {
                if (part == kRunArray) mCursor.ForEachItem([&] { ParseRun(story); });
            });
        });
    }

    void ParseRun(ParsedTextTree::Story& story)
    {
        CountItem();
        ParsedTextTree::Run run;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == kLength) {
                run.length = ToLength(mCursor.TakeNumber(0));
            } else if (key == kRunData) {
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (part == kStyleSheet) run.style = ParseStyle();
                });
            }
        });
        story.runs.push_back(run);
    }

    // The frames of a story, and how its text is laid out in them: a list of columns, each with the
    // frames, regions, lines and segments in it. The words for these keys aren't known, and a story
    // that is laid out in one frame doesn't need them.
    void ParseView(ParsedTextTree::Story& story)
    {
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == "0") {
                mCursor.ForEachItem([&] {
                    CountItem();
                    story.frames.push_back(ParsedTextTree::kNone);
                    mCursor.ForEachEntry([&](std::string_view part) {
                        if (part == "0") {
                            story.frames.back() = mCursor.TakeNumber(ParsedTextTree::kNone);
                        }
                    });
                });
            } else if (key == "2") {
                mCursor.ForEachItem([&] { ParsePiece(story, 0); });
            }
        });
    }

    // A piece of the layout: its kind in "99", the pieces in it in "6". Kind and frame stand before
    // the pieces.
    void ParsePiece(ParsedTextTree::Story& story, size_t depth)
    {
        constexpr size_t kMostDepth = 16;
        bool isFrame = false;
        bool isSegment = false;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == "99") {
                const std::string_view kind = mCursor.TakeName();
                isFrame = kind == "F";
                isSegment = kind == "S";
                if (isFrame) {
                    CountItem();
                    story.laid.emplace_back();
                }
            } else if (key == "10" && isFrame) {
                story.laid.back().frame = mCursor.TakeNumber(ParsedTextTree::kNone);
            } else if (key == "15" && isSegment) {
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (!(part == "0")) return;
                    const size_t length = ToLength(mCursor.TakeNumber(0));
                    if (!story.laid.empty()) story.laid.back().length += length;
                });
            } else if (key == "6" && !isSegment && depth < kMostDepth) {
                mCursor.ForEachItem([&] { ParsePiece(story, depth + 1); });
            }
        });
    }

    TextTreeCursor mCursor;
    ParsedTextTree mTree;
    size_t mItems = 0;
};

}  // namespace

ParsedTextTree ParseTextTree(std::string_view tree) { return Parser(tree).Parse(); }

}  // namespace documents
