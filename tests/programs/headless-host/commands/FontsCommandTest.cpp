#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"
#include "application/ExitStatus.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string MakePdf(const char* font)
{
    return PdfMaker().SetContent(std::string("BT /") + font + " 9 Tf (abc) Tj ET").Make();
}

// Runs the program itself in a scratch folder.
class FontsCommand : public testing::Test {
protected:
    int Run(const std::string& arguments, const std::string& before = "")
    {
        const std::string command = "cd '" + folder.Path() + "' && " + before +
                                    " '" HEADLESS_HOST_PROGRAM "' fonts " + arguments +
                                    " >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        output = ReadWholeFile(folder.Path() + "/out");
        errors = ReadWholeFile(folder.Path() + "/err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void Write(const std::string& name, const std::string& bytes) const
    {
        const std::filesystem::path path = folder.Path() + "/" + name;
        std::filesystem::create_directories(path.parent_path());
        (void)folder.Write(name, bytes);
    }

    std::vector<std::string> GetPaths() const
    {
        std::vector<std::string> paths;
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);) {
            paths.push_back(nlohmann::json::parse(line).at("path"));
        }
        return paths;
    }

    ScratchFolder folder;
    std::string output;
    std::string errors;
};

}  // namespace

TEST_F(FontsCommand, PrintsATable)
{
    Write("a.pdf", MakePdf("F1"));
    EXPECT_EQ(0, Run("a.pdf"));
    EXPECT_EQ("a.pdf: pdf (pdf), 1 font\n    Alpha-Regular\n", output);
    EXPECT_EQ("", errors);
}

TEST_F(FontsCommand, ReportsThatTheNativeReaderWasUsed)
{
    NativeMaker maker;
    maker.SetFonts({"Native-Bold"}).AddStyle(0).AddStory({{0, 5}}).AddFrame(0);
    Write("a.ai", WrapInPdf(PackZlib(maker.MakeText())));
    EXPECT_EQ(0, Run("--json a.ai"));
    const auto line = nlohmann::json::parse(output);
    EXPECT_EQ("native", line["reader"]);
    EXPECT_EQ("Native-Bold", line["documentFonts"][0]["PostScriptName"]);
    EXPECT_EQ(false, line["documentFonts"][0]["listed"]);
}

TEST_F(FontsCommand, ReportsFontsThatOnlyTheDocumentsOwnListHas)
{
    NativeMaker maker;
    maker.AddHeader("%%DocumentFonts: Native-Bold Listed-Only");
    maker.SetFonts({"Native-Bold"}).AddStyle(0).AddStory({{0, 5}}).AddFrame(0);
    Write("a.ai", WrapInPdf(PackZlib(maker.MakeText())));
    EXPECT_EQ(0, Run("a.ai"));
    EXPECT_EQ("a.ai: ai (native), 2 fonts\n    Native-Bold\n    Listed-Only  listed\n", output);
    EXPECT_EQ(0, Run("--names a.ai"));
    EXPECT_EQ("Native-Bold\nListed-Only\n", output);
    EXPECT_EQ(0, Run("--json a.ai"));
    const auto line = nlohmann::json::parse(output);
    EXPECT_EQ(1, line["runs"]);
    EXPECT_EQ(nlohmann::json::parse(R"([{"PostScriptName":"Native-Bold","listed":false},)"
                                    R"({"PostScriptName":"Listed-Only","listed":true}])"),
              line["documentFonts"]);
    EXPECT_EQ(line["documentFonts"], line["fonts"]);
}

TEST_F(FontsCommand, KeepsTheOrderOfTheArguments)
{
    std::string arguments = "--json";
    std::vector<std::string> names;
    for (int i = 40; i-- > 0;) {
        names.push_back(std::to_string(i) + ".pdf");
        Write(names.back(), MakePdf(i % 2 == 0 ? "F1" : "F2") + std::string(i * 20000, ' '));
        arguments += " " + names.back();
    }
    EXPECT_EQ(0, Run(arguments));
    EXPECT_EQ(names, GetPaths());
}

TEST_F(FontsCommand, PrintsEachNameOnceForAllFiles)
{
    Write("a.pdf", MakePdf("F2"));
    Write("b.pdf", MakePdf("F1"));
    Write("c.pdf", MakePdf("F2"));
    EXPECT_EQ(0, Run("--names a.pdf b.pdf c.pdf"));
    EXPECT_EQ("Beta-Bold\nAlpha-Regular\n", output);
}

