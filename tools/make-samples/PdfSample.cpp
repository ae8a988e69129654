#include "PdfSample.h"

#include <memory>
#include <pugixml.hpp>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <sstream>

namespace {

constexpr char kCreator[] = "Headless Host";
constexpr char kPdfDate[] = "D:20240101000000Z";

void AddInstruction(pugi::xml_document& packet, const char* value)
{
    pugi::xml_node instruction = packet.append_child(pugi::node_pi);
    instruction.set_name("xpacket");
    instruction.set_value(value);
}

pugi::xml_node AddDescription(pugi::xml_document& packet)
{
    pugi::xml_node root = packet.append_child("x:xmpmeta");
    root.append_attribute("xmlns:x") = "adobe:ns:meta/";
    pugi::xml_node rdf = root.append_child("rdf:RDF");
    rdf.append_attribute("xmlns:rdf") = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
    pugi::xml_node description = rdf.append_child("rdf:Description");
    description.append_attribute("rdf:about") = "";
    description.append_attribute("xmlns:xmp") = "http://ns.adobe.com/xap/1.0/";
    description.append_attribute("xmlns:xmpMM") = "http://ns.adobe.com/xap/1.0/mm/";
    description.append_attribute("xmlns:stMfs") = "http://ns.adobe.com/xap/1.0/sType/ManifestItem#";
    description.append_attribute("xmlns:stRef") = "http://ns.adobe.com/xap/1.0/sType/ResourceRef#";
    return description;
}

// The manifest lists the placed files, one item per placed object.
void AddManifest(pugi::xml_node description, const std::vector<std::string>& placedFiles)
{
    pugi::xml_node bag = description.append_child("xmpMM:Manifest").append_child("rdf:Bag");
    for (const std::string& file : placedFiles) {
        pugi::xml_node item = bag.append_child("rdf:li");
        item.append_attribute("rdf:parseType") = "Resource";
        item.append_child("stMfs:linkForm").text() = "ReferenceStream";
        pugi::xml_node reference = item.append_child("stMfs:reference");
        reference.append_attribute("rdf:parseType") = "Resource";
        reference.append_child("stRef:filePath").text() = file.c_str();
    }
}

std::string MakeXmpPacket(const PdfFacts& facts)
{
    pugi::xml_document packet;
    AddInstruction(packet, "begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"");
    pugi::xml_node description = AddDescription(packet);
    description.append_child("xmp:CreatorTool").text() = kCreator;
    if (!facts.placedFiles.empty()) AddManifest(description, facts.placedFiles);
    AddInstruction(packet, "end=\"w\"");
    std::ostringstream text;
    packet.save(text, " ", pugi::format_indent | pugi::format_no_declaration);
    return text.str();
}

// Replaces the font name under `key` if it is to be renamed, and keeps its subset prefix
// ("ABCDEF+").
void Rename(QPDFObjectHandle dictionary, const char* key, const PdfFacts& facts)
{
    QPDFObjectHandle value = dictionary.getKey(key);
    if (!value.isName()) return;
    const std::string name = value.getName().substr(1);
    const size_t plus = name.find('+');
    const size_t start = plus == std::string::npos ? 0 : plus + 1;
    const auto found = facts.renamedFonts.find(name.substr(start));
    if (found == facts.renamedFonts.end()) return;
    dictionary.replaceKey(key,
                          QPDFObjectHandle::newName("/" + name.substr(0, start) + found->second));
}

}  // namespace

std::string FinishPdf(const std::string& pdf, const PdfFacts& facts)
{
    QPDF document;
    document.processMemoryFile("sample", pdf.data(), pdf.size());
    for (QPDFObjectHandle object : document.getAllObjects()) {
        if (!object.isDictionary()) continue;
        for (const char* key : {"/BaseFont", "/FontName"}) Rename(object, key, facts);
    }
    QPDFObjectHandle information = QPDFObjectHandle::newDictionary();
    information.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(kCreator));
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(facts.title));
    information.replaceKey("/CreationDate", QPDFObjectHandle::newString(kPdfDate));
    document.getTrailer().replaceKey("/Info", document.makeIndirectObject(information));

    QPDFObjectHandle metadata = QPDFObjectHandle::newStream(&document, MakeXmpPacket(facts));
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    document.getRoot().replaceKey("/Metadata", metadata);

    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}
