#include "NativeMaker.h"

#include <zstd.h>

#include <cstdint>
#include <stdexcept>

#include "OpenBytes.h"
#include "PdfMaker.h"

namespace {

std::string ToUtf16(const std::string& ascii)
{
    std::string text = "\xFE\xFF";
    for (const char c : ascii) {
        text += '\0';
        if (c == '(' || c == ')' || c == '\\') text += '\\';
        text += c;
    }
    return text;
}

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to)
{
    for (size_t start = text.find(from); start != std::string::npos;) {
        text.replace(start, from.size(), to);
        start = text.find(from, start + to.size());
    }
    return text;
}

std::string ToLittleEndian(size_t value)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

std::string CompressZstandard(const std::string& text)
{
    std::string packed(ZSTD_compressBound(text.size()), '\0');
    const size_t size = ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), 3);
    if (ZSTD_isError(size) != 0) throw std::runtime_error("cannot compress");
    packed.resize(size);
    return packed;
}

constexpr char kPackedHeader[] = "%%BoundingBox: 0 0 10 10\r%AI7_Thumbnail: 1 1 8\r";

}  // namespace

std::string NativeMaker::Key(const char* number, const char* word) const
{
    return std::string("/") + (mKeys == Keys::kNumbers ? number : word) + " ";
}

NativeMaker& NativeMaker::SetFonts(std::vector<std::string> names)
{
    mFonts = std::move(names);
    return *this;
}

NativeMaker& NativeMaker::AddStyle(int font, int parent)
{
    mStyles +=
        "<< " + Key("0", "Resource") + "<< " + Key("0", "Name") + "(" + ToUtf16("style") + ") ";
    if (parent >= 0) mStyles += Key("5", "Parent") + std::to_string(parent) + " ";
    mStyles += Key("6", "Features") + "<< ";
    if (font >= 0) mStyles += Key("0", "Font") + std::to_string(font) + " ";
    mStyles += Key("1", "FontSize") + "12.0 >> >> >> ";
    return *this;
}

NativeMaker& NativeMaker::AddStory(const std::vector<Run>& runs, const std::vector<int>& portions)
{
    mStories += "<< " + Key("0", "Model") + "<< " + Key("0", "Text") + "(" + ToUtf16("a(b)") +
                ") " + Key("6", "StyleRun") + "<< " + Key("0", "RunArray") + "[ ";
    for (const Run& run : runs) {
        mStories += "<< " + Key("0", "RunData") + "<< " + Key("0", "StyleSheet") + "<< " +
                    Key("0", "Name") + "(\xFE\xFF) " + Key("5", "Parent") +
                    std::to_string(run.parent) + " " + Key("6", "Features") + "<< ";
        if (run.font >= 0) mStories += Key("0", "Font") + std::to_string(run.font) + " ";
        mStories += Key("1", "FontSize") + "9.0 >> >> >> " + Key("1", "Length") +
                    std::to_string(run.length) + " >> ";
    }
    mStories += "] >> >> ";
    return AddView(portions);
}

NativeMaker& NativeMaker::AddPlainStory(const std::string& text, const std::vector<int>& portions)
{
    mStories += "<< " + Key("0", "Model") + "<< " + Key("0", "Text") + "(" + ToUtf16(text) + ") " +
                Key("5", "ParagraphRun") + "<< " + Key("0", "RunArray") + "[ << " +
                Key("1", "Length") + std::to_string(text.size()) + " >> ] >> /10 << >> >> ";
    return AddView(portions);
}

NativeMaker& NativeMaker::AddView(const std::vector<int>& portions)
{
    const size_t count = portions.empty() ? 1 : portions.size();
    std::string frames;
    std::string layout;
    for (size_t i = 0; i < count; ++i) {
        const std::string index = std::to_string(mFrameCount++);
        frames += "<< /0 " + index + " >> ";
        if (portions.empty()) continue;
        layout += "<< /99 /F /10 " + index +
                  " /6 [ << /99 /R /6 [ << /99 /R /6 [ << /99 /L /6 [ << /99 /S /15 << /0 " +
                  std::to_string(portions[i]) +
                  " /2 0 >> /6 [ << /99 /G /5 [ 3 ] >> ] >> ] >> ] >> ] >> ] >> ";
    }
    if (mKeys == Keys::kNumbers) {
        mStories += "/1 << /0 [ " + frames + "] /2 [ << /99 /PC /5 0 /6 [ " + layout + "] >> ] >> ";
    }
    mStories += ">> ";
    return *this;
}

