#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include "OpenBytes.h"
#include "PdfMaker.h"
#include "WithoutRootRights.h"

using namespace documents;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

namespace {

std::string GetError(const std::string& bytes)
{
    const OpenResult result = OpenBytes(bytes);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(std::string::npos, result.error.find('\n'));
    return result.error;
}

std::string Encrypt(const std::string& pdf, const char* userPassword)
{
    QPDF document;
    document.processMemoryFile("made", pdf.data(), pdf.size());
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(userPassword, "owner", true, true, true, true, true, true,
                                     qpdf_r3p_full, true);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

std::string MakePdf() { return PdfMaker().SetContent("BT /F1 9 Tf (a) Tj ET").Make(); }

}  // namespace

TEST(OpenErrors, MissingFile)
{
    EXPECT_EQ("no such file", OpenDocument("/no/such/file").error);
    EXPECT_EQ("no such file", OpenDocument("").error);
}

TEST(OpenErrors, FolderIsNotAFile)
{
    const ScratchFolder folder;
    EXPECT_EQ("is a folder", OpenDocument(folder.Path()).error);
}

TEST(OpenErrors, PipeIsNotARegularFile)
{
    const ScratchFolder folder;
    const std::string path = folder.Path() + "/pipe";
    ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
    EXPECT_EQ("is not a regular file", OpenDocument(path).error);
}

TEST(OpenErrors, FileWithoutReadPermission)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("a.pdf", MakePdf());
    ASSERT_EQ(0, chmod(path.c_str(), 0));
    const WithoutRootRights nobody(folder.Path());
    EXPECT_EQ("no permission to read it", OpenDocument(path).error);
}

TEST(OpenErrors, EmptyFile) { EXPECT_EQ("is empty", GetError("")); }

TEST(OpenErrors, FileThatIsNotADocument)
{
    EXPECT_EQ("is not a PDF, EPS or Illustrator document", GetError("Hello"));
}

TEST(OpenErrors, HugeFileOfZeros)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("zeros", "");
    std::filesystem::resize_file(path, 300U << 20);
    EXPECT_EQ("is not a PDF, EPS or Illustrator document", OpenDocument(path).error);
}

TEST(OpenErrors, FileBeyondTheLimit)
{
    const ScratchFolder folder;
    const std::string path = folder.Write("big.pdf", "%PDF-1.4\n");
    std::filesystem::resize_file(path, 3U << 20);
    Limits limits;
    limits.inflatedBytes = 2U << 20;
    EXPECT_EQ("too large: 3 MiB, at most 2 MiB can be read", OpenDocument(path, limits).error);
}

TEST(OpenErrors, DocumentWithAUserPassword)
{
    EXPECT_EQ("encrypted: needs a password", GetError(Encrypt(MakePdf(), "secret")));
}

TEST(OpenErrors, DocumentWithAnOwnerPasswordIsRead)
{
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(OpenBytes(Encrypt(MakePdf(), ""))));
}

TEST(OpenErrors, DocumentCutOffNearItsStart)
{
    EXPECT_THAT(GetError(MakePdf().substr(0, 30)), StartsWith("cut off, and the rest"));
}

TEST(OpenErrors, DocumentCutOffBeforeItsTableIsReadWithANote)
{
    const std::string pdf = MakePdf();
    const OpenResult result = OpenBytes(pdf.substr(0, pdf.find("startxref")));
    EXPECT_EQ("Alpha-Regular:1", DescribeFrames(result));
    ASSERT_THAT(result.document.notes, SizeIs(1));
    EXPECT_THAT(result.document.notes[0], StartsWith("cut off: "));
}

TEST(OpenErrors, DamagedDocument)
{
    EXPECT_THAT(GetError("%PDF-1.4\nnothing\n%%EOF\n"), StartsWith("damaged: "));
}

TEST(OpenErrors, DocumentWithoutPages)
{
    EXPECT_THAT(GetError(PdfMaker().Set(2, "<< /Type /Pages /Kids [] /Count 0 >>").Make()),
                HasSubstr("no page in it"));
}

TEST(OpenErrors, BrokenStreamIsReadUpToTheDamage)
{
    std::string packed = Deflate("BT /F1 9 Tf (a) Tj ET" + std::string(3000, ' ') + "BT (b) Tj ET");
    packed.resize(packed.size() - 6);
    const OpenResult result = PdfMaker().SetStream(4, "/Filter /FlateDecode", packed).Open();
    ASSERT_TRUE(result.ok);
    EXPECT_THAT(result.document.fonts, testing::ElementsAre("Alpha-Regular"));
}
