#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "FontTestHome.h"
#include "OpenBytes.h"
#include "docfonts/commands/ExitStatus.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/storage/Locations.h"

using docfonts::kAllHere;
using docfonts::kFileFailed;
using docfonts::kSomethingMissing;
using docfonts::kWrongUse;
using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// An EPS that says which fonts and files it has.
std::string MakeEps(const std::string& fonts, const std::string& files = "")
{
    std::string text = "%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: " + fonts + "\n";
    std::istringstream words(files);
    const char* key = "%%DocumentFiles: ";
    for (std::string file; words >> file; key = "%%+ ") text += key + file + "\n";
    return text + "%%EndComments\n%%EOF\n";
}

// Whether the process whose stat file in /proc this is has not ended.
bool IsRunning(const std::string& statFile)
{
    const std::string text = ReadWholeFile(statFile);
    const size_t name = text.rfind(')');
    return name != std::string::npos && text.substr(name, 3) != ") Z";
}

// Runs the program itself in a folder of the test, with no fonts but those that the test installs.
class Docfonts : public testing::Test {
protected:
    int Run(const std::string& arguments, const std::string& before = "",
            const std::string& after = "")
    {
        const std::string command = "cd '" + folder.Path() + "' && " + before +
                                    " '" DOCFONTS_PROGRAM "' " + arguments + " >out 2>err " +
                                    (after.empty() ? "</dev/null" : after);
        const int status = std::system(command.c_str());
        output = ReadWholeFile(folder.Path("out"));
        errors = ReadWholeFile(folder.Path("err"));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // In place of Ghostscript: a program that writes its process id and never ends.
    void WriteEndlessGhostscript() const
    {
        (void)folder.Write("gs", "#!/bin/sh\nPATH=/usr/bin:/bin\necho $$ >'" + folder.Path("pid") +
                                     "'\nwhile :; do sleep 1; done\n");
        std::filesystem::permissions(folder.Path("gs"), std::filesystem::perms::owner_all);
    }

    std::vector<json> GetLines() const
    {
        std::vector<json> lines;
        std::istringstream stream(output);
        for (std::string line; std::getline(stream, line);) lines.push_back(json::parse(line));
        return lines;
    }

    // Puts a DejaVu font into the font manager's library, and its database.
    void AddToLibrary(const std::string& name) const
    {
        const std::string library = home.GetLibrary();
        (void)FontTestHome::CopyFont(name, library);
        (void)setenv("CORVANTA_FONT_LIBRARY", library.c_str(), 1);
        plugincore::Database database(plugincore::GetLocations().database);
        plugincore::FontLibrary(database, {library}).Refresh();
    }

    ~Docfonts() override { (void)unsetenv("CORVANTA_FONT_LIBRARY"); }

    FontTestHome home;
    ScratchFolder folder;
    std::string output;
    std::string errors;
};

}  // namespace

TEST_F(Docfonts, TellsTheStateOfEachFontAndTheFileThatHasIt)
{
    const std::string installed = FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    AddToLibrary("DejaVuSerif-Bold");
    (void)folder.Write("a.eps", MakeEps("DejaVuSans DejaVuSerif-Bold DejaVuSerif-Italic Nowhere"));
    EXPECT_EQ(kSomethingMissing, Run("--json a.eps"));
    EXPECT_EQ("", errors);
    ASSERT_EQ(1U, GetLines().size());
    const json fonts = GetLines()[0]["documentFonts"];
    EXPECT_EQ("installed", fonts[0]["state"]);
    EXPECT_EQ(installed, fonts[0]["file"]);
    EXPECT_EQ("DejaVu Sans", fonts[0]["family"]);
    EXPECT_EQ("Book", fonts[0]["style"]);
    EXPECT_EQ("in the library", fonts[1]["state"]);
    EXPECT_EQ(home.GetLibrary() / "DejaVuSerif-Bold.ttf", fonts[1]["file"].get<std::string>());
    EXPECT_EQ("only as another style", fonts[2]["state"]);
    EXPECT_EQ("DejaVuSerif-Bold", fonts[2]["otherStyle"]);
    EXPECT_EQ("missing", fonts[3]["state"]);
    EXPECT_EQ("", fonts[3]["file"]);
}

