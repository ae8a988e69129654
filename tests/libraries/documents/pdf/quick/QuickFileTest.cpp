#include "documents/pdf/quick/QuickFile.h"

#include <gtest/gtest.h>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>

#include "PdfMaker.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/PdfReader.h"

using documents::Document;
using documents::Irregular;
using documents::Limits;
using documents::QuickFile;
using documents::QuickObject;

namespace {

// Text in a form, in an annotation and in deflated content, with metadata.
PdfMaker MakeRichFile()
{
    PdfMaker maker;
    maker.SetStream(4, "/Filter /FlateDecode",
                    Deflate("BT /F1 9 Tf (abc) Tj /F3 9 Tf <0102> Tj ET /X Do"));
    maker.AddResources("/XObject << /X 20 0 R >>");
    maker.SetStream(20, "/Subtype /Form /Resources << /Font << /F 11 0 R >> >>",
                    "BT /F 9 Tf [(in) -20 (form)] TJ ET");
    maker.AddPageEntries("/Annots [21 0 R]");
    maker.Set(21, "<< /Type /Annot /AP << /N 22 0 R >> >>");
    maker.SetStream(22, "/Subtype /Form", "BT /F1 9 Tf (seen) Tj ET");
    maker.Set(23, "<< /Creator (A \\(fine\\) program) >>");
    maker.AddTrailerEntries("/Info 23 0 R");
    return maker;
}

// The same file with object streams and a cross-reference stream.
std::string Pack(const std::string& pdf)
{
    QPDF file;
    file.processMemoryFile("made", pdf.data(), pdf.size());
    QPDFWriter writer(file);
    writer.setOutputMemory();
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setStaticID(true);
    writer.write();
    const auto bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

bool IsReadQuickly(const std::string& pdf)
{
    const documents::ReadBudget budget(Limits{}.inflatedBytes, Limits{}.seconds);
    Document document;
    try {
        documents::ReadPdfQuickly(pdf, Limits{}, document);
        return true;
    } catch (const Irregular&) {
        return false;
    }
}

// Returns how many of the damaged files the quick reader reads; all must have the same answer as
// from the library.
size_t CompareDamaged(const std::string& pdf, void (*damage)(std::string& bytes, size_t position))
{
    Limits limits;
    limits.hasDetails = true;
    size_t quick = 0;
    for (size_t position = 8; position < pdf.size(); ++position) {
        std::string damaged = pdf;
        damage(damaged, position);
        if (!IsReadQuickly(damaged)) continue;
        ++quick;
        EXPECT_EQ(DescribeAnswer(documents::OpenDocumentBytes(MakeIrregular(damaged), limits)),
                  DescribeAnswer(documents::OpenDocumentBytes(damaged, limits)))
            << position;
    }
    return quick;
}

void Flip(std::string& bytes, size_t position)
{
    bytes[position] = static_cast<char>(bytes[position] ^ (1 << position % 7));
}

void Blank(std::string& bytes, size_t position) { bytes[position] = ' '; }

void Cut(std::string& bytes, size_t position) { bytes.resize(position); }

}  // namespace

TEST(QuickFile, ReadsSoundFilesByItself)
{
    const std::string pdf = MakeRichFile().Make();
    EXPECT_TRUE(IsReadQuickly(pdf));
    EXPECT_TRUE(IsReadQuickly(Pack(pdf)));
    EXPECT_FALSE(IsReadQuickly(MakeIrregular(pdf)));
    EXPECT_EQ("Alpha-Regular:3 Gamma-Medium:1 | Beta-Bold:6 | Alpha-Regular:4",
              DescribeFrames(MakeRichFile().Open()));
    EXPECT_EQ("A (fine) program", MakeRichFile().Open().document.creator);
}

TEST(QuickFile, PackedFileHasTheSameAnswer)
{
    const std::string pdf = MakeRichFile().Make();
    EXPECT_EQ(DescribeAnswer(documents::OpenDocumentBytes(MakeIrregular(pdf))),
              DescribeAnswer(documents::OpenDocumentBytes(Pack(pdf))));
}

TEST(QuickFile, LeavesFaultsToTheLibrary)
{
    const auto isQuick = [](const PdfMaker& maker) { return IsReadQuickly(maker.Make()); };
    EXPECT_FALSE(isQuick(PdfMaker().AddTrailerEntries("/Encrypt << /Filter /Standard >>")));
    EXPECT_FALSE(isQuick(PdfMaker().AddTrailerEntries("/XRefStm 20")));
    EXPECT_FALSE(isQuick(PdfMaker().AddTrailerEntries("/Prev 5")));
    EXPECT_FALSE(isQuick(PdfMaker().AddPageEntries("/PieceInfo << /Program << >> >>")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(1, "<< /Type /Catalog /Pages 1 0 R >>")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(2, "<< /Type /Pages /Kids [2 0 R] >>")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(2, "<< /Type /Pages /Kids [3 0 R 3 0 R] >>")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(4, "<< /Length 9 >>\nstream\nq Q\nendstream")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(4, "<< /Length 4 0 R >>\nstream\nq Q\nendstream")));
    EXPECT_FALSE(isQuick(PdfMaker().SetStream(4, "/Filter /FlateDecode", "no zlib")));
    EXPECT_FALSE(isQuick(PdfMaker().SetStream(4, "/Filter /LZWDecode", "q Q")));
    EXPECT_FALSE(isQuick(PdfMaker().SetStream(
        4,
        "/Filter /FlateDecode /DecodeParms << /Predictor 12 /Colors 999999999999999 "
        "/BitsPerComponent 999999999999999 >>",
        Deflate("q Q"))));
    EXPECT_FALSE(isQuick(PdfMaker().Set(5, "<< /Font << /F1 10 1 R >> >>")));
    EXPECT_FALSE(isQuick(PdfMaker().Set(5, "<< /Font " + std::string(500, '[') + " >>")));
    EXPECT_TRUE(isQuick(PdfMaker().Set(5, "<< /Font << /F1 99 0 R >> >>")));
}

// The stream's number can be that of another object if startxref is damaged.
TEST(QuickFile, LeavesAHiddenCrossReferenceStreamToTheLibrary)
{
    PdfMaker maker = MakeRichFile();
    maker.Set(99, "<< >>");
    std::string pdf = Pack(maker.Make());
    const size_t mark = pdf.rfind("startxref\n") + 10;
    const size_t start = std::stoul(pdf.substr(mark));
    ASSERT_EQ("0 obj", pdf.substr(pdf.find(' ', start) + 1, 5));
    ASSERT_LT(start + 1, pdf.find(' ', start)) << "the number needs two digits";
    pdf.replace(mark, std::to_string(start).size(), std::to_string(start + 1));
    EXPECT_FALSE(IsReadQuickly(pdf));
}

TEST(QuickFile, FindsTheLastOfEqualKeysAmongFewAndAmongMany)
{
    for (const int others : {0, 3, 100}) {
        std::string entries = "/Same 1 ";
        for (int i = 0; i < others; ++i) entries += "/Key" + std::to_string(i) + " 7 ";
        const std::string pdf = PdfMaker().AddPageEntries(entries + "/Same 2 /S#61me#20 3").Make();
        QuickFile file(pdf);
        const QuickObject page = file.GetPages().front();
        EXPECT_EQ(2, page.getKey("/Same").getIntValue());
        EXPECT_EQ(3, page.getKey("/Same ").getIntValue());
        EXPECT_TRUE(page.getKey("/Sam").isNull());
        EXPECT_EQ(others > 0, page.getKey("/Key0").isInteger());
    }
}

TEST(QuickFile, DamagedFilesHaveTheSameAnswerAsFromTheLibrary)
{
    const std::string pdf = MakeRichFile().Make();
    EXPECT_LT(100U, CompareDamaged(pdf, Flip));
    EXPECT_LT(100U, CompareDamaged(pdf, Blank));
    EXPECT_LT(1U, CompareDamaged(pdf, Cut));
}

TEST(QuickFile, DamagedPackedFilesHaveTheSameAnswerAsFromTheLibrary)
{
    const std::string pdf = Pack(MakeRichFile().Make());
    EXPECT_LT(20U, CompareDamaged(pdf, Flip));
    EXPECT_LT(1U, CompareDamaged(pdf, Cut));
}
