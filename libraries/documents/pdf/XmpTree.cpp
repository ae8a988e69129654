#include "documents/pdf/XmpTree.h"

#include <algorithm>
#include <string>

namespace documents {

namespace {

// Metadata can consist of millions of empty elements, whose tree takes many times their bytes.
constexpr size_t kMostTreeBytes = size_t{256} << 20;

// The start of the packet that pugixml can read in kMostTreeBytes.
std::string_view LimitTree(std::string_view packet)
{
    constexpr size_t kNodeBytes = 64;
    constexpr size_t kAttributeBytes = 40;
    size_t treeBytes = 0;
    for (size_t position = 0; position < packet.size(); ++position) {
        ++treeBytes;
        // An element and the text behind it.
        if (packet[position] == '<') treeBytes += 2 * kNodeBytes;
        if (packet[position] == '=') treeBytes += kAttributeBytes;
        if (treeBytes > kMostTreeBytes) return packet.substr(0, position);
    }
    return packet;
}

// Removes the attribute or the text that the packet ends within.
void RemoveCutOff(std::string_view packet, pugi::xml_parse_status status, pugi::xml_node document)
{
    if (status == pugi::status_ok) return;
    pugi::xml_node last = document.last_child();
    while (last.last_child()) last = last.last_child();
    if (status == pugi::status_bad_attribute) last.remove_attribute(last.last_attribute());
    const std::string_view text = last.value();
    const bool endsPacket = !text.empty() && text.size() <= packet.size() &&
                            packet.substr(packet.size() - text.size()) == text;
    if (endsPacket) last.parent().remove_child(last);
}

}  // namespace

void LoadXmpTree(std::string_view packet, unsigned options, pugi::xml_document& document)
{
    packet = LimitTree(packet);
    std::string bytes(packet);
    std::replace(bytes.begin(), bytes.end(), '\0', ' ');  // pugixml stops at a zero byte
    const pugi::xml_parse_result result =
        document.load_buffer(bytes.data(), bytes.size(), options, pugi::encoding_utf8);
    RemoveCutOff(bytes, result.status, document);
}

}  // namespace documents