TEST_F(Docfonts, ReadsTheLibraryWithoutWriting)
{
    AddToLibrary("DejaVuSans");
    const std::filesystem::path database = plugincore::GetLocations().database;
    const std::string before = ReadWholeFile(database);
    (void)folder.Write("a.eps", MakeEps("DejaVuSans"));
    EXPECT_EQ(kAllHere, Run("a.eps"));
    EXPECT_EQ(before, ReadWholeFile(database));
    // A file of the library that is gone doesn't have the font.
    std::filesystem::remove(home.GetLibrary() / "DejaVuSans.ttf");
    EXPECT_EQ(kSomethingMissing, Run("a.eps"));
}

TEST_F(Docfonts, KnowsFontsOfTheLibraryWithoutReadingTheirFiles)
{
    AddToLibrary("DejaVuSerif-Bold");
    FontTestHome::DamageUnnoticed(home.GetLibrary() / "DejaVuSerif-Bold.ttf");
    (void)folder.Write("a.eps", MakeEps("DejaVuSerif-Bold DejaVuSerif-Italic"));
    EXPECT_EQ(kSomethingMissing, Run("--json a.eps"));
    const json fonts = GetLines().at(0)["documentFonts"];
    EXPECT_EQ("in the library", fonts[0]["state"]);
    EXPECT_EQ("DejaVu Serif", fonts[0]["family"]);
    EXPECT_EQ("Bold", fonts[0]["style"]);
    EXPECT_EQ("only as another style", fonts[1]["state"]);
    EXPECT_EQ("DejaVuSerif-Bold", fonts[1]["otherStyle"]);
    EXPECT_EQ("DejaVu Serif", fonts[1]["family"]);
}

// The index is out of date until the font manager runs again.
TEST_F(Docfonts, ReadsAFileOfTheLibraryThatChangedSinceItWasIndexed)
{
    AddToLibrary("DejaVuSerif");
    const std::filesystem::path file = home.GetLibrary() / "DejaVuSerif.ttf";
    std::filesystem::copy_file("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", file,
                               std::filesystem::copy_options::overwrite_existing);
    (void)folder.Write("a.eps", MakeEps("DejaVuSerif"));
    EXPECT_EQ(kSomethingMissing, Run("--json a.eps"));
    EXPECT_EQ("missing", GetLines().at(0)["documentFonts"][0]["state"]);
}

TEST_F(Docfonts, ReadsADatabaseOfTheVersionBeforeFamilies)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    AddToLibrary("DejaVuSerif-Bold");
    const std::filesystem::path path = plugincore::GetLocations().database;
    plugincore::Database(path).Execute(
        "DROP TRIGGER font_face_without_family; ALTER TABLE font_face DROP COLUMN family;"
        "ALTER TABLE font_face DROP COLUMN style; ALTER TABLE font_face DROP COLUMN weight;"
        "ALTER TABLE font_face DROP COLUMN format; PRAGMA user_version = 5");
    (void)folder.Write("a.eps", MakeEps("DejaVuSerif-Bold"));
    EXPECT_EQ(kAllHere, Run("--json a.eps"));
    EXPECT_EQ("", errors);
    const json font = GetLines().at(0)["documentFonts"][0];
    EXPECT_EQ("in the library", font["state"]);
    EXPECT_EQ("DejaVu Serif", font["family"]);
    EXPECT_EQ("Bold", font["style"]);
}

TEST_F(Docfonts, ReportsADatabaseOfANewerVersionInOneLine)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    AddToLibrary("DejaVuSerif");
    const std::filesystem::path path = plugincore::GetLocations().database;
    plugincore::Database(path).Execute("PRAGMA user_version = 1000");
    (void)folder.Write("a.eps", MakeEps("DejaVuSerif"));
    EXPECT_EQ(kSomethingMissing, Run("a.eps"));
    EXPECT_EQ("docfonts: " + path.string() +
                  ": was written by a newer version of this program; fonts of the library are "
                  "reported as missing\n",
              errors);
}

