#include "documents/pdf/PdfDescription.h"

#include <algorithm>

#include "base/Utf8.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/XmpPacket.h"

namespace documents {

namespace {

std::string GetText(QPDFObjectHandle value)
{
    return value.isString() ? base::ToValidUtf8(value.getUTF8Value()) : std::string();
}

// A file specification is a string or a dictionary with a string per platform.
std::string GetSpecifiedFile(QPDFObjectHandle specification)
{
    if (specification.isString()) return GetText(specification);
    for (const char* key : {"/UF", "/F", "/Unix", "/Mac", "/DOS"}) {
        std::string file = GetText(GetKeyOrNull(specification, key));
        if (!file.empty()) return file;
    }
    return {};
}

bool HasNativePart(PdfFile& file)
{
    const auto& pages = file.GetPages();
    return std::any_of(pages.begin(), pages.end(), [](QPDFObjectHandle page) {
        return GetKeyOrNull(page.getKey("/PieceInfo"), "/Illustrator").isDictionary();
    });
}

}  // namespace

std::string GetExternalFile(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle opi = GetKeyOrNull(dictionary, "/OPI");
    for (const char* version : {"/2.0", "/1.3"}) {
        std::string file = GetSpecifiedFile(GetKeyOrNull(GetKeyOrNull(opi, version), "/F"));
        if (!file.empty()) return file;
    }
    std::string file = GetSpecifiedFile(GetKeyOrNull(GetKeyOrNull(dictionary, "/Ref"), "/F"));
    return file.empty() ? GetSpecifiedFile(GetKeyOrNull(dictionary, "/F")) : file;
}

void DescribePdf(PdfFile& file, Document& document)
{
    QPDF& pdf = file.GetPdf();
    ByteBuffer packet;
    QPDFObjectHandle metadata = GetKeyOrNull(GetKeyOrNull(pdf.getTrailer(), "/Root"), "/Metadata");
    if (metadata.isStream()) file.AppendStream(metadata, packet);
    const XmpFacts facts = ReadXmpPacket(packet.GetView());
    document.linkedFiles = facts.manifestFiles;
    document.creator = GetText(GetKeyOrNull(GetKeyOrNull(pdf.getTrailer(), "/Info"), "/Creator"));
    if (document.creator.empty()) document.creator = facts.creatorTool;
    const bool isIllustrator =
        document.creator.find("Adobe Illustrator") != std::string::npos || HasNativePart(file);
    document.kind = isIllustrator ? Kind::kIllustrator : Kind::kPDF;
}

}  // namespace documents