NativeMaker& NativeMaker::AddFrame(int story, int frame)
{
    return AddLines("/AI11Text :\n0 /FreeUndo ,\n" + std::to_string(frame) + " /FrameIndex ,\n" +
                    std::to_string(story) +
                    " /StoryIndex ,\n/Art :\n0 0 m\nn\n; /ConfiningPath ,\n"
                    "2 /TextAntialiasing ,\n;");
}

NativeMaker& NativeMaker::AddLines(const std::string& lines)
{
    mArt += lines + "\n";
    return *this;
}

NativeMaker& NativeMaker::AddHeader(const std::string& lines)
{
    mHeader += lines + "\n";
    return *this;
}

std::string NativeMaker::MakeTree() const
{
    std::string fonts;
    for (const std::string& name : mFonts) {
        fonts += "<< " + Key("0", "Resource") + "<< /99 /CoolTypeFont " + Key("0", "Identifier") +
                 "<< " + Key("0", "Name") + "(" + ToUtf16(name) + ") /2 1 >> >> >> ";
    }
    return " /98 << /0 7 >> " + Key("0", "DocumentResources") + "<< " + Key("1", "FontSet") +
           "<< " + Key("0", "Resources") + "[ " + fonts + "] >> " + Key("5", "StyleSheetSet") +
           "<< " + Key("0", "Resources") + "[ " + mStyles + "] >> >> " +
           Key("1", "DocumentObjects") + "<< " + Key("1", "TextObjects") + "[ " + mStories + "] " +
           Key("2", "OriginalNormalStyleFeatures") + "<< " + Key("0", "Font") + "0 " +
           Key("1", "FontSize") + "12.0 >> >>";
}

std::string NativeMaker::MakeText(const std::string& lineEnd) const
{
    std::string text = "%!PS-Adobe-3.0 \n%%Creator: Adobe Illustrator(R) 11.0\n" + mHeader +
                       "%AI5_FileFormat 7.0\n%%EndComments\n%%BeginSetup\n";
    if (!mFonts.empty()) {
        text += "%AI11_BeginTextDocument\n/AI11TextDocument : /ASCII85Decode ,\n" +
                EncodeAscii85(MakeTree(), "\n") + "\n%AI11_EndTextDocument\n";
    }
    text += "%%EndSetup\n%AI5_BeginLayer\n" + mArt + "LB\n%AI5_EndLayer--\n%%EOF\n";
    return ReplaceAll(text, "\n", lineEnd);
}

std::string EncodeAscii85(const std::string& bytes, const std::string& lineEnd)
{
    constexpr size_t kLineLength = 100;
    std::string text;
    for (size_t i = 0; i < bytes.size(); i += 4) {
        const size_t count = std::min<size_t>(4, bytes.size() - i);
        uint32_t value = 0;
        for (size_t j = 0; j < 4; ++j) {
            const auto byte = j < count ? static_cast<unsigned char>(bytes[i + j]) : 0U;
            value = value << 8 | byte;
        }
        std::string group(5, '!');
        for (size_t j = 5; j-- > 0; value /= 85) group[j] = static_cast<char>('!' + value % 85);
        text += value == 0 && count == 4 && group == "!!!!!" ? "z" : group.substr(0, count + 1);
    }
    text += "~>";
    std::string lines;
    for (size_t i = 0; i < text.size(); i += kLineLength) {
        lines += (i == 0 ? "" : lineEnd) + "%" + text.substr(i, kLineLength);
    }
    return lines;
}

std::string PackPlain(const std::string& text) { return text; }

std::string PackZlib(const std::string& text)
{
    return kPackedHeader + std::string("%AI12_CompressedData") + Deflate(text);
}

std::string PackZstandard(const std::string& text)
{
    return "%AI24_ZStandard_Data" + CompressZstandard(text);
}

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
           EncodeAscii85(CompressZstandard(native.substr(head))) + "\r%AI9_PrivateDataEnd\r";
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