TEST_F(Docfonts, CreatesNoDatabaseAndReportsADamagedOne)
{
    (void)folder.Write("a.eps", MakeEps("Nowhere"));
    EXPECT_EQ(kSomethingMissing, Run("a.eps"));
    const std::filesystem::path database = plugincore::GetLocations().database;
    EXPECT_FALSE(std::filesystem::exists(database.parent_path()));
    FontTestHome::WriteFile(database, std::string(5000, 'x'));
    EXPECT_EQ(kSomethingMissing, Run("a.eps"));
    EXPECT_THAT(errors, HasSubstr("docfonts: " + database.string() + ": file is not a database"));
    EXPECT_THAT(output, StartsWith("a.eps: eps (dsc), 1 font\n"));
}

TEST_F(Docfonts, PrintsATableWithUseAndEmbedding)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    EXPECT_EQ(kSomethingMissing, Run("'" SAMPLES_FOLDER "/missing-font.pdf'"));
    EXPECT_THAT(output, HasSubstr("/missing-font.pdf: pdf (pdf), 2 fonts\n"));
    EXPECT_THAT(output, testing::ContainsRegex("    DejaVuSans +installed +1 frame, 1 run, "
                                               "[0-9]+ characters, embedded as a subset  /"));
    EXPECT_THAT(output, testing::ContainsRegex("    NoSuchFace-Regular +missing +1 frame"));
}

TEST_F(Docfonts, ReadsPlacedDocumentsToAnyDepth)
{
    EXPECT_EQ(kSomethingMissing, Run("--json --placed '" SAMPLES_FOLDER "/letterhead.ait'"));
    const json line = GetLines()[0];
    std::vector<std::string> names;
    for (const json& document : line["placedDocuments"]) {
        names.push_back(std::filesystem::path(document["path"].get<std::string>()).filename());
    }
    EXPECT_THAT(names, ElementsAre("business-card.ai", "leaflet.eps", "missing-font.pdf"));
    EXPECT_EQ(1U, line["placedFiles"].size());
    EXPECT_EQ("found", line["placedFiles"][0]["state"]);
}

TEST_F(Docfonts, ReadsACircleOfPlacedDocumentsOnce)
{
    (void)folder.Write("a.eps", MakeEps("One", "b.eps a.eps"));
    (void)folder.Write("b.eps", MakeEps("Two", "c/../a.eps b.eps c/d.eps"));
    (void)folder.Write("c/d.eps", MakeEps("Three", "../b.eps"));
    EXPECT_EQ(kSomethingMissing, Run("--names --placed a.eps"));
    EXPECT_EQ("One\nTwo\nThree\n", output);
    EXPECT_EQ(kSomethingMissing, Run("--json --placed a.eps"));
    EXPECT_EQ(2U, GetLines()[0]["placedDocuments"].size());
}

TEST_F(Docfonts, APlacedFileIsFoundMovedOrMissing)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    (void)folder.Write("d/here.jpg", "x");
    (void)folder.Write("d/a.eps",
                       MakeEps("DejaVuSans", "here.jpg /elsewhere/here.jpg C:\\P\\here.jpg"));
    EXPECT_EQ(kAllHere, Run("--json d/a.eps"));
    const json placed = GetLines()[0]["placedFiles"];
    EXPECT_EQ("found", placed[0]["state"]);
    EXPECT_EQ("moved", placed[1]["state"]);
    EXPECT_EQ("d/here.jpg", placed[1]["foundAt"]);
    (void)folder.Write("d/b.eps", MakeEps("DejaVuSans", "gone.jpg"));
    EXPECT_EQ(kSomethingMissing, Run("d/b.eps"));
    EXPECT_THAT(output, EndsWith("    placed file: gone.jpg  missing\n"));
}

