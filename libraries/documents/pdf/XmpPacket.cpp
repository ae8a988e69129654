#include "documents/pdf/XmpPacket.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "base/Utf8.h"

namespace documents {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trim(std::string_view text)
{
    const size_t start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

// The name without its prefix.
std::string_view GetLocalName(std::string_view name)
{
    const size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

void AppendCharacter(uint32_t code, std::string& text)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    const int rest = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLead[rest] | code >> (6 * rest));
    for (int index = rest; index-- > 0;) {
        text += static_cast<char>(0x80 | (code >> (6 * index) & 0x3F));
    }
}

// Puts what the entity `name` stands for behind `text`; false if it isn't known.
bool AppendEntity(std::string_view name, std::string& text)
{
    struct Entity {
        std::string_view name;
        char character;
    };
    constexpr Entity kEntities[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const Entity& entity : kEntities) {
        if (entity.name == name) {
            text += entity.character;
            return true;
        }
    }
    if (name.size() < 2 || name[0] != '#') return false;
    const bool isHex = name[1] == 'x' || name[1] == 'X';
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    uint32_t code = 0;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return false;
    if (code == 0 || code > 0x10FFFF) return false;
    AppendCharacter(code, text);
    return true;
}

std::string Resolve(std::string_view raw)
{
    constexpr size_t kMaximumEntity = 12;
    std::string text;
    for (size_t position = 0; position < raw.size(); ++position) {
        if (raw[position] == '&') {
            const size_t end = raw.substr(0, position + kMaximumEntity).find(';', position);
            if (end != std::string_view::npos &&
                AppendEntity(raw.substr(position + 1, end - position - 1), text)) {
                position = end;
                continue;
            }
        }
        text += raw[position];
    }
    return base::ToValidUtf8(text);
}

// Walks through tags and attributes and keeps the properties that are asked for.
class Scanner {
public:
    explicit Scanner(std::string_view packet) : mRest(packet) {}

    XmpFacts Scan()
    {
        for (;;) {
            const size_t open = mRest.find('<');
            if (open == std::string_view::npos) break;
            mText = mRest.substr(0, open);
            mRest.remove_prefix(open + 1);
            if (!TakeTag()) break;
        }
        return mFacts;
    }

private:
    bool TakeTag()
    {
        if (mRest.substr(0, 3) == "!--") return SkipBehind("-->");
        if (mRest.substr(0, 8) == "![CDATA[") return SkipBehind("]]>");
        if (mRest.substr(0, 1) == "?") return SkipBehind("?>");
        const bool isEnd = mRest.substr(0, 1) == "/";
        if (isEnd) mRest.remove_prefix(1);
        const size_t length = std::min(mRest.find_first_of(" \t\r\n/>"), mRest.size());
        const std::string_view name = GetLocalName(mRest.substr(0, length));
        mRest.remove_prefix(length);
        if (isEnd) {
            if (name == mElement) SetProperty(name, mText);
            if (name == "Manifest" && mManifests > 0) --mManifests;
            mElement = {};
            return SkipBehind(">");
        }
        mElement = name;
        if (name == "Manifest") ++mManifests;
        const bool isEmpty = TakeAttributes();
        if (isEmpty && name == "Manifest") --mManifests;
        if (isEmpty) mElement = {};
        return !mRest.empty();
    }

    // Takes everything up to and with '>'. True if the element ends there too.
    bool TakeAttributes()
    {
        bool isEmpty = false;
        while (!mRest.empty()) {
            const char c = mRest.front();
            mRest.remove_prefix(1);
            if (c == '>') return isEmpty;
            isEmpty = c == '/';
            if (isEmpty || kBlanks.find(c) != std::string_view::npos) continue;
            TakeAttribute(c);
        }
        return isEmpty;
    }

    // `first` has been taken off already.
    void TakeAttribute(char first)
    {
        const std::string_view start(mRest.data() - 1, mRest.size() + 1);
        if (first == '=') return;
        const size_t length = start.find_first_of(" \t\r\n=/>");
        if (length == std::string_view::npos) {
            mRest = {};
            return;
        }
        const std::string_view name = GetLocalName(start.substr(0, length));
        mRest = start.substr(length);
        const size_t equals = mRest.find_first_not_of(kBlanks);
        if (equals == std::string_view::npos || mRest[equals] != '=') return;
        const size_t quote = mRest.find_first_not_of(kBlanks, equals + 1);
        if (quote == std::string_view::npos || (mRest[quote] != '"' && mRest[quote] != '\'')) {
            return;
        }
        const size_t end = mRest.find(mRest[quote], quote + 1);
        if (end == std::string_view::npos) return;
        SetProperty(name, mRest.substr(quote + 1, end - quote - 1));
        mRest.remove_prefix(end + 1);
    }

    void SetProperty(std::string_view name, std::string_view value)
    {
        value = Trim(value);
        if (value.empty()) return;
        if (name == "CreatorTool" && mFacts.creatorTool.empty()) {
            mFacts.creatorTool = Resolve(value);
        } else if (name == "filePath" && mManifests > 0) {
            mFacts.manifestFiles.push_back(Resolve(value));
        }
    }

    bool SkipBehind(std::string_view mark)
    {
        const size_t position = mRest.find(mark);
        if (position == std::string_view::npos) return false;
        mRest.remove_prefix(position + mark.size());
        return true;
    }

    std::string_view mRest;
    std::string_view mText;     // between the last two tags
    std::string_view mElement;  // the element that the last tag opened
    size_t mManifests = 0;
    XmpFacts mFacts;
};

}  // namespace

XmpFacts ReadXmpPacket(std::string_view packet) { return Scanner(packet).Scan(); }

}  // namespace documents
