#include "docfonts/html/HtmlReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "SampleReport.h"
#include "ScratchFolder.h"

namespace {

using docfonts::DocumentReport;
using docfonts::FontState;
using docfonts::HtmlReport;
using docfonts::UsedFont;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class HtmlReportTest : public testing::Test {
protected:
    std::string Read() const
    {
        std::ifstream stream(mPath, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::string Make(const std::vector<DocumentReport>& documents,
                     const std::string& note = {}) const
    {
        HtmlReport report(mPath, note);
        for (const DocumentReport& document : documents) report.Add(document);
        EXPECT_TRUE(report.Finish()) << report.GetError();
        return Read();
    }

    // The names in the folder of the page.
    size_t CountFiles() const
    {
        const std::filesystem::directory_iterator files(mFolder.Path());
        return static_cast<size_t>(std::distance(begin(files), end(files)));
    }

    static size_t CountIn(const std::string& text, const std::string& part)
    {
        size_t count = 0;
        for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
            ++count;
        }
        return count;
    }

    static DocumentReport MakeDocument(const UsedFont& font, const std::string& path = "a.ai")
    {
        DocumentReport document;
        document.path = path;
        document.format = "ai";
        document.fonts = {font};
        return document;
    }

    ScratchFolder mFolder;
    const std::string mPath = mFolder.Path("report.html");
    const std::string mSans = samplereport::kDejaVu + "DejaVuSans.ttf";
    const std::string mSerif = samplereport::kDejaVu + "DejaVuSerif.ttf";
};

TEST_F(HtmlReportTest, SaysWhatIsHereAndWhatIsNot)
{
    const std::string page = Make({samplereport::MakePoster(), samplereport::MakeLeaflet(),
                                   samplereport::MakeTickets(), samplereport::MakeUnread()},
                                  "at noon");
    EXPECT_THAT(page, HasSubstr("<title>Fonts of 4 documents</title>"));
    EXPECT_THAT(page, HasSubstr("<p class=\"note\">at noon</p>"));
    EXPECT_THAT(page, HasSubstr("2 of 4 documents need something that is not here. "
                                "1 document cannot be read."));
    EXPECT_THAT(page, HasSubstr("the file ends in the middle of the document"));
    EXPECT_THAT(page, HasSubstr("Drawn in NimbusSans-Bold, the style that is here."));
    EXPECT_THAT(page, HasSubstr("is at <bdi>Jobs/Autumn/logo.eps</bdi>"));
    // The list of what is missing leads to both documents.
    EXPECT_THAT(page, AllOf(HasSubstr("<a href=\"#d1\"><bdi>Jobs/Autumn/Poster A1.ai"),
                            HasSubstr("<a href=\"#d4\"><bdi>Jobs/Autumn/Tickets.eps")));
    for (const char* const id : {"d1", "d2", "d3", "d4", "d5"}) {
        EXPECT_EQ(1U, CountIn(page, std::string(" id=\"") + id + "\"")) << id;
    }
    EXPECT_EQ(1U, CountFiles());
}

TEST_F(HtmlReportTest, SaysThatEverythingIsHere)
{
    const std::string page = Make({MakeDocument(samplereport::MakeFont("DejaVuSans", mSans, "a"))});
    EXPECT_THAT(page, HasSubstr("Every font and placed file is here."));
    EXPECT_THAT(page, Not(HasSubstr("What is not here")));
    EXPECT_THAT(page, Not(HasSubstr("class=\"filter\"")));
    EXPECT_THAT(Make({}), HasSubstr("No documents."));
}

TEST_F(HtmlReportTest, EscapesEveryText)
{
    const std::string evil = "</p><script>alert(1)</script>\"'&\x01\xff\xE2\x80\xAE";
    UsedFont here = samplereport::MakeFont(evil, mSans, evil);
    here.family = here.style = evil;
    here.state = FontState::kOtherStyle;
    here.otherStyle = evil;
    UsedFont missing = samplereport::MakeFont(evil + "2", "", evil);
    UsedFont noFile = samplereport::MakeFont(evil + "3", evil, evil);
    DocumentReport document;
    document.path = document.format = evil;
    document.fonts = {here, missing, noFile};
    document.placed = {{evil, docfonts::PlacedState::kMoved, evil},
                       {evil, docfonts::PlacedState::kMissing, ""}};
    DocumentReport unread = document;
    unread.error = evil;
    document.placedDocuments = {unread};
    const std::string page = Make({document, unread}, evil);
    EXPECT_EQ(1U, CountIn(page, "<script"));
    EXPECT_EQ(1U, CountIn(page, "</script"));
    EXPECT_THAT(page, HasSubstr("&lt;/p&gt;&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp;"
                                "\uFFFD\uFFFD\uFFFD"));
    for (const char* const bytes : {"\x01", "\xff", "\xE2\x80\xAE"}) {
        EXPECT_THAT(page, Not(HasSubstr(bytes)));
    }
}

TEST_F(HtmlReportTest, HasOneFontForAFaceHoweverManyDocumentsUseIt)
{
    std::vector<DocumentReport> documents;
    for (const char* const words : {"abc", "xyz", "漢"}) {
        documents.push_back(MakeDocument(samplereport::MakeFont("DejaVuSans", mSans, words)));
    }
    documents.push_back(MakeDocument(samplereport::MakeFont("DejaVuSerif", mSerif, "abc")));
    const std::string page = Make(documents);
    EXPECT_EQ(2U, CountIn(page, "@font-face"));
    EXPECT_EQ(2U, CountIn(page, "<div class=\"words s0\">"));
    EXPECT_EQ(1U, CountIn(page, "<div class=\"words s1\">"));
    EXPECT_THAT(page, HasSubstr("has none of the characters"));
}

TEST_F(HtmlReportTest, MarksCharactersThatTheFontLacks)
{
    const std::string page =
        Make({MakeDocument(samplereport::MakeFont("DejaVuSans", mSans, "a漢字b"))});
    EXPECT_THAT(page, HasSubstr("a<span class=\"lacking\">漢字</span>b"));
    EXPECT_THAT(page, HasSubstr("The font lacks 2 characters of these"));
}

TEST_F(HtmlReportTest, SaysWhyAFontHasNoSpecimen)
{
    const std::string text = mFolder.Write("text.ttf", "text");
    std::ifstream stream(mSans, std::ios::binary);
    std::string font{std::istreambuf_iterator<char>(stream), {}};
    const auto at = [&](size_t place) { return static_cast<unsigned char>(font.at(place)); };
    const size_t entry = font.find("OS/2");
    const size_t table = static_cast<size_t>(at(entry + 9)) << 16 |
                         static_cast<size_t>(at(entry + 10)) << 8 | at(entry + 11);
    font.at(table + 9) = 2;  // restricted licence
    const std::string restricted = mFolder.Write("restricted.ttf", font);
    const std::string page = Make({
        MakeDocument(samplereport::MakeFont("Text", text, "abc")),
        MakeDocument(samplereport::MakeFont("Restricted", restricted, "abc")),
        MakeDocument(samplereport::MakeFont("Gone", mFolder.Path("gone.ttf"), "abc")),
    });
    EXPECT_THAT(page, HasSubstr("font file: not a font, or damaged."));
    EXPECT_THAT(page, HasSubstr("font file: its licence bits forbid embedding."));
    EXPECT_THAT(page, HasSubstr("font file: cannot be opened."));
    EXPECT_THAT(page, Not(HasSubstr("@font-face")));
}

TEST_F(HtmlReportTest, HidesTheWordsOfAFontThatWasRemovedMeanwhile)
{
    const std::string file = mFolder.Path("sans.ttf");
    std::filesystem::copy(mSans, file);
    HtmlReport report(mPath);
    report.Add(MakeDocument(samplereport::MakeFont("DejaVuSans", file, "abc")));
    std::filesystem::remove(file);
    EXPECT_TRUE(report.Finish());
    EXPECT_THAT(Read(), AllOf(HasSubstr(".s0 p{display:none}"), Not(HasSubstr("@font-face"))));
}

TEST_F(HtmlReportTest, IsTheSameForTheSameDocuments)
{
    const std::vector<DocumentReport> documents = {samplereport::MakePoster(),
                                                   samplereport::MakeLeaflet()};
    const std::string page = Make(documents);
    EXPECT_THAT(page, Not(IsEmpty()));
    EXPECT_EQ(page, Make(documents));
}

TEST_F(HtmlReportTest, ReplacesOnlyWhenItIsFinished)
{
    mFolder.Write("report.html", "old");
    ASSERT_EQ(0, chmod(mPath.c_str(), 0640));
    {
        HtmlReport report(mPath);
        report.Add(samplereport::MakeLeaflet());
        EXPECT_EQ("old", Read());
    }
    EXPECT_EQ("old", Read());
    EXPECT_EQ(1U, CountFiles());
    EXPECT_THAT(Make({samplereport::MakeLeaflet()}), HasSubstr("Leaflet.pdf"));
    struct stat status = {};
    ASSERT_EQ(0, stat(mPath.c_str(), &status));
    EXPECT_EQ(0640U, status.st_mode & 07777);
}

TEST_F(HtmlReportTest, KnowsAtOnceThatItCannotBeWritten)
{
    EXPECT_EQ(mFolder.Path() + ": is not a regular file", HtmlReport(mFolder.Path()).GetError());
    const std::string path = mFolder.Path("missing/report.html");
    HtmlReport report(path);
    EXPECT_EQ(path + ": cannot be written: No such file or directory", report.GetError());
    report.Add(samplereport::MakeLeaflet());
    EXPECT_FALSE(report.Finish());
}

// A limit of the file size is as a full disk is: a write fails in the middle.
void WriteWithin(const std::string& path, rlim_t bytes, int documents)
{
    (void)std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
    HtmlReport report(path);
    for (int count = 0; count < documents; ++count) report.Add(samplereport::MakeLeaflet());
    const bool isDone = report.Finish();
    (void)std::fprintf(stderr, "%s\n", report.GetError().c_str());
    _exit(isDone ? 0 : 1);
}

TEST_F(HtmlReportTest, AFullDiskIsOneErrorAndLeavesTheOldPage)
{
    mFolder.Write("report.html", "old");
    const std::string line = "report.html: cannot be written: File too large\n$";
    // While documents are added, and while the page is put together.
    EXPECT_EXIT(WriteWithin(mPath, 100'000, 200), testing::ExitedWithCode(1), line);
    EXPECT_EXIT(WriteWithin(mPath, 20'000, 1), testing::ExitedWithCode(1), line);
    EXPECT_EQ("old", Read());
    EXPECT_EQ(1U, CountFiles());
}

size_t GetResidentPages()
{
    std::ifstream sizes("/proc/self/statm");
    size_t all = 0;
    size_t resident = 0;
    sizes >> all >> resident;
    return resident;
}

TEST_F(HtmlReportTest, TenThousandDocumentsNeedNoMoreMemoryThanAThousand)
{
    HtmlReport report(mPath);
    size_t pages = 0;
    for (int count = 0; count < 10'000; ++count) {
        DocumentReport document = MakeDocument(samplereport::MakeFont("DejaVuSans", mSans, "ab"));
        document.fonts.push_back(samplereport::MakeFont("Garamond", "", "ab"));
        document.path = std::to_string(count) + "/a.ai";
        report.Add(document);
        if (count == 1000) pages = GetResidentPages();
    }
    ASSERT_TRUE(report.Finish());
    const size_t growth = GetResidentPages() - std::min(pages, GetResidentPages());
    if (!IS_SANITIZED) {
        EXPECT_GT(size_t{2} << 20, growth * static_cast<size_t>(sysconf(_SC_PAGESIZE)));
    }
    const std::string page = Read();
    EXPECT_EQ(10'000U, CountIn(page, "<article class=\"document"));
    EXPECT_THAT(page, HasSubstr("10,000 documents"));
    // Each is in the list of those that need the missing font, in their order.
    EXPECT_LT(page.find("<bdi>0/a.ai"), page.find("<bdi>9999/a.ai"));
    EXPECT_EQ(10'000U, CountIn(page, "/a.ai</bdi></a>"));
}

}  // namespace
