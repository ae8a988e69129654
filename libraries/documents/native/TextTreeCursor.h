#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

// Reads a text tree from start to end: nested dictionaries "<< /Key value >>", arrays, names, texts
// and numbers, in the syntax of PDF. Stores nothing and skips unwanted values without recursion, so
// nesting depth and size are unlimited. Never fails: a tree that is cut off or has unbalanced
// brackets is read as far as possible.
class TextTreeCursor {
public:
    explicit TextTreeCursor(std::string_view tree) : mTree(tree) {}

    // Calls `entry(key)` for each entry of the dictionary that comes next. `entry` may read the
    // value; a value that it doesn't read is skipped. Skips the next value if it isn't a
    // dictionary.
    template <class Entry>
    void ForEachEntry(Entry entry)
    {
        if (!Enter('<')) return;
        WalkEntries(entry);
    }

    // The same for the rest of the tree, as the tree itself isn't enclosed in << >>.
    template <class Entry>
    void ForEachTopEntry(Entry entry)
    {
        WalkEntries(entry);
    }

    // Calls `item()` for each item of the array that comes next; an item that it doesn't read is
    // skipped. Skips the next value if it isn't an array.
    template <class Item>
    void ForEachItem(Item item)
    {
        if (!Enter('[')) return;
        while (!TakeEnd()) {
            const size_t before = mPosition;
            item();
            if (mPosition == before) Skip();
        }
    }

    // Skips the next value.
    void Skip();

    // Takes the next value; returns it as a whole number, or `fallback` if it isn't one.
    long long TakeNumber(long long fallback);

    // Takes the next value; returns it as a name without its slash, a view into the tree, or "" if
    // it isn't a name.
    std::string_view TakeName();

    // Takes the next value; returns it as UTF-8, or "" if it isn't a text. A text that begins with
    // FE FF is stored as big-endian UTF-16. Of a text with more than kMostTextBytes in the file,
    // the rest is left out.
    static constexpr size_t kMostTextBytes = 4096;
    std::string TakeText();

    // Takes the next value; returns its length as a text, in characters (units of UTF-16, as in the
    // lengths of runs), or 0 if it isn't a text.
    size_t TakeTextLength();

private:
    template <class Entry>
    void WalkEntries(Entry entry)
    {
        while (!TakeEnd()) {
            const std::string_view key = TakeKey();
            if (key.empty()) {
                Skip();
                continue;
            }
            const size_t before = mPosition;
            entry(key);
            if (mPosition == before) Skip();
        }
    }

    // Takes an opening bracket, '<' for "<<" or '['. If the next value begins with anything else,
    // skips it and returns false.
    bool Enter(char bracket);
    // Takes ">>" or "]" if it comes next. Also returns true at the end of the tree.
    bool TakeEnd();
    // Takes a name and returns it without its slash. Takes nothing and returns "" if none follows.
    std::string_view TakeKey();
    void SkipSpaces();
    void SkipText();
    size_t MeasureWord() const;

    std::string_view mTree;
    size_t mPosition = 0;
};

}  // namespace documents
