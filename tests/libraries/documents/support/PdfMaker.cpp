#include "PdfMaker.h"

#include <gtest/gtest.h>

#include "OpenBytes.h"
#include "documents/write/Compress.h"

PdfMaker::PdfMaker()
{
    Set(1, "<< /Type /Catalog /Pages 2 0 R >>");
    Set(2, "<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    SetContent("");
    Set(10, "<< /Type /Font /Subtype /TrueType /BaseFont /ABCDEF+Alpha-Regular >>");
    Set(11, "<< /Type /Font /Subtype /Type1 /BaseFont /Beta-Bold >>");
    Set(12,
        "<< /Type /Font /Subtype /Type0 /BaseFont /Gamma-Medium-Identity-H /Encoding /Identity-H "
        "/DescendantFonts [13 0 R] >>");
    Set(13, "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /QWERTY+Gamma-Medium >>");
    Set(14, "<< /Type /Font /Subtype /Type3 /BaseFont /Drawn /CharProcs << >> >>");
}

PdfMaker& PdfMaker::Set(int number, const std::string& text)
{
    mObjects[number] = text;
    return *this;
}

PdfMaker& PdfMaker::SetContent(const std::string& content) { return SetStream(4, "", content); }

PdfMaker& PdfMaker::SetStream(int number, const std::string& dictionary, const std::string& data)
{
    return Set(number, "<< " + dictionary + " /Length " + std::to_string(data.size()) +
                           " >>\nstream\n" + data + "\nendstream");
}

PdfMaker& PdfMaker::AddResources(const std::string& entries)
{
    mResources += " " + entries;
    return *this;
}

PdfMaker& PdfMaker::AddPageEntries(const std::string& entries)
{
    mPage += " " + entries;
    return *this;
}

PdfMaker& PdfMaker::AddTrailerEntries(const std::string& entries)
{
    mTrailer += " " + entries;
    return *this;
}

std::string PdfMaker::Make() const
{
    std::map<int, std::string> objects = mObjects;
    objects.emplace(3,
                    "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 100 100] /Contents 4 0 R "
                    "/Resources 5 0 R" +
                        mPage + " >>");
    objects.emplace(
        5, "<< /Font << /F1 10 0 R /F2 11 0 R /F3 12 0 R /F4 14 0 R >>" + mResources + " >>");
    std::string pdf = "%PDF-1.7\n";
    std::string table;
    for (const auto& [number, text] : objects) {
        std::string offset = std::to_string(pdf.size());
        offset.insert(0, 10 - offset.size(), '0');
        table += std::to_string(number) + " 1\n" + offset + " 00000 n \n";
        pdf += std::to_string(number) + " 0 obj\n" + text + "\nendobj\n";
    }
    const size_t start = pdf.size();
    pdf += "xref\n0 1\n0000000000 65535 f \n" + table + "trailer\n<< /Root 1 0 R /Size " +
           std::to_string(objects.rbegin()->first + 1) + mTrailer + " >>\nstartxref\n" +
           std::to_string(start) + "\n%%EOF\n";
    return pdf;
}

documents::OpenResult PdfMaker::Open(const documents::Limits& limits) const
{
    const std::string pdf = Make();
    const documents::OpenResult result = OpenBytes(pdf, "made.pdf", limits);
    EXPECT_EQ(DescribeAnswer(OpenBytes(MakeIrregular(pdf), "made.pdf", limits)),
              DescribeAnswer(result));
    return result;
}

std::string MakeIrregular(const std::string& pdf) { return "\n" + pdf; }

std::string DescribeAnswer(const documents::OpenResult& result)
{
    const documents::Document& document = result.document;
    std::string text = result.ok ? "read by " + document.reader : "error: " + result.error;
    text += std::string(", ") + documents::GetKindName(document.kind) + " of " + document.creator;
    for (const std::string& note : document.notes) text += "\nnote " + note;
    for (const std::string& font : document.fonts) text += "\nfont " + font;
    for (const std::string& font : document.fontList) text += "\nlisted " + font;
    for (const std::string& file : document.linkedFiles) text += "\nplaced " + file;
    for (const documents::PageFont& font : document.pageFonts) {
        text += "\non pages " + font.postScriptName + " " +
                std::to_string(static_cast<int>(font.embedding));
    }
    for (const auto& [font, words] : document.words) text += "\nwords " + font + " " + words;
    return text + "\n" + DescribeFrames(result);
}

std::string Deflate(const std::string& data, int level)
{
    return documents::CompressZlib(data, level);
}

std::string DescribeFrames(const documents::OpenResult& result)
{
    if (!result.ok) return "error: " + result.error;
    std::string text;
    for (const documents::TextFrame& frame : result.document.frames) {
        if (!text.empty()) text += " |";
        for (const documents::TextRun& run : frame.runs) {
            if (!text.empty()) text += ' ';
            text += run.postScriptName + ":" + std::to_string(run.length);
        }
    }
    return text;
}

std::string DescribeContent(const std::string& content)
{
    return DescribeFrames(PdfMaker().SetContent(content).Open());
}