TEST_F(Docfonts, ShowsOnlyWhatIsMissing)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    (void)folder.Write("good.eps", MakeEps("DejaVuSans"));
    (void)folder.Write("bad.eps", MakeEps("DejaVuSans Nowhere", "good.eps gone.eps"));
    EXPECT_EQ(kAllHere, Run("--missing good.eps"));
    EXPECT_EQ("", output);
    EXPECT_EQ(kSomethingMissing, Run("--missing --json good.eps bad.eps"));
    ASSERT_EQ(1U, GetLines().size());
    ASSERT_EQ(1U, GetLines()[0]["documentFonts"].size());
    EXPECT_EQ("Nowhere", GetLines()[0]["documentFonts"][0]["PostScriptName"]);
    ASSERT_EQ(1U, GetLines()[0]["placedFiles"].size());
    EXPECT_EQ("gone.eps", GetLines()[0]["placedFiles"][0]["path"]);
    EXPECT_EQ(kSomethingMissing, Run("--missing --names good.eps bad.eps"));
    EXPECT_EQ("Nowhere\n", output);
}

TEST_F(Docfonts, ContinuesAfterFilesThatFail)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    (void)folder.Write("text.ai", "no document");
    (void)folder.Write("cut.pdf", "%PDF-1.4\n1 0 obj\n<<");
    (void)folder.Write("a.eps", MakeEps("Nowhere"));
    ASSERT_EQ(0, mkfifo(folder.Path("pipe.pdf").c_str(), 0600));
    EXPECT_EQ(kFileFailed, Run("--json missing.ai text.ai cut.pdf . a.eps"));
    ASSERT_EQ(5U, GetLines().size());
    EXPECT_EQ("failed", GetLines()[2]["status"]);
    EXPECT_EQ("read", GetLines()[4]["status"]);
    EXPECT_THAT(errors, StartsWith("docfonts: missing.ai: no such file\n"
                                   "docfonts: text.ai: is not a PDF, EPS or Illustrator document\n"
                                   "docfonts: cut.pdf: "));
    EXPECT_THAT(errors, HasSubstr("docfonts: .: is a folder; use --recursive to read it\n"));
}

TEST_F(Docfonts, ReadsFoldersAndLists)
{
    (void)folder.Write("d/b/two.eps", MakeEps("Two"));
    (void)folder.Write("d/one.eps", MakeEps("One"));
    std::filesystem::create_directory_symlink("..", folder.Path("d/b/up"));
    EXPECT_EQ(kSomethingMissing, Run("--names --recursive d"));
    EXPECT_EQ("Two\nOne\n", output);
    (void)folder.Write("list", "d/one.eps\nd/b/two.eps\n");
    EXPECT_EQ(kSomethingMissing, Run("--names --files-from list"));
    EXPECT_EQ("One\nTwo\n", output);
    EXPECT_EQ(kSomethingMissing, Run("--names --files-from -", "", "<list"));
    EXPECT_EQ("One\nTwo\n", output);
    EXPECT_EQ(kFileFailed, Run("--files-from none"));
    EXPECT_EQ("none: failed: cannot be read as a list of files\n", output);
}

TEST_F(Docfonts, GivesUpOnASlowFile)
{
    WriteEndlessGhostscript();
    (void)folder.Write("slow.eps", "%!PS-Adobe-3.0 EPSF-3.0\n");
    EXPECT_EQ(kFileFailed, Run("--timeout 0.3 --jobs 1 slow.eps", "PATH=\"$PWD\""));
    EXPECT_EQ("slow.eps: failed: takes longer than 0.3 s to read\n", output);
}

