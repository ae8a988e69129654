#include "documents/write/WriteXmp.h"

#include <initializer_list>
#include <string_view>

#include "base/Utf8.h"

namespace documents {

namespace {

std::string EscapeXml(const std::string& text)
{
    std::string escaped;
    for (const char c : base::ToValidUtf8(text)) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

// A description of its own, with the names of its properties; `rdf` is the prefix in use.
std::string MakeManifest(const std::string& rdf, const std::vector<std::string>& placedFiles)
{
    if (placedFiles.empty()) return {};
    const std::string_view resource = ":parseType=\"Resource\">\n";
    std::string text;
    const auto add = [&text](std::initializer_list<std::string_view> parts) {
        for (const std::string_view part : parts) text += part;
    };
    add({"<", rdf, ":Description ", rdf,
         ":about=\"\"\n"
         "    xmlns:xmpMM=\"http://ns.adobe.com/xap/1.0/mm/\"\n"
         "    xmlns:stMfs=\"http://ns.adobe.com/xap/1.0/sType/ManifestItem#\"\n"
         "    xmlns:stRef=\"http://ns.adobe.com/xap/1.0/sType/ResourceRef#\">\n"
         "   <xmpMM:Manifest>\n    <",
         rdf, ":Bag>\n"});
    for (const std::string& file : placedFiles) {
        add({"     <", rdf, ":li ", rdf, resource});
        add({"      <stMfs:linkForm>ReferenceStream</stMfs:linkForm>\n", "      <stMfs:reference ",
             rdf, resource, "       <stRef:filePath>", EscapeXml(file),
             "</stRef:filePath>\n      </stMfs:reference>\n     </", rdf, ":li>\n"});
    }
    add({"    </", rdf, ":Bag>\n   </xmpMM:Manifest>\n  </", rdf, ":Description>\n"});
    return text;
}

// Takes every element of this name, whatever its prefix, out with all that is in it.
void RemoveElements(std::string& packet, const std::string& localName)
{
    const std::string end = ":" + localName;
    for (size_t at = packet.find(end); at != std::string::npos; at = packet.find(end, at)) {
        const size_t open = packet.rfind('<', at);
        const char next = at + end.size() < packet.size() ? packet[at + end.size()] : '\0';
        const bool isElement =
            open != std::string::npos &&
            (next == '>' || next == ' ' || next == '/' || next == '\n' || next == '\t' ||
             next == '\r') &&
            packet.find_first_of(" \t\r\n>", open) == at + end.size() + (next == '/' ? 1 : 0);
        if (!isElement) {
            at += end.size();
            continue;
        }
        const std::string prefix = packet.substr(open + 1, at - open - 1);
        const size_t tagEnd = packet.find('>', at);
        if (tagEnd == std::string::npos) return;
        size_t last = tagEnd + 1;
        if (packet[tagEnd - 1] != '/') {
            std::string close = "</";
            close.append(prefix).append(end).append(">");
            const size_t closing = packet.find(close, tagEnd);
            if (closing == std::string::npos) return;
            last = closing + close.size();
        }
        packet.erase(open, last - open);
        at = open;
    }
}

}  // namespace

std::string MakeXmpPacket(const std::string& creator, const std::vector<std::string>& placedFiles)
{
    return "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
           " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "  <rdf:Description rdf:about=\"\"\n"
           "    xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
           "   <xmp:CreatorTool>" +
           EscapeXml(creator) +
           "</xmp:CreatorTool>\n"
           "  </rdf:Description>\n  " +
           MakeManifest("rdf", placedFiles) + " </rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"w\"?>\n";
}

std::string ReplaceManifest(const std::string& packet, const std::vector<std::string>& placedFiles)
{
    std::string result = packet;
    RemoveElements(result, "Manifest");
    constexpr char kEnd[] = ":RDF>";
    const size_t end = result.rfind(kEnd);
    const size_t open = end == std::string::npos ? end : result.rfind("</", end);
    if (open == std::string::npos) return {};
    const std::string prefix = result.substr(open + 2, end - open - 2);
    if (prefix.empty() || prefix.find_first_of(" <>/\n") != std::string::npos) return {};
    return result.insert(open, MakeManifest(prefix, placedFiles));
}

}  // namespace documents
