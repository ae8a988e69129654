#include "vexcor/system/DefaultApplication.h"

#include <sys/stat.h>

#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Applications in a home folder of the test's own; those of the machine are out of sight.
class DefaultApplicationTest : public VexcorScene {
protected:
    DefaultApplicationTest()
    {
        FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
        FontTestHome::WriteFile(mFile,
                                "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n"
                                "%%DocumentFonts: DejaVuSans\n%%EndComments\nshowpage\n%%EOF\n");
        fs::copy_file(mFile, mOther);
        setenv("XDG_DATA_DIRS", (home.GetPath() / "nothing").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (home.GetPath() / "nothing").c_str(), 1);
    }
    ~DefaultApplicationTest() override
    {
        unsetenv("XDG_DATA_DIRS");
        unsetenv("XDG_CONFIG_DIRS");
    }

    // Adds an application whose program prints its arguments in brackets, and the active fonts.
    void AddApplication(const std::string& id, const std::string& arguments,
                        const std::string& more = {}) const
    {
        const fs::path program = home.GetPath() / (id + "-program");
        FontTestHome::WriteFile(program,
                                "#!/bin/sh\nprintf '[%s]' \"$@\"; pwd; fc-list : postscriptname\n");
        chmod(program.c_str(), 0700);
        FontTestHome::WriteFile(
            home.GetData() / "applications" / id,
            "[Desktop Entry]\nType=Application\nName=Draw It\nExec=" + program.string() + " " +
                arguments + "\nMimeType=image/x-eps;application/postscript;\n" + more);
    }

    void SetDefault(const std::string& id) const
    {
        FontTestHome::WriteFile(home.GetPath() / "config/mimeapps.list",
                                "[Default Applications]\nimage/x-eps=" + id + "\n");
    }

    std::string mFile = home.GetPath() / "a b.eps";
    std::string mOther = home.GetPath() / "c.eps";
};

TEST_F(DefaultApplicationTest, OpensTheFilesWithTheirFontsAndIsWaitedFor)
{
    AddApplication("draw.desktop", "--open %F");
    SetDefault("draw.desktop");
    EXPECT_EQ(0, Run({"with", mFile, mOther})) << output;
    EXPECT_THAT(output, AllOf(StartsWith("[--open][" + mFile + "][" + mOther + "]"),
                              HasSubstr(":postscriptname=DejaVuSans\n")));
    EXPECT_TRUE(FontTestHome::ListOfOtherProcess().empty());
}

TEST_F(DefaultApplicationTest, AnApplicationForOneFileIsStartedForEach)
{
    AddApplication("draw.desktop", "%f");
    SetDefault("draw.desktop");
    EXPECT_EQ(0, Run({"with", mFile, mOther})) << output;
    EXPECT_THAT(output, AllOf(HasSubstr("[" + mFile + "]"), HasSubstr("[" + mOther + "]")));
}

TEST_F(DefaultApplicationTest, FieldCodesAreReplaced)
{
    AddApplication("draw.desktop", "\"100%% of\" %i --name=%c %k %d %u",
                   "Icon=pen\nPath=" + home.GetLibrary().string() + "\n");
    SetDefault("draw.desktop");
    EXPECT_EQ(0, Run({"with", mFile})) << output;
    const std::string entry = home.GetData() / "applications/draw.desktop";
    EXPECT_THAT(output, StartsWith("[100% of][--icon][pen][--name=Draw It][" + entry + "][file://" +
                                   home.GetPath().string() + "/a%20b.eps]" +
                                   home.GetLibrary().string() + "\n"));
}

TEST_F(DefaultApplicationTest, AnApplicationWithoutAFieldCodeGetsTheFile)
{
    AddApplication("draw.desktop", "");
    SetDefault("draw.desktop");
    EXPECT_EQ(0, Run({"with", mFile})) << output;
    EXPECT_THAT(output, StartsWith("[" + mFile + "]"));
}

TEST_F(DefaultApplicationTest, VexcorsOwnEntryIsNeverCalled)
{
    AddApplication(vexcor::kOwnDesktopEntry, "own %F");
    SetDefault(vexcor::kOwnDesktopEntry);
    EXPECT_EQ(vexcor::kFileFailed, Run({"with", mFile}));
    EXPECT_THAT(output, HasSubstr("no application"));
    AddApplication("draw.desktop", "other %F");
    // What update-desktop-database(1) writes at the installation of an application.
    FontTestHome::WriteFile(
        home.GetData() / "applications/mimeinfo.cache",
        std::string("[MIME Cache]\nimage/x-eps=") + vexcor::kOwnDesktopEntry + ";draw.desktop;\n");
    EXPECT_EQ(0, Run({"with", mFile})) << output;
    EXPECT_THAT(output, StartsWith("[other]"));
}

TEST_F(DefaultApplicationTest, AMissingOrBrokenApplicationIsNamed)
{
    EXPECT_EQ(vexcor::kFileFailed, Run({"with", mFile}));
    EXPECT_THAT(output, AllOf(StartsWith("Vexcor: " + mFile + ": no application for files of the "),
                              HasSubstr("name a command: -- COMMAND [ARG]...\n")));
    AddApplication("draw.desktop", "%F");
    SetDefault("draw.desktop");
    fs::permissions(home.GetPath() / "draw.desktop-program", fs::perms::owner_read);
    EXPECT_NE(0, Run({"with", mFile}));
    EXPECT_THAT(output, StartsWith("Vexcor: "));
    EXPECT_TRUE(FontTestHome::ListOfOtherProcess().empty());
}

}  // namespace
