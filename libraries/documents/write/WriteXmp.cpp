#include "documents/write/WriteXmp.h"

#include <pugixml.hpp>
#include <sstream>
#include <string_view>

#include "base/Utf8.h"
#include "documents/pdf/XmpPacket.h"

namespace documents {

namespace {

constexpr char kRdf[] = "rdf";

// Returns the name with the prefix that the packet uses for RDF.
std::string InRdf(const std::string& prefix, const char* name) { return prefix + ":" + name; }

pugi::xml_node AddDescription(pugi::xml_node root, const std::string& prefix)
{
    pugi::xml_node description = root.append_child(InRdf(prefix, "Description").c_str());
    description.append_attribute(InRdf(prefix, "about").c_str()) = "";
    return description;
}

void AddText(pugi::xml_node parent, const char* name, const std::string& text)
{
    parent.append_child(name).text() = base::ToValidUtf8(text).c_str();
}

// Adds an element that has properties of its own.
pugi::xml_node AddResource(pugi::xml_node parent, const std::string& prefix, const char* name)
{
    pugi::xml_node resource = parent.append_child(name);
    resource.append_attribute(InRdf(prefix, "parseType").c_str()) = "Resource";
    return resource;
}

// Adds the manifest in a description of its own, which declares its name spaces.
void AddManifest(pugi::xml_node root, const std::string& prefix,
                 const std::vector<std::string>& placedFiles)
{
    if (placedFiles.empty()) return;
    pugi::xml_node description = AddDescription(root, prefix);
    description.append_attribute("xmlns:xmpMM") = "http://ns.adobe.com/xap/1.0/mm/";
    description.append_attribute("xmlns:stMfs") = "http://ns.adobe.com/xap/1.0/sType/ManifestItem#";
    description.append_attribute("xmlns:stRef") = "http://ns.adobe.com/xap/1.0/sType/ResourceRef#";
    pugi::xml_node files =
        description.append_child("xmpMM:Manifest").append_child(InRdf(prefix, "Bag").c_str());
    for (const std::string& file : placedFiles) {
        pugi::xml_node item = AddResource(files, prefix, InRdf(prefix, "li").c_str());
        AddText(item, "stMfs:linkForm", "ReferenceStream");
        AddText(AddResource(item, prefix, "stMfs:reference"), "stRef:filePath", file);
    }
}

bool HasLocalName(pugi::xml_node node, const char* localName)
{
    const std::string_view name = node.name();
    const size_t colon = name.find(':');
    return colon != std::string_view::npos && name.substr(colon + 1) == localName;
}

// Removes one leaf after the other: pugixml removes a node recursively, which overflows the stack
// if the tree is deep.
void RemoveTree(pugi::xml_node tree)
{
    for (pugi::xml_node node = tree;;) {
        while (node.first_child()) node = node.first_child();
        const bool isWhole = node == tree;
        pugi::xml_node parent = node.parent();
        parent.remove_child(node);
        if (isWhole) return;
        node = parent;
    }
}

// The nodes of a packet that replacing its manifest needs.
struct PacketNodes : pugi::xml_tree_walker {
    pugi::xml_node rdf;  // the first rdf:RDF
    std::vector<pugi::xml_node> manifests;
    bool hasDocumentType = false;

    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() == pugi::node_doctype) hasDocumentType = true;
        // What is inside a manifest is removed with it.
        if (depth() <= mManifestDepth) mManifestDepth = kOutside;
        if (mManifestDepth == kOutside && HasLocalName(node, "Manifest")) {
            mManifestDepth = depth();
            manifests.push_back(node);
        }
        if (mManifestDepth == kOutside && !rdf && HasLocalName(node, "RDF")) rdf = node;
        return true;
    }

private:
    static constexpr int kOutside = -1;
    int mManifestDepth = kOutside;
};

std::string Print(const pugi::xml_document& document, unsigned format)
{
    std::ostringstream packet;
    document.save(packet, " ", format | pugi::format_no_declaration, pugi::encoding_utf8);
    return packet.str();
}

}  // namespace

std::string MakeXmpPacket(const std::string& creator, const std::vector<std::string>& placedFiles)
{
    pugi::xml_document document;
    document.append_child(pugi::node_pi).set_name("xpacket");
    document.last_child().set_value("begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"");
    pugi::xml_node metadata = document.append_child("x:xmpmeta");
    metadata.append_attribute("xmlns:x") = "adobe:ns:meta/";
    pugi::xml_node root = metadata.append_child("rdf:RDF");
    root.append_attribute("xmlns:rdf") = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
    pugi::xml_node description = AddDescription(root, kRdf);
    description.append_attribute("xmlns:xmp") = "http://ns.adobe.com/xap/1.0/";
    AddText(description, "xmp:CreatorTool", creator);
    AddManifest(root, kRdf, placedFiles);
    document.append_child(pugi::node_pi).set_name("xpacket");
    document.last_child().set_value("end=\"w\"");
    return Print(document, pugi::format_indent);
}

std::string ReplaceManifest(const std::string& packet, const std::vector<std::string>& placedFiles)
{
    // Keeps the white space: other programs change a packet in place and need its padding.
    constexpr unsigned kEverything =
        pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment;
    pugi::xml_document document;
    LoadXmpTree(packet, kEverything, document);
    PacketNodes nodes;
    document.traverse(nodes);
    if (!nodes.rdf || nodes.hasDocumentType) return {};
    for (const pugi::xml_node manifest : nodes.manifests) RemoveTree(manifest);
    const std::string_view name = nodes.rdf.name();
    AddManifest(nodes.rdf, std::string(name.substr(0, name.find(':'))), placedFiles);
    return Print(document, pugi::format_raw);
}

}  // namespace documents
