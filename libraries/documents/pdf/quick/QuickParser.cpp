#include "documents/pdf/quick/QuickParser.h"

#include <algorithm>
#include <charconv>

#include "documents/bytes/PdfCharacters.h"
#include "documents/pdf/ContentLexer.h"

namespace documents {

namespace {

// Nodes of a block of memory.
constexpr size_t kFirstBlock = 256;
constexpr size_t kLastBlock = 4096;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Sorts the entries from `first` on by key and keeps the last of equal keys.
void SortEntries(std::vector<QuickNode>& items, size_t first)
{
    std::vector<std::pair<QuickNode, QuickNode>> entries;
    for (size_t i = first; i < items.size(); i += 2) entries.emplace_back(items[i], items[i + 1]);
    std::stable_sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
        return left.first.text < right.first.text;
    });
    items.resize(first);
    for (const auto& [key, value] : entries) {
        if (items.size() > first && items[items.size() - 2].text == key.text) {
            items.back() = value;
            continue;
        }
        items.push_back(key);
        items.push_back(value);
    }
}

}  // namespace

const QuickNode* QuickNodes::Add(const QuickNode* nodes, size_t count)
{
    if (mBlocks.empty() || count > mBlocks.back().capacity() - mBlocks.back().size()) {
        const size_t last = mBlocks.empty() ? 0 : mBlocks.back().capacity();
        mBlocks.emplace_back();
        mBlocks.back().reserve(std::max(count, std::clamp(2 * last, kFirstBlock, kLastBlock)));
    }
    std::vector<QuickNode>& block = mBlocks.back();
    const size_t place = block.size();
    block.insert(block.end(), nodes, nodes + count);
    return block.data() + place;
}

std::string_view QuickNodes::AddText(std::string text)
{
    mTexts.push_back(std::move(text));
    return mTexts.back();
}

void QuickParser::SkipSpace()
{
    for (; !AtEnd(); ++mPosition) {
        const char c = mBytes[mPosition];
        if (c == '%') {
            mPosition = std::min(mBytes.find_first_of("\r\n", mPosition), mBytes.size() - 1);
        } else if (!IsPdfSpace(c) || c == '\0') {
            return;
        }
    }
}

bool QuickParser::TakeWord(std::string_view word)
{
    SkipSpace();
    if (mBytes.substr(mPosition, word.size()) != word) return false;
    const size_t end = mPosition + word.size();
    if (end < mBytes.size() && !IsPdfDelimiter(mBytes[end])) return false;
    mPosition = end;
    return true;
}

void QuickParser::NeedWord(std::string_view word)
{
    if (!TakeWord(word)) throw Irregular("no " + std::string(word));
}

long long QuickParser::NeedCount()
{
    SkipSpace();
    if (AtEnd() || !IsDigit(mBytes[mPosition])) throw Irregular("no number");
    const QuickNode number = ParseNumber();
    if (number.type != QuickType::kInteger) throw Irregular("no integer");
    return number.integer;
}

QuickNode QuickParser::ParseValue(size_t depth)
{
    if (depth > kMostDepth) throw Irregular("nested deeply");
    SkipSpace();
    if (AtEnd()) throw Irregular("no value");
    QuickNode node;
    switch (mBytes[mPosition]) {
        case '/':
            return ParseName();
        case '(':
            return ParseString();
        case '[':
            return ParseArray(depth);
        case '<':
            return mBytes.substr(mPosition, 2) == "<<" ? ParseDictionary(depth) : ParseHexString();
        case 't':
        case 'f':
            node.type = QuickType::kBoolean;
            if (!TakeWord("true")) NeedWord("false");
            return node;
        case 'n':
            NeedWord("null");
            return node;
        default:
            node = ParseNumber();
            if (node.type == QuickType::kInteger && node.integer > 0) (void)TakeReference(node);
            return node;
    }
}

QuickNode QuickParser::ParseNumber()
{
    QuickNode node;
    const char* const end = mBytes.data() + mBytes.size();
    const char* at = mBytes.data() + mPosition;
    if (*at == '+') ++at;
    const char* const start = at;
    if (at != end && *at == '-' && start == mBytes.data() + mPosition) ++at;
    const char* const digits = at;
    while (at != end && IsDigit(*at)) ++at;
    auto count = at - digits;
    node.type = QuickType::kInteger;
    if (at != end && *at == '.') {
        node.type = QuickType::kReal;
        const char* const fraction = ++at;
        while (at != end && IsDigit(*at)) ++at;
        count += at - fraction;
    }
    if (count == 0 || count > 15 || (at != end && !IsPdfDelimiter(*at))) throw Irregular("number");
    if (node.type == QuickType::kInteger) (void)std::from_chars(start, at, node.integer);
    mPosition = static_cast<size_t>(at - mBytes.data());
    return node;
}

