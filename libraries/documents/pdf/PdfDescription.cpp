#include "documents/pdf/PdfDescription.h"

#include <algorithm>

#include "base/Utf8.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFile.h"  // IWYU pragma: keep
#include "documents/pdf/XmpPacket.h"
#include "documents/pdf/quick/QuickFile.h"  // IWYU pragma: keep

namespace documents {

namespace {

template <class Object>
std::string GetText(Object value)
{
    return value.isString() ? base::ToValidUtf8(value.getUTF8Value()) : std::string();
}

// A file specification is a string or a dictionary with a string per platform.
template <class Object>
std::string GetSpecifiedFile(Object specification)
{
    if (specification.isString()) return GetText(specification);
    for (const char* key : {"/UF", "/F", "/Unix", "/Mac", "/DOS"}) {
        std::string file = GetText(GetKeyOrNull(specification, key));
        if (!file.empty()) return file;
    }
    return {};
}

template <class File>
bool HasNativePart(File& file)
{
    const auto& pages = file.GetPages();
    return std::any_of(pages.begin(), pages.end(), [](typename File::Object page) {
        return GetKeyOrNull(page.getKey("/PieceInfo"), "/Illustrator").isDictionary();
    });
}

}  // namespace

template <class Object>
std::string GetExternalFile(Object dictionary)
{
    Object opi = GetKeyOrNull(dictionary, "/OPI");
    for (const char* version : {"/2.0", "/1.3"}) {
        std::string file = GetSpecifiedFile(GetKeyOrNull(GetKeyOrNull(opi, version), "/F"));
        if (!file.empty()) return file;
    }
    std::string file = GetSpecifiedFile(GetKeyOrNull(GetKeyOrNull(dictionary, "/Ref"), "/F"));
    return file.empty() ? GetSpecifiedFile(GetKeyOrNull(dictionary, "/F")) : file;
}

template <class File>
void DescribePdf(File& file, Document& document)
{
    using Object = typename File::Object;
    Object trailer = file.GetTrailer();
    ByteBuffer packet;
    Object metadata = GetKeyOrNull(GetKeyOrNull(trailer, "/Root"), "/Metadata");
    if (metadata.isStream()) file.AppendStream(metadata, packet);
    const XmpFacts facts = ReadXmpPacket(packet.GetView());
    document.linkedFiles = facts.manifestFiles;
    document.creator = GetText(GetKeyOrNull(GetKeyOrNull(trailer, "/Info"), "/Creator"));
    if (document.creator.empty()) document.creator = facts.creatorTool;
    const bool isIllustrator =
        document.creator.find("Adobe Illustrator") != std::string::npos || HasNativePart(file);
    document.kind = isIllustrator ? Kind::kIllustrator : Kind::kPDF;
}

template std::string GetExternalFile(QPDFObjectHandle dictionary);
template std::string GetExternalFile(QuickObject dictionary);
template void DescribePdf(PdfFile& file, Document& document);
template void DescribePdf(QuickFile& file, Document& document);

}  // namespace documents
