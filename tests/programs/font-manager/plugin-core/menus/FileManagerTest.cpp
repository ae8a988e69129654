#include "plugin-core/menus/FileManager.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

#include "CoreSession.h"

namespace fs = std::filesystem;

namespace {

// A desktop whose PATH has no program but the `gio` that a test installs.
class FileManagerTest : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("PATH", mFolder.Path().c_str(), 1);
        setenv("DISPLAY", ":0", 1);
        unsetenv("WAYLAND_DISPLAY");
    }

    void InstallScript(const std::string& script)
    {
        const std::string program = mFolder.Write("gio", script);
        ASSERT_EQ(0, chmod(program.c_str(), 0755));
    }

    // A `gio` that writes what `report` prints to the file "answer", in one step.
    void Install(const std::string& report)
    {
        const std::string answer = mFolder.Path("answer");
        InstallScript("#!/bin/sh\nPATH=/usr/bin:/bin\necho noise; echo noise >&2\n(" + report +
                      ") >'" + answer + ".new'\nmv '" + answer + ".new' '" + answer + "'\n");
    }

    // Nobody waits for the program, so the test waits for its answer.
    std::string ReadAnswer() const
    {
        const std::string answer = mFolder.Path("answer");
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!fs::exists(answer) && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        std::stringstream text;
        text << std::ifstream(answer).rdbuf();
        return text.str();
    }

    const ScratchFolder mFolder;
};

TEST_F(FileManagerTest, OpensTheLibraryAndPrintsNothing)
{
    const CoreSession session;
    Install("printf '%s|' \"$@\"");
    EXPECT_EQ("", session.Choose("revealLibrary"));
    EXPECT_EQ("open|" + session.home.GetLibrary().string() + "|", ReadAnswer());
}

TEST_F(FileManagerTest, OpensAllFoldersOnWayland)
{
    unsetenv("DISPLAY");
    setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    Install("printf '%s|' \"$@\"");
    EXPECT_TRUE(plugincore::OpenInFileManager({"/a b", "/c"}));
    EXPECT_EQ("open|/a b|/c|", ReadAnswer());
}

TEST_F(FileManagerTest, StartsTheProgramInASessionOfItsOwnAndLeavesNoProcess)
{
    Install("ps -o sid= -p $$ | tr -d ' \\n'");
    EXPECT_TRUE(plugincore::OpenInFileManager({"/"}));
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
    EXPECT_EQ(ECHILD, errno);
    const std::string session = ReadAnswer();
    EXPECT_NE("", session);
    EXPECT_NE(std::to_string(getsid(0)), session);
}

TEST_F(FileManagerTest, DoesNotWaitForTheProgram)
{
    // The pipe is opened by the program only while this process reads it.
    const std::string gate = mFolder.Path("gate");
    ASSERT_EQ(0, mkfifo(gate.c_str(), 0600));
    Install("echo late >'" + gate + "'; echo done");
    EXPECT_TRUE(plugincore::OpenInFileManager({"/"}));
    EXPECT_FALSE(fs::exists(mFolder.Path("answer")));
    std::string word;
    EXPECT_TRUE(std::ifstream(gate) >> word);
    EXPECT_EQ("done\n", ReadAnswer());
}

TEST_F(FileManagerTest, TheFolderIsPrintedWithoutADesktopOrAProgram)
{
    const CoreSession session;
    const std::string line =
        "PluginCore: Reveal Font Library: " + session.home.GetLibrary().string() + "\n";
    EXPECT_EQ(line, session.Choose("revealLibrary"));  // no gio
    InstallScript("#!/no/such/interpreter\n");
    EXPECT_EQ(line, session.Choose("revealLibrary"));
    Install("echo started");
    unsetenv("DISPLAY");
    EXPECT_EQ(line, session.Choose("revealLibrary"));
    setenv("WAYLAND_DISPLAY", "", 1);
    EXPECT_EQ(line, session.Choose("revealLibrary"));
    EXPECT_FALSE(fs::exists(mFolder.Path("answer")));
}

}  // namespace
