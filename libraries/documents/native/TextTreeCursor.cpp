#include "documents/native/TextTreeCursor.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Utf8.h"

namespace documents {

namespace {

enum Class : unsigned char { kRegular, kSpace, kDelimiter };

constexpr std::array<Class, 256> MakeClasses()
{
    std::array<Class, 256> classes = {};
    for (const char c : {'/', '<', '>', '[', ']', '(', ')'}) {
        classes[static_cast<unsigned char>(c)] = kDelimiter;
    }
    for (const char c : {'\0', '\t', '\n', '\f', '\r', ' '}) {
        classes[static_cast<unsigned char>(c)] = kSpace;
    }
    return classes;
}

constexpr std::array<Class, 256> kClasses = MakeClasses();

Class GetClass(char c) { return kClasses[static_cast<unsigned char>(c)]; }

}  // namespace

void TextTreeCursor::SkipSpaces()
{
    while (mPosition < mTree.size() && GetClass(mTree[mPosition]) == kSpace) ++mPosition;
}

void TextTreeCursor::SkipText()
{
    for (++mPosition; mPosition < mTree.size() && mTree[mPosition] != ')'; ++mPosition) {
        if (mTree[mPosition] == '\\') ++mPosition;
    }
    mPosition = std::min(mPosition + 1, mTree.size());
}

size_t TextTreeCursor::MeasureWord() const
{
    size_t end = mPosition;
    while (end < mTree.size() && GetClass(mTree[end]) == kRegular) ++end;
    return end - mPosition;
}

bool TextTreeCursor::Enter(char bracket)
{
    SkipSpaces();
    const std::string_view rest = mTree.substr(mPosition);
    const size_t length = bracket == '<' ? 2 : 1;
    if (rest.substr(0, length) != (bracket == '<' ? "<<" : "[")) {
        Skip();
        return false;
    }
    mPosition += length;
    return true;
}

bool TextTreeCursor::TakeEnd()
{
    SkipSpaces();
    if (mPosition >= mTree.size()) return true;
    if (mTree[mPosition] == ']') {
        ++mPosition;
        return true;
    }
    if (mTree.substr(mPosition, 2) == ">>") {
        mPosition += 2;
        return true;
    }
    return false;
}

std::string_view TextTreeCursor::TakeKey()
{
    SkipSpaces();
    if (mPosition >= mTree.size() || mTree[mPosition] != '/') return {};
    ++mPosition;
    const std::string_view key = mTree.substr(mPosition, MeasureWord());
    mPosition += key.size();
    return key;
}

void TextTreeCursor::Skip()
{
    size_t depth = 0;
    do {
        SkipSpaces();
        if (mPosition >= mTree.size()) return;
        const char c = mTree[mPosition];
        const std::string_view pair = mTree.substr(mPosition, 2);
        if (c == '(') {
            SkipText();
        } else if (pair == "<<" || c == '[') {
            ++depth;
            mPosition += c == '[' ? 1 : 2;
        } else if (pair == ">>" || c == ']') {
            // The end of the enclosing value: there is nothing to skip.
            if (depth == 0) return;
            --depth;
            mPosition += c == ']' ? 1 : 2;
        } else {
            if (GetClass(c) == kDelimiter) ++mPosition;
            mPosition += MeasureWord();
        }
    } while (depth > 0);
}

long long TextTreeCursor::TakeNumber(long long fallback)
{
    SkipSpaces();
    const std::string_view word = mTree.substr(mPosition, MeasureWord());
    long long number = fallback;
    if (std::from_chars(word.data(), word.data() + word.size(), number).ec != std::errc()) {
        number = fallback;
    }
    Skip();
    return number;
}

std::string_view TextTreeCursor::TakeName()
{
    SkipSpaces();
    if (mPosition < mTree.size() && mTree[mPosition] == '/') return TakeKey();
    Skip();
    return {};
}

std::string TextTreeCursor::TakeText()
{
    SkipSpaces();
    const size_t start = mPosition;
    Skip();
    if (start >= mTree.size() || mTree[start] != '(') return {};
    std::string bytes;
    for (size_t i = start + 1; i + 1 < mPosition && bytes.size() < kMostTextBytes; ++i) {
        if (mTree[i] == '\\' && i + 2 < mPosition) ++i;
        bytes += mTree[i];
    }
    if (bytes.substr(0, 2) != "\xFE\xFF") return base::ToValidUtf8(bytes);
    return base::FromUtf16(std::string_view(bytes).substr(2));
}

size_t TextTreeCursor::TakeTextLength()
{
    SkipSpaces();
    const size_t start = mPosition;
    Skip();
    if (start >= mTree.size() || mTree[start] != '(') return 0;
    size_t bytes = 0;
    for (size_t i = start + 1; i + 1 < mPosition; ++i, ++bytes) {
        if (mTree[i] == '\\' && i + 2 < mPosition) ++i;
    }
    const bool isUtf16 = bytes >= 2 && mTree.substr(start + 1, 2) == "\xFE\xFF";
    return isUtf16 ? bytes / 2 - 1 : bytes;
}

}  // namespace documents
