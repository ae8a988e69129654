#include "NativeMaker.h"

#include "OpenBytes.h"
#include "PdfMaker.h"
#include "documents/write/Compress.h"

namespace {

std::string ToLittleEndian(size_t value)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

}  // namespace

std::string PackPlain(const std::string& text) { return text; }

std::string WrapInPdf(const std::string& native, size_t blocks)
{
    PdfMaker maker;
    maker.SetContent("BT /F1 9 Tf (abc) Tj ET");
    maker.AddPageEntries("/PieceInfo << /Illustrator 20 0 R >>");
    maker.Set(20, "<< /LastModified (D:20240101000000Z) /Private 21 0 R >>");
    std::string entries = "/NumBlock " + std::to_string(blocks);
    const size_t step = native.size() / blocks + 1;
    for (size_t i = 0; i < blocks; ++i) {
        const int number = static_cast<int>(30 + i);
        entries +=
            " /AIPrivateData" + std::to_string(i + 1) + " " + std::to_string(number) + " 0 R";
        const size_t start = std::min(i * step, native.size());
        maker.SetStream(number, "/Filter /FlateDecode", Deflate(native.substr(start, step)));
    }
    maker.Set(21, "<< " + entries + " >>");
    return maker.Make();
}

std::string WrapInEps(const std::string& native)
{
    return "%!PS-Adobe-3.1 EPSF-3.0\r%%Creator: Adobe Illustrator(R) 13.0\r%%DocumentFonts: \r"
           "%%EndComments\r%%BeginProlog\r%%EndProlog\r%AI9_PrivateDataBegin\r%AI9_DataStream\r" +
           EncodeAscii85(Deflate(native)) + "\r%AI9_PrivateDataEnd\r%%EOF\r";
}

std::string WrapInNewEps(const std::string& native)
{
    const std::string mark = "%AI5_FileFormat 7.0\r";
    const size_t format = native.find(mark);
    const size_t head = format == std::string::npos ? 0 : format + mark.size();
    return "%!PS-Adobe-3.1 EPSF-3.0\r%%Creator: Adobe Illustrator(R) 26.0\r%%DocumentFonts: \r"
           "%%EndComments\r%%BeginProlog\r%%EndProlog\r%%EOF\r%AI9_PrivateDataBegin\r" +
           native.substr(0, head) + "%AI24_DataStream\r" +
           EncodeAscii85(documents::CompressZstandard(native.substr(head))) +
           "\r%AI9_PrivateDataEnd\r";
}

std::string WrapInDosEps(const std::string& eps)
{
    std::string header = "\xC5\xD0\xD3\xC6" + ToLittleEndian(30) + ToLittleEndian(eps.size());
    header.resize(28, '\0');
    return header + "\xFF\xFF" + eps + "preview";
}

documents::OpenResult OpenNative(const NativeMaker& maker)
{
    return OpenBytes(WrapInPdf(PackZlib(maker.MakeText())), "made.ai");
}
