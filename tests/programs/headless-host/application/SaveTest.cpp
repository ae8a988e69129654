#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <qpdf/Pl_Discard.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <sstream>

#include "SessionFixture.h"
#include "WithoutRootRights.h"
#include "documents/OpenDocument.h"
#include "documents/model/FileKind.h"
#include "documents/write/WriteFile.h"
#include "fonts/ActiveFonts.h"

using headless::LineOutcome;
using testing::ElementsAre;
using testing::HasSubstr;

// Saves documents and opens them again; text is drawn with the real font files.
class SaveTest : public SessionFixture {
protected:
    SaveTest()
    {
        for (const fonts::ActiveFont& font : fonts::ListActiveFonts()) {
            fonts.files.emplace(font.postScriptName, documents::FontFile{font.file, font.index});
            fonts.active.insert(font.postScriptName);
        }
        fonts.defaults[""] = "DejaVuSans";
        host->reader = [](const std::string& path) { return documents::OpenDocument(path); };
    }

    documents::Document Read(const std::string& name) const
    {
        const documents::OpenResult result = documents::OpenDocument(folder + "/" + name);
        EXPECT_TRUE(result.ok) << name << ": " << result.error;
        return result.document;
    }

    std::string ReadBytes(const std::string& name) const
    {
        std::ifstream stream(folder + "/" + name, std::ios::binary);
        std::stringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    void CopySample(const std::string& name) const
    {
        std::filesystem::copy(std::string(SAMPLES_FOLDER) + "/" + name, folder);
    }

    // Checks that every object and stream of a PDF can be read without a repair.
    void ExpectSoundPdf(const std::string& name) const
    {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile((folder + "/" + name).c_str());
        QPDFWriter writer(pdf);
        Pl_Discard nowhere;
        writer.setOutputPipeline(&nowhere);
        writer.setDecodeLevel(qpdf_dl_all);
        writer.write();
        EXPECT_FALSE(pdf.anyWarnings()) << name;
    }

    std::vector<std::string> ListFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(SaveTest, ANewDocumentIsReadBackWithItsFontsAndFiles)
{
    MakeFile("a & b.ai");
    MakeFile("c.eps");
    Do("new");
    Do("text DejaVuSerif-Bold some words");
    Do("text DejaVuSansMono more");
    Do("text DejaVuSerif-Bold again");
    Do("place 'a & b.ai'");
    Do("place c.eps");
    Do("place c.eps");
    for (const std::string name : {"n.pdf", "n.ai"}) {
        Do("save " + name);
        const documents::Document document = Read(name);
        EXPECT_THAT(document.fonts, ElementsAre("DejaVuSerif-Bold", "DejaVuSansMono"));
        EXPECT_THAT(document.linkedFiles,
                    ElementsAre(folder + "/a & b.ai", folder + "/c.eps", folder + "/c.eps"));
        ExpectSoundPdf(name);
    }
}

TEST_F(SaveTest, ANameMayConsistOfTheExtensionAlone)
{
    Do("new");
    Do("text DejaVuSansMono words");
    for (const std::string name : {".ai", ".AIT", ".pdf"}) {
        Do("save " + name);
        EXPECT_EQ(documents::Container::kPDF, documents::GetContainer(ReadBytes(name)));
        EXPECT_THAT(Read(name).fonts, ElementsAre("DejaVuSansMono"));
    }
    Do("new");
    Do("save .eps");
    EXPECT_EQ(documents::Container::kPostScript, documents::GetContainer(ReadBytes(".eps")));
    // The same name as before keeps the format, even if a PDF is called .eps.
    std::filesystem::copy(folder + "/.pdf", folder + "/.eps",
                          std::filesystem::copy_options::overwrite_existing);
    Do("close");
    Do("open .eps");
    Do("save");
    EXPECT_EQ(documents::Container::kPDF, documents::GetContainer(ReadBytes(".eps")));
}

TEST_F(SaveTest, AMissingFontKeepsItsName)
{
    Do("new");
    Do("text 'No Such+Font' words");
    Do("text NoSuch-Other words");
    Do("save m.pdf");
    EXPECT_THAT(Read("m.pdf").fonts, ElementsAre("No Such+Font", "NoSuch-Other"));
    ExpectSoundPdf("m.pdf");
}

TEST_F(SaveTest, WhatAnOpenedDocumentHeldIsKept)
{
    CopySample("business-card.ai");
    MakeFile("new.pdf");
    const documents::Document before = Read("business-card.ai");
    Do("open business-card.ai");
    Do("text DejaVuSansMono added");
    Do("place new.pdf");
    Do("save business-card.ai");
    Do("text NoSuch-Font added later");
    Do("save");
    const documents::Document after = Read("business-card.ai");
    std::vector<std::string> names = before.fonts;
    names.insert(names.end(), {"DejaVuSansMono", "NoSuch-Font"});
    EXPECT_EQ(names, after.fonts);
    std::vector<std::string> files = before.linkedFiles;
    files.push_back(folder + "/new.pdf");
    EXPECT_EQ(files, after.linkedFiles);
    EXPECT_EQ(after.creator, before.creator);
    EXPECT_EQ(after.frames.front().runs.size(), before.frames.front().runs.size());
    ExpectSoundPdf("business-card.ai");
}

TEST_F(SaveTest, AnEpsStaysAnEps)
{
    CopySample("leaflet.eps");
    MakeFile("placed.pdf");
    const documents::Document before = Read("leaflet.eps");
    Do("open leaflet.eps");
    Do("text 'No (Such) Font' added");
    Do("place placed.pdf");
    Do("save other.eps");
    const documents::Document after = Read("other.eps");
    std::vector<std::string> names = before.fonts;
    names.emplace_back("No (Such) Font");
    EXPECT_EQ(names, after.fonts);
    EXPECT_THAT(after.linkedFiles, ElementsAre("missing-font.pdf", folder + "/placed.pdf"));
    const std::string bytes = ReadBytes("other.eps");
    const std::string kept = ReadBytes("leaflet.eps");
    EXPECT_THAT(bytes, HasSubstr(kept.substr(kept.find("%%BeginProlog"), 2000)));
}

TEST_F(SaveTest, ListedFontsOfADocumentThatIsItsOwnFileAreKept)
{
    std::ofstream(folder + "/old.eps")
        << "%!PS-Adobe-3.0 EPSF-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n"
           "%%DocumentFonts: DejaVuSans Listed\n%AI5_FileFormat 4.0\n%%EndComments\n"
           "0 To\n/_DejaVuSans 11 8 -2 Tf\n(abc) Tx\nTO\n%%EOF\n";
    Do("open old.eps");
    Do("expect font Listed missing");
    Do("text DejaVuSansMono added");
    Do("save new.eps");
    const documents::Document after = Read("new.eps");
    EXPECT_EQ("native", after.reader);
    EXPECT_THAT(after.fonts, ElementsAre("DejaVuSans", "DejaVuSansMono"));
    EXPECT_THAT(documents::GetAllFontNames(after),
                ElementsAre("DejaVuSans", "DejaVuSansMono", "Listed"));
    EXPECT_THAT(after.notes, testing::IsEmpty());
}

TEST_F(SaveTest, PdfAndEpsAreNotConvertedIntoEachOther)
{
    CopySample("leaflet.eps");
    CopySample("business-card.ai");
    for (const std::string line : {"leaflet.eps l.pdf", "business-card.ai b.eps"}) {
        Do("open " + line.substr(0, line.find(' ')));
        testing::internal::CaptureStderr();
        EXPECT_EQ(LineOutcome::kFileFailed, Try("save " + line.substr(line.find(' ') + 1)).outcome);
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("cannot be saved: a "));
    }
    EXPECT_THAT(ListFolder(), ElementsAre("business-card.ai", "journal", "leaflet.eps"));
}

TEST_F(SaveTest, ANewEpsNamesItsFonts)
{
    Do("new");
    Do("text DejaVuSansMono words");
    Do("save n.eps");
    EXPECT_THAT(Read("n.eps").fonts, ElementsAre("DejaVuSansMono"));
}

TEST_F(SaveTest, TextWithoutAnyFontToDrawWithIsNotSaved)
{
    fonts.files.clear();
    Do("new");
    Do("text NoSuch-Font words");
    testing::internal::CaptureStderr();
    EXPECT_EQ(LineOutcome::kFileFailed, Try("save n.pdf").outcome);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("no font to draw NoSuch-Font"));
    EXPECT_THAT(ListFolder(), ElementsAre("journal"));
}

