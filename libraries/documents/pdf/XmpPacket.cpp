#include "documents/pdf/XmpPacket.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <new>
#include <optional>
#include <pugixml.hpp>

#include "base/Strings.h"
#include "base/Utf8.h"

namespace documents {

namespace {

// Metadata can consist of millions of empty elements, whose tree takes many times their bytes.
// It is in memory beside the packet and a copy of its start.
constexpr size_t kMostTreeBytes = size_t{128} << 20;

// Returns as much of the start of the packet as pugixml can parse within kMostTreeBytes.
std::string_view LimitTree(std::string_view packet)
{
    constexpr size_t kNodeBytes = 64;
    constexpr size_t kAttributeBytes = 40;
    size_t treeBytes = 0;
    for (size_t position = 0; position < packet.size(); ++position) {
        ++treeBytes;
        // An element and the text after it.
        if (packet[position] == '<') treeBytes += 2 * kNodeBytes;
        if (packet[position] == '=') treeBytes += kAttributeBytes;
        if (treeBytes > kMostTreeBytes) return packet.substr(0, position);
    }
    return packet;
}

// Removes the attribute or the text in which the packet ends.
void RemoveCutOff(std::string_view packet, pugi::xml_parse_status status,
                  pugi::xml_document& document)
{
    if (status == pugi::status_ok) return;
    pugi::xml_node last = document.last_child();
    while (last.last_child()) last = last.last_child();
    if (status == pugi::status_bad_attribute) last.remove_attribute(last.last_attribute());
    const std::string_view text = last.value();
    if (!text.empty() && base::EndsWith(packet, text)) last.parent().remove_child(last);
}

std::string_view GetLocalName(std::string_view name)
{
    const size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

// Returns the character of the entity "&name;", or nothing if XML doesn't define it.
std::optional<char32_t> GetEntity(std::string_view name)
{
    struct Entity {
        std::string_view name;
        char32_t character;
    };
    constexpr Entity kEntities[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const Entity& entity : kEntities) {
        if (entity.name == name) return entity.character;
    }
    if (name.size() < 2 || name[0] != '#') return std::nullopt;
    const bool isHex = name[1] == 'x' || name[1] == 'X';
    const char* const start = name.data() + (isHex ? 2 : 1);
    const char* const end = name.data() + name.size();
    uint32_t code = 0;
    const auto [digitsEnd, error] = std::from_chars(start, end, code, isHex ? 16 : 10);
    constexpr uint32_t kLastCharacter = 0x10FFFF;
    const bool isNumber = error == std::errc() && digitsEnd == end;
    if (!isNumber || code == 0 || code > kLastCharacter) return std::nullopt;
    return code;
}

std::string ResolveEntities(std::string_view raw)
{
    constexpr size_t kLongestEntity = 12;  // with '&' and ';'
    std::string text;
    while (!raw.empty()) {
        std::optional<char32_t> character;
        size_t end = std::string_view::npos;
        if (raw.front() == '&') end = raw.substr(0, kLongestEntity).find(';');
        if (end != std::string_view::npos) character = GetEntity(raw.substr(1, end - 1));
        if (character) {
            base::AppendCharacter(*character, text);
            raw.remove_prefix(end + 1);
        } else {
            text += raw.front();
            raw.remove_prefix(1);
        }
    }
    return base::ToValidUtf8(text);
}

// Returns the text of an element, or "" if it contains elements.
std::string GetText(pugi::xml_node element)
{
    std::string text;
    for (const pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element) return {};
        text += child.value();
    }
    return text;
}

// Collects the properties. pugixml's traversal isn't recursive: elements may be nested deeply.
class PropertyReader : public pugi::xml_tree_walker {
public:
    const XmpFacts& GetFacts() const { return mFacts; }

    bool for_each(pugi::xml_node& node) override
    {
        if (depth() <= mManifestDepth) mManifestDepth = kOutside;
        if (node.type() != pugi::node_element) return true;
        const std::string_view name = GetLocalName(node.name());
        if (name == "Manifest" && mManifestDepth == kOutside) mManifestDepth = depth();
        for (const pugi::xml_attribute attribute : node.attributes()) {
            SetProperty(GetLocalName(attribute.name()), attribute.value());
        }
        if (IsProperty(name)) SetProperty(name, GetText(node));
        return true;
    }

private:
    static bool IsProperty(std::string_view name)
    {
        return name == "CreatorTool" || name == "filePath";
    }

    void SetProperty(std::string_view name, std::string_view value)
    {
        if (!IsProperty(name)) return;
        value = base::Trim(value);
        if (value.empty()) return;
        if (name == "filePath") {
            if (mManifestDepth != kOutside) mFacts.manifestFiles.push_back(ResolveEntities(value));
        } else if (mFacts.creatorTool.empty()) {
            mFacts.creatorTool = ResolveEntities(value);
        }
    }

    static constexpr int kOutside = -1;
    int mManifestDepth = kOutside;  // depth of the outermost Manifest around the current node
    XmpFacts mFacts;
};

}  // namespace

void LoadXmpTree(std::string_view packet, unsigned options, pugi::xml_document& document)
{
    packet = LimitTree(packet);
    std::string bytes(packet);
    std::replace(bytes.begin(), bytes.end(), '\0', ' ');  // pugixml stops at a zero byte
    const pugi::xml_parse_result result =
        document.load_buffer(bytes.data(), bytes.size(), options, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
    RemoveCutOff(bytes, result.status, document);
}

XmpFacts ReadXmpPacket(std::string_view packet)
{
    // Without parse_escapes, which ends a text at "&#0;" and turns "&#x110000;" into invalid bytes.
    pugi::xml_document document;
    LoadXmpTree(packet, pugi::parse_cdata, document);
    PropertyReader reader;
    document.traverse(reader);
    return reader.GetFacts();
}

}  // namespace documents
