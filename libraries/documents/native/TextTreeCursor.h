#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

// Walks through a text tree: nested dictionaries "<< /Key value >>" and arrays, names, texts and
// numbers, as in a PDF. Nothing is kept of what is passed, and what isn't asked for is passed over
// without recursion: any nesting depth and any size is fine. A tree that ends early, or whose ends
// don't match, is walked as far as it goes.
class TextTreeCursor {
public:
    explicit TextTreeCursor(std::string_view tree) : mTree(tree) {}

    // Goes through the entries of the dictionary that comes next, or of the rest of the tree if
    // that isn't enclosed in one. `entry(key)` may walk the value; what it leaves is passed over.
    // Any other value is passed over whole.
    template <class Entry>
    void ForEachEntry(Entry entry)
    {
        if (!Enter('<')) return;
        WalkEntries(entry);
    }
    template <class Entry>
    void ForEachTopEntry(Entry entry)
    {
        WalkEntries(entry);
    }

    // Goes through the items of the array that comes next.
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

    // Passes over the next value.
    void Skip();

    // The next value as a whole number; `standard` if it is something else.
    long long TakeNumber(long long standard);

    // The next value as a name without its slash, a view into the tree; empty if it is no name.
    std::string_view TakeName();

    // The next value as a text in UTF-8, which is stored in UTF-16 if it begins with FE FF. Empty
    // if it is no text.
    std::string TakeText();

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

    // Takes the opening bracket of this kind, or passes over the next value.
    bool Enter(char bracket);
    // Takes a closing bracket of either kind; true at the end of the tree too.
    bool TakeEnd();
    // A name without its slash; empty, and nothing taken, if there is none.
    std::string_view TakeKey();
    void SkipBlanks();
    void SkipText();
    size_t MeasureWord() const;

    std::string_view mTree;
    size_t mPosition = 0;
};

}  // namespace documents
