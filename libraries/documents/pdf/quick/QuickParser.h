#pragma once

#include <cstddef>
#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "documents/pdf/quick/QuickObject.h"

namespace documents {

// Something that the quick reader doesn't read: a fault, or a rare feature. The PDF library reads
// the file instead.
class Irregular : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Owns the nodes of a file. Addresses remain valid.
class QuickNodes {
public:
    // Returns copies of `count` nodes.
    const QuickNode* Add(const QuickNode* nodes, size_t count);

    // The items of containers that aren't complete, for the parsers: one after the other uses it.
    std::vector<QuickNode>& GetStack() { return mStack; }

    // Returns a copy of a text that isn't in the bytes of the file.
    std::string_view AddText(std::string text);

private:
    std::vector<std::vector<QuickNode>> mBlocks;  // none grows beyond its capacity
    std::vector<QuickNode> mStack;
    std::deque<std::string> mTexts;
};

// Parses values of a PDF file. Accepts only what every reader understands in the same way, and
// throws Irregular for anything else: unknown words, numbers that aren't, unbalanced brackets,
// nesting of more than kMostDepth, names with unusual escapes.
class QuickParser {
public:
    static constexpr size_t kMostDepth = 100;

    QuickParser(std::string_view bytes, size_t position, QuickNodes& nodes)
        : mBytes(bytes), mPosition(position), mNodes(nodes), mStack(nodes.GetStack())
    {
    }

    QuickNode ParseValue(size_t depth = 0);

    // Skips white space and comments.
    void SkipSpace();
    // Skips white space and the word if it is next.
    bool TakeWord(std::string_view word);
    // Throw Irregular if the word or an integer that isn't negative isn't next.
    void NeedWord(std::string_view word);
    long long NeedCount();

    size_t GetPosition() const { return mPosition; }
    void SetPosition(size_t position) { mPosition = position; }
    std::string_view GetRest() const { return mBytes.substr(mPosition); }

private:
    QuickNode ParseNumber();
    QuickNode ParseName();
    QuickNode ParseString();
    QuickNode ParseHexString();
    QuickNode ParseArray(size_t depth);
    QuickNode ParseDictionary(size_t depth);
    QuickNode MakeContainer(QuickType type, size_t first);
    bool TakeReference(QuickNode& number);
    bool AtEnd() const { return mPosition >= mBytes.size(); }

    std::string_view mBytes;
    size_t mPosition;
    QuickNodes& mNodes;
    std::vector<QuickNode>& mStack;
};

}  // namespace documents