class ReplaceFileTest : public SaveTest {};

TEST_F(ReplaceFileTest, ReplacesAFileAndKeepsItsModeAndLinks)
{
    const std::string path = MakeFile("f");
    ASSERT_EQ(0, chmod(path.c_str(), 0640));
    std::filesystem::create_symlink("f", folder + "/link");
    EXPECT_EQ("", documents::ReplaceFile(folder + "/link", "new bytes"));
    EXPECT_EQ("new bytes", ReadBytes("f"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder + "/link"));
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
    EXPECT_THAT(ListFolder(), ElementsAre("f", "journal", "link"));
}

TEST_F(ReplaceFileTest, RefusesFoldersAndDevices)
{
    EXPECT_EQ("is a folder", documents::ReplaceFile(folder, "x"));
    EXPECT_EQ("is not a regular file", documents::ReplaceFile("/dev/null", "x"));
    EXPECT_NE("", documents::ReplaceFile(folder + "/none/f", "x"));
}

// In a process of its own, whose files are limited to a few bytes.
TEST_F(ReplaceFileTest, AWriteThatFailsLeavesTheOldFile)
{
    std::ofstream(folder + "/f") << "old";
    const auto write = [this] {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit limit = {16, 16};
        (void)setrlimit(RLIMIT_FSIZE, &limit);
        const std::string error = documents::ReplaceFile(folder + "/f", std::string(100, 'x'));
        std::_Exit(error.empty() ? 1 : 0);
    };
    EXPECT_EXIT(write(), testing::ExitedWithCode(0), "");
    EXPECT_EQ("old", ReadBytes("f"));
    EXPECT_THAT(ListFolder(), ElementsAre("f", "journal"));
}

TEST_F(ReplaceFileTest, FailsInAFolderWithoutWritePermission)
{
    ASSERT_EQ(0, chmod(folder.c_str(), 0500));
    {
        const WithoutRootRights nobody(folder);
        EXPECT_NE("", documents::ReplaceFile(folder + "/f", "x"));
    }
    ASSERT_EQ(0, chmod(folder.c_str(), 0700));
    EXPECT_THAT(ListFolder(), ElementsAre("journal"));
}
