#include "PdfSample.h"

#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include "documents/write/NativeWriter.h"
#include "documents/write/WriteXmp.h"

namespace {

constexpr char kCreator[] = "Headless Host";
constexpr char kPdfDate[] = "D:20240101000000Z";

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

    QPDFObjectHandle metadata = QPDFObjectHandle::newStream(
        &document, documents::MakeXmpPacket(kCreator, facts.placedFiles));
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    document.getRoot().replaceKey("/Metadata", metadata);

    if (!facts.nativePart.empty()) {
        documents::AttachNativePart(document, document.getAllPages().at(0), facts.nativePart);
    }
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}
