#include "documents/write/NativeWriter.h"

#include <qpdf/QPDF.hh>

#include "documents/native/NativeKeys.h"
#include "documents/postscript/DscText.h"
#include "documents/write/Compress.h"

namespace documents {

namespace {

constexpr size_t kBlockBytes = size_t{64} << 10;
constexpr char kLastModified[] = "D:20240101000000Z";

// Lines before the mark of the compressed data.
constexpr char kPackedHeader[] = "%%BoundingBox: 0 0 10 10\r%AI7_Thumbnail: 1 1 8\r";

std::string ToUtf16(std::string_view ascii)
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

}  // namespace

std::string NativeWriter::Key(const char* number, const char* word) const
{
    return std::string("/") + (mKeys == Keys::kNumbers ? number : word) + " ";
}

NativeWriter& NativeWriter::SetCreator(std::string program)
{
    mCreator = std::move(program);
    return *this;
}

NativeWriter& NativeWriter::SetFonts(std::vector<std::string> names)
{
    mFonts = std::move(names);
    return *this;
}

NativeWriter& NativeWriter::AddStyle(int font, int parent)
{
    mStyles +=
        "<< " + Key("0", "Resource") + "<< " + Key("0", "Name") + "(" + ToUtf16("style") + ") ";
    if (parent >= 0) mStyles += Key("5", "Parent") + std::to_string(parent) + " ";
    mStyles += Key("6", "Features") + "<< ";
    if (font >= 0) mStyles += Key("0", "Font") + std::to_string(font) + " ";
    mStyles += Key("1", "FontSize") + "12.0 >> >> >> ";
    return *this;
}

NativeWriter& NativeWriter::AddStory(const std::vector<Run>& runs, const std::vector<int>& portions,
                                     std::string_view text)
{
    mStories += "<< " + Key("0", "Model") + "<< " + Key("0", "Text") + "(" + ToUtf16(text) + ") " +
                Key("6", "StyleRun") + "<< " + Key("0", "RunArray") + "[ ";
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

NativeWriter& NativeWriter::AddPlainStory(const std::string& text, const std::vector<int>& portions)
{
    mStories += "<< " + Key("0", "Model") + "<< " + Key("0", "Text") + "(" + ToUtf16(text) + ") " +
                Key("5", "ParagraphRun") + "<< " + Key("0", "RunArray") + "[ << " +
                Key("1", "Length") + std::to_string(text.size()) + " >> ] >> /10 << >> >> ";
    return AddView(portions);
}

NativeWriter& NativeWriter::AddView(const std::vector<int>& portions)
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

NativeWriter& NativeWriter::AddFrame(int story, int frame)
{
    return AddLines("/AI11Text :\n0 /FreeUndo ,\n" + std::to_string(frame) + " /FrameIndex ,\n" +
                    std::to_string(story) +
                    " /StoryIndex ,\n/Art :\n0 0 m\nn\n; /ConfiningPath ,\n"
                    "2 /TextAntialiasing ,\n;");
}

NativeWriter& NativeWriter::AddPlacedFile(const std::string& path)
{
    return AddLines("%%IncludeFile: " + path + "\n" + record::kPlaced + QuoteAsString(path));
}

NativeWriter& NativeWriter::AddLines(const std::string& lines)
{
    mArt += lines + "\n";
    return *this;
}

NativeWriter& NativeWriter::AddHeader(const std::string& lines)
{
    mHeader += lines + "\n";
    return *this;
}

std::string NativeWriter::MakeTree() const
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

std::string NativeWriter::MakeText(const std::string& lineEnd) const
{
    std::string text = "%!PS-Adobe-3.0 \n%%Creator: " + mCreator + "\n" + mHeader +
                       "%AI5_FileFormat 7.0\n%%EndComments\n%%BeginSetup\n";
    if (!mFonts.empty()) {
        text += "%AI11_BeginTextDocument\n/AI11TextDocument : /ASCII85Decode ,\n" +
                EncodeAscii85(MakeTree(), "\n") + "\n%AI11_EndTextDocument\n";
    }
    text += "%%EndSetup\n%AI5_BeginLayer\n" + mArt + "LB\n%AI5_EndLayer--\n%%EOF\n";
    return ReplaceAll(text, "\n", lineEnd);
}

std::string PackZlib(const std::string& text)
{
    return kPackedHeader + std::string(record::kCompressedData) + CompressZlib(text);
}

std::string PackZstandard(const std::string& text)
{
    return std::string(record::kZStandardData) + CompressZstandard(text);
}

void AttachNativePart(QPDF& pdf, QPDFObjectHandle page, const std::string& packed)
{
    QPDFObjectHandle data = QPDFObjectHandle::newDictionary();
    long long count = 0;
    for (size_t start = 0; start < packed.size(); start += kBlockBytes) {
        ++count;
        data.replaceKey(record::kPrivateData + std::to_string(count),
                        QPDFObjectHandle::newStream(&pdf, packed.substr(start, kBlockBytes)));
    }
    data.replaceKey(record::kBlockCount, QPDFObjectHandle::newInteger(count));
    QPDFObjectHandle piece = QPDFObjectHandle::newDictionary();
    piece.replaceKey("/LastModified", QPDFObjectHandle::newString(kLastModified));
    piece.replaceKey(record::kPrivate, pdf.makeIndirectObject(data));
    QPDFObjectHandle pieces = QPDFObjectHandle::newDictionary();
    pieces.replaceKey(record::kProgramPiece, piece);
    page.replaceKey(record::kPieceInfo, pieces);
}

}  // namespace documents