TEST_F(Docfonts, APlacedDocumentThatTakesTooLongCostsOnlyItself)
{
    WriteEndlessGhostscript();
    (void)folder.Write("slow.eps", "%!PS-Adobe-3.0 EPSF-3.0\n");
    (void)folder.Write("a.eps", MakeEps("One", "slow.eps"));
    EXPECT_EQ(kSomethingMissing, Run("--timeout 2 --placed --json a.eps", "PATH=\"$PWD\""));
    ASSERT_EQ(1U, GetLines().size());
    EXPECT_EQ("One", GetLines()[0]["documentFonts"][0]["PostScriptName"]);
    const json slow = GetLines()[0]["placedDocuments"][0];
    EXPECT_EQ("slow.eps", slow["path"]);
    EXPECT_THAT(slow["note"].get<std::string>(), HasSubstr("Ghostscript"));
}

TEST_F(Docfonts, LeavesNoPageAndNoProcessWhenInterrupted)
{
    WriteEndlessGhostscript();
    (void)folder.Write("slow.eps", "%!PS-Adobe-3.0 EPSF-3.0\n");
    (void)folder.Write("page.html", "the former page");
    const std::string command =
        "cd '" + folder.Path() +
        "' && PATH=\"$PWD:$PATH\" timeout --preserve-status -s INT 1 '" DOCFONTS_PROGRAM
        "' --html page.html slow.eps >out 2>err";
    const int status = std::system(command.c_str());
    EXPECT_EQ(docfonts::kInterrupted, WEXITSTATUS(status));
    EXPECT_EQ("the former page", ReadWholeFile(folder.Path("page.html")));
    size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        count += entry.exists() ? 1 : 0;
    }
    EXPECT_EQ(6U, count);  // gs, pid, slow.eps, page.html, out, err
    // The system ends it after the process that had started it.
    const std::string process = ReadWholeFile(folder.Path("pid"));
    ASSERT_NE("", process);
    const std::string state = "/proc/" + process.substr(0, process.find('\n')) + "/stat";
    for (int i = 0; i < 100 && IsRunning(state); ++i) (void)usleep(50000);
    EXPECT_FALSE(IsRunning(state));
}

TEST_F(Docfonts, EndsWhenNobodyReadsItsOutput)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    const std::string eps = MakeEps("One");
    for (int i = 0; i < 300; ++i) (void)folder.Write("d/" + std::to_string(i) + ".eps", eps);
    const std::string command = "cd '" + folder.Path() +
                                "' && { '" DOCFONTS_PROGRAM
                                "' --recursive d 2>err; echo $? >status; } | head -1 >out";
    ASSERT_EQ(0, std::system(command.c_str()));
    EXPECT_THAT(ReadWholeFile(folder.Path("out")), StartsWith("d/0.eps: "));
    EXPECT_EQ("", ReadWholeFile(folder.Path("err")));
    EXPECT_THAT(ReadWholeFile(folder.Path("status")), testing::AnyOf("130\n", "3\n"));
}

TEST_F(Docfonts, WritesThePage)
{
    (void)FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    EXPECT_EQ(kSomethingMissing, Run("--html page.html '" SAMPLES_FOLDER "/missing-font.pdf'"));
    const std::string page = ReadWholeFile(folder.Path("page.html"));
    EXPECT_THAT(page, HasSubstr("NoSuchFace-Regular"));
    EXPECT_THAT(page, HasSubstr("@font-face"));
}

TEST_F(Docfonts, LeavesNoPageThatCannotBeWritten)
{
    (void)folder.Write("a.eps", MakeEps("One"));
    EXPECT_EQ(kFileFailed, Run("--html none/page.html a.eps"));
    EXPECT_THAT(errors, StartsWith("docfonts: none/page.html: cannot be written"));
    EXPECT_EQ("", output);
}

TEST_F(Docfonts, RefusesAWrongCommandLine)
{
    for (const char* arguments :
         {"", "--json --names a.pdf", "--jobs 0 a.pdf", "--timeout x a.pdf", "--unknown a.pdf"}) {
        EXPECT_EQ(kWrongUse, Run(arguments)) << arguments;
        EXPECT_THAT(errors, EndsWith("(see docfonts --help)\n"));
        EXPECT_EQ(1, std::count(errors.begin(), errors.end(), '\n'));
    }
}