TEST_F(FontsCommand, ContinuesAfterFilesThatFail)
{
    Write("text.ai", "no document");
    Write("good.pdf", MakePdf("F1"));
    EXPECT_EQ(headless::kFileNotOpened, Run("--json missing.ai text.ai . good.pdf"));
    EXPECT_THAT(GetPaths(), ElementsAre("missing.ai", "text.ai", ".", "good.pdf"));
    EXPECT_THAT(errors, HasSubstr("missing.ai: no such file\n"));
    EXPECT_THAT(errors, HasSubstr(".: is a folder; use --recursive to read it\n"));
    EXPECT_THAT(output, HasSubstr("Alpha-Regular"));
}

TEST_F(FontsCommand, ReadsTheDocumentsInFolders)
{
    Write("d/b/two.eps", "%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: Two\n");
    Write("d/one.without-extension", MakePdf("F1"));
    Write("d/b/notes.pdf", "not one at all");
    std::filesystem::create_directory_symlink(folder.Path() + "/d", folder.Path() + "/d/b/again");
    EXPECT_EQ(0, Run("--json --recursive d"));
    EXPECT_THAT(GetPaths(), ElementsAre("d/b/two.eps", "d/one.without-extension"));
}

TEST_F(FontsCommand, AFolderWithoutDocumentsIsAnError)
{
    Write("d/notes.txt", "nothing");
    EXPECT_EQ(headless::kFileNotOpened, Run("--recursive d"));
    EXPECT_EQ("d: failed: contains no document\n", output);
}

TEST_F(FontsCommand, GivesUpOnASlowFileAndEndsItsProcesses)
{
    // In place of Ghostscript: a program that never ends.
    Write("gs", "#!/bin/sh\nPATH=/usr/bin:/bin\nwhile :; do sleep 1; done\n");
    std::filesystem::permissions(folder.Path() + "/gs", std::filesystem::perms::owner_all);
    Write("slow.eps", "%!PS-Adobe-3.0 EPSF-3.0\n");
    Write("a.pdf", MakePdf("F1"));
    EXPECT_EQ(headless::kFileNotOpened, Run("--timeout 0.3 slow.eps a.pdf", "PATH=\"$PWD\""));
    EXPECT_EQ(
        "slow.eps: failed: takes longer than 0.3 s to read\n"
        "a.pdf: pdf (pdf), 1 font\n    Alpha-Regular\n",
        output);
}

TEST_F(FontsCommand, RefusesToRunWithoutFiles)
{
    EXPECT_EQ(headless::kWrongUse, Run(""));
    EXPECT_EQ(headless::kWrongUse, Run("--json --names a.pdf"));
}

// Each of two workers has less than half of the memory, which is too little for the second file.
TEST_F(FontsCommand, ReadsAFileAloneThatNeedsTheMemoryOfAllWorkers)
{
    constexpr size_t kImageBytes = size_t{340} << 20;
    const std::string content = "BI /L " + std::to_string(kImageBytes) + " ID " +
                                std::string(kImageBytes, ' ') + " EI BT /F2 9 Tf (abc) Tj ET";
    Write("small.pdf", MakePdf("F1"));
    Write("large.pdf", PdfMaker().SetStream(4, "/Filter /FlateDecode", Deflate(content, 1)).Make());
    EXPECT_EQ(0, Run("small.pdf large.pdf"));
    EXPECT_EQ(
        "small.pdf: pdf (pdf), 1 font\n    Alpha-Regular\n"
        "large.pdf: pdf (pdf), 1 font\n    Beta-Bold\n",
        output);
}

TEST_F(FontsCommand, ContinuesAfterADecompressionBomb)
{
    Write("bomb.ai", WrapInPdf(PackZstandard(std::string(size_t{600} << 20, ' '))));
    Write("good.pdf", MakePdf("F1"));
    EXPECT_EQ(headless::kFileNotOpened, Run("bomb.ai good.pdf"));
    EXPECT_THAT(output, HasSubstr("bomb.ai: failed: too large: "));
    EXPECT_THAT(output, HasSubstr("good.pdf: pdf (pdf), 1 font\n"));
}
