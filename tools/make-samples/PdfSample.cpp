#include "PdfSample.h"

#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

namespace {

constexpr char kCreator[] = "Headless Host";
constexpr char kPdfDate[] = "D:20240101000000Z";

std::string EscapeXml(const std::string& text)
{
    std::string escaped;
    for (char c : text) {
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

std::string MakeXmpPacket(const PdfFacts& facts)
{
    std::string packet =
        "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
        " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
        "  <rdf:Description rdf:about=\"\"\n"
        "    xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\"\n"
        "    xmlns:xmpMM=\"http://ns.adobe.com/xap/1.0/mm/\"\n"
        "    xmlns:stMfs=\"http://ns.adobe.com/xap/1.0/sType/ManifestItem#\"\n"
        "    xmlns:stRef=\"http://ns.adobe.com/xap/1.0/sType/ResourceRef#\">\n"
        "   <xmp:CreatorTool>" +
        EscapeXml(kCreator) + "</xmp:CreatorTool>\n";
    if (!facts.placedFiles.empty()) {
        packet += "   <xmpMM:Manifest>\n    <rdf:Bag>\n";
        for (const std::string& file : facts.placedFiles) {
            packet +=
                "     <rdf:li rdf:parseType=\"Resource\">\n"
                "      <stMfs:linkForm>ReferenceStream</stMfs:linkForm>\n"
                "      <stMfs:reference rdf:parseType=\"Resource\">\n"
                "       <stRef:filePath>" +
                EscapeXml(file) +
                "</stRef:filePath>\n"
                "      </stMfs:reference>\n"
                "     </rdf:li>\n";
        }
        packet += "    </rdf:Bag>\n   </xmpMM:Manifest>\n";
    }
    packet += "  </rdf:Description>\n </rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"w\"?>\n";
    return packet;
}

// The name under `key` in another spelling, keeping the prefix of a subset.
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
