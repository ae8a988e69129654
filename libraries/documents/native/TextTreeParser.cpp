#include "documents/native/TextTreeParser.h"

#include <algorithm>

#include "documents/bytes/ReadBudget.h"
#include "documents/model/DocumentBuilder.h"
#include "documents/model/FontName.h"
#include "documents/native/NativeKeys.h"
#include "documents/native/TextTreeCursor.h"

namespace documents {

namespace {

constexpr long long kMostCharacters = 1LL << 40;

// Clamps a number from the file, so that sums of lengths can't overflow.
size_t ToLength(long long number)
{
    return static_cast<size_t>(std::clamp(number, 0LL, kMostCharacters));
}

class Parser {
public:
    Parser(std::string_view tree, bool hasTexts) : mCursor(tree), mHasTexts(hasTexts) {}

    ParsedTextTree Parse()
    {
        mCursor.ForEachTopEntry([this](std::string_view key) {
            if (key == treekey::kDocumentResources) ParseResources();
            if (key == treekey::kDocumentObjects) ParseObjects();
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
            if (key == treekey::kFontSet) {
                ParseList([this] { ParseFont(); });
            } else if (key == treekey::kStyleSheetSet) {
                ParseList([this] { mTree.styles.push_back(ParseStyle()); });
            }
        });
    }

    // Calls `resource` for each item of a set, with the cursor at the item's dictionary.
    template <class Resource>
    void ParseList(Resource resource)
    {
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key != treekey::kResources) return;
            mCursor.ForEachItem([&] {
                bool found = false;
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (part != treekey::kResource || found) return;
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
            if (key != treekey::kIdentifier) return;
            mCursor.ForEachEntry([&](std::string_view part) {
                if (part == treekey::kName) name = CutFontName(mCursor.TakeText());
            });
        });
        mTree.fonts.push_back(std::move(name));
    }

    Style ParseStyle()
    {
        Style style;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kParent) {
                style.parent = mCursor.TakeNumber(ParsedTextTree::kNone);
            } else if (key == treekey::kFeatures) {
                style.font = ParseFeatures();
            }
        });
        return style;
    }

    long long ParseFeatures()
    {
        long long font = ParsedTextTree::kNone;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kFont) font = mCursor.TakeNumber(ParsedTextTree::kNone);
        });
        return font;
    }

    void ParseObjects()
    {
        mCursor.ForEachEntry([this](std::string_view key) {
            if (key == treekey::kTextObjects) {
                mCursor.ForEachItem([this] { ParseStory(); });
            } else if (key == treekey::kDefaultFeatures) {
                mTree.defaultFont = ParseFeatures();
            }
        });
    }

    void ParseStory()
    {
        CountItem();
        ParsedTextTree::Story story;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kModel) {
                ParseModel(story);
            } else if (key == treekey::kView) {
                ParseView(story);
            }
        });
        mTree.stories.push_back(std::move(story));
    }

    void ParseModel(ParsedTextTree::Story& story)
    {
        TextTreeCursor text("");
        bool hasStyleRun = false;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kStoryText) text = mCursor;  // remembers the place, takes nothing
            if (key != treekey::kStyleRun) return;
            hasStyleRun = true;
            mCursor.ForEachEntry([&](std::string_view part) {
                if (part == treekey::kRunArray) mCursor.ForEachItem([&] { ParseRun(story); });
            });
        });
        if (mHasTexts) story.text = TextTreeCursor(text).TakeText();
        if (hasStyleRun) return;
        // Text whose characters nobody has styled: one run, in the font of no style.
        CountItem();
        ParsedTextTree::Run run;
        run.length = ToLength(static_cast<long long>(text.TakeTextLength()));
        story.runs.push_back(run);
    }

    void ParseRun(ParsedTextTree::Story& story)
    {
        CountItem();
        ParsedTextTree::Run run;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kLength) {
                run.length = ToLength(mCursor.TakeNumber(0));
            } else if (key == treekey::kRunData) {
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (part == treekey::kStyleSheet) run.style = ParseStyle();
                });
            }
        });
        story.runs.push_back(run);
    }

    // Parses the frames of a story and how its text is laid out in them: a list of columns, each
    // with the frames, regions, lines and segments in it. The words for these keys are unknown, so
    // the layout of version 11 isn't read: there each frame shows its whole story.
    void ParseView(ParsedTextTree::Story& story)
    {
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kFrames) {
                mCursor.ForEachItem([&] {
                    CountItem();
                    story.frames.push_back(ParsedTextTree::kNone);
                    mCursor.ForEachEntry([&](std::string_view part) {
                        if (part == treekey::kFrameNumber) {
                            story.frames.back() = mCursor.TakeNumber(ParsedTextTree::kNone);
                        }
                    });
                });
            } else if (key == treekey::kLayout) {
                mCursor.ForEachItem([&] { ParsePiece(story, 0); });
            }
        });
    }

    // Parses a piece of the layout and the pieces in it. Relies on the order of the keys: the kind
    // and the frame come before the pieces.
    void ParsePiece(ParsedTextTree::Story& story, size_t depth)
    {
        constexpr size_t kMostDepth = 16;
        bool isFrame = false;
        bool isSegment = false;
        mCursor.ForEachEntry([&](std::string_view key) {
            if (key == treekey::kPieceKind) {
                const std::string_view kind = mCursor.TakeName();
                isFrame = kind == treekey::kKindFrame;
                isSegment = kind == treekey::kKindSegment;
                if (isFrame) {
                    CountItem();
                    story.layout.emplace_back();
                }
            } else if (key == treekey::kPieceFrame && isFrame) {
                story.layout.back().frame = mCursor.TakeNumber(ParsedTextTree::kNone);
            } else if (key == treekey::kSegmentText && isSegment) {
                mCursor.ForEachEntry([&](std::string_view part) {
                    if (part != treekey::kSegmentLength) return;
                    const size_t length = ToLength(mCursor.TakeNumber(0));
                    if (!story.layout.empty()) story.layout.back().length += length;
                });
            } else if (key == treekey::kPieceParts && !isSegment && depth < kMostDepth) {
                mCursor.ForEachItem([&] { ParsePiece(story, depth + 1); });
            }
        });
    }

    TextTreeCursor mCursor;
    const bool mHasTexts;
    ParsedTextTree mTree;
    size_t mItems = 0;  // list items so far, limited by CountItem
};

}  // namespace

ParsedTextTree ParseTextTree(std::string_view tree, bool hasTexts)
{
    return Parser(tree, hasTexts).Parse();
}

}  // namespace documents