// Turns a number into a reference if a generation and R follow. Only generation 0 is read.
bool QuickParser::TakeReference(QuickNode& number)
{
    size_t at = mPosition;
    while (at < mBytes.size() && IsPdfSpace(mBytes[at])) ++at;
    if (at == mPosition || at >= mBytes.size() || !IsDigit(mBytes[at])) return false;
    const bool isZero = mBytes[at] == '0';
    const size_t digit = at;
    while (at < mBytes.size() && IsDigit(mBytes[at])) ++at;
    const bool isGenerationZero = isZero && at == digit + 1;
    const size_t space = at;
    while (at < mBytes.size() && IsPdfSpace(mBytes[at])) ++at;
    if (at == space || at >= mBytes.size() || mBytes[at] != 'R') {
        if (at < mBytes.size() && mBytes[at] == '%') throw Irregular("a comment in a reference");
        return false;
    }
    if (++at < mBytes.size() && !IsPdfDelimiter(mBytes[at])) return false;
    if (!isGenerationZero) throw Irregular("generation");
    number.type = QuickType::kReference;
    mPosition = at;
    return true;
}

QuickNode QuickParser::ParseName()
{
    QuickNode node;
    node.type = QuickType::kName;
    const size_t start = mPosition++;
    bool hasEscape = false;
    for (; !AtEnd() && !IsPdfDelimiter(mBytes[mPosition]); ++mPosition) {
        if (mBytes[mPosition] == '#') hasEscape = true;
        if (mBytes[mPosition] == '\v') throw Irregular("white space of another kind");
    }
    node.text = mBytes.substr(start, mPosition - start);
    if (!hasEscape) return node;
    std::string decoded = DecodeName(node.text);
    const auto escapes = std::count(node.text.begin(), node.text.end(), '#');
    const bool isWhole = decoded.size() + 2 * static_cast<size_t>(escapes) == node.text.size();
    if (!isWhole || decoded.find('\0') != std::string::npos) throw Irregular("escape in a name");
    node.text = mNodes.AddText(std::move(decoded));
    return node;
}

QuickNode QuickParser::ParseString()
{
    QuickNode node;
    node.type = QuickType::kString;
    node.isRaw = true;
    const size_t start = mPosition++;
    for (size_t depth = 1; !AtEnd(); ++mPosition) {
        const char c = mBytes[mPosition];
        if (c == '\\') ++mPosition;
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) {
            ++mPosition;
            node.text = mBytes.substr(start, mPosition - start);
            return node;
        }
    }
    throw Irregular("a string without an end");
}

QuickNode QuickParser::ParseHexString()
{
    QuickNode node;
    node.type = QuickType::kString;
    node.isRaw = true;
    const size_t start = mPosition;
    const size_t end = mBytes.find('>', start);
    if (end == std::string_view::npos) throw Irregular("a string without an end");
    mPosition = end + 1;
    node.text = mBytes.substr(start, mPosition - start);
    const auto isHex = [](char c) {
        return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') || IsPdfSpace(c);
    };
    const std::string_view digits = node.text.substr(1, node.text.size() - 2);
    if (!std::all_of(digits.begin(), digits.end(), isHex)) throw Irregular("hexadecimal digits");
    return node;
}

// Moves the nodes of the stack from `first` on into a container.
QuickNode QuickParser::MakeContainer(QuickType type, size_t first)
{
    const size_t nodes = mStack.size() - first;
    QuickNode node;
    node.type = type;
    node.count = static_cast<uint32_t>(type == QuickType::kDictionary ? nodes / 2 : nodes);
    node.items = mNodes.Add(mStack.data() + first, nodes);
    mStack.resize(first);
    return node;
}

QuickNode QuickParser::ParseArray(size_t depth)
{
    const size_t first = mStack.size();
    ++mPosition;
    for (;;) {
        SkipSpace();
        if (!AtEnd() && mBytes[mPosition] == ']') break;
        const QuickNode item = ParseValue(depth + 1);
        mStack.push_back(item);
    }
    ++mPosition;
    return MakeContainer(QuickType::kArray, first);
}

QuickNode QuickParser::ParseDictionary(size_t depth)
{
    const size_t first = mStack.size();
    mPosition += 2;
    for (;;) {
        SkipSpace();
        if (AtEnd()) throw Irregular("a dictionary without an end");
        if (mBytes.substr(mPosition, 2) == ">>") break;
        if (mBytes[mPosition] != '/') throw Irregular("a key that is no name");
        const QuickNode key = ParseName();
        const QuickNode value = ParseValue(depth + 1);
        if (value.type == QuickType::kNull) throw Irregular("null in a dictionary");
        mStack.push_back(key);
        mStack.push_back(value);
    }
    mPosition += 2;
    if (mStack.size() - first > size_t{2} * QuickNode::kMostUnsorted) SortEntries(mStack, first);
    return MakeContainer(QuickType::kDictionary, first);
}

}  // namespace documents
