#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "PanelPeer.h"
#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class PanelTest : public VexcorScene {
protected:
    // Starts `Vexcor panel` and waits for the address.
    std::unique_ptr<ChildProcess> StartPanel(const std::vector<std::string>& options)
    {
        std::vector<std::string> command = {VEXCOR_PROGRAM, "panel"};
        command.insert(command.end(), options.begin(), options.end());
        auto panel = std::make_unique<ChildProcess>(command, home.GetPath() / "panel-output");
        EXPECT_TRUE(panel->WaitForOutput("\n")) << panel->GetOutput();
        const std::string address = panel->GetOutput();
        const size_t hash = address.find("/#");
        const std::string start = "http://127.0.0.1:";
        EXPECT_EQ(0U, address.find(start)) << address;
        mPort = std::stoi(address.substr(start.size()));
        mToken = address.substr(hash + 2, 64);
        return panel;
    }

    // Waits for the next message that isn't empty.
    static std::string Hear(PanelSocketPeer& peer)
    {
        std::string heard;
        for (int wait = 0; wait < 1000 && heard.empty() && !peer.IsClosed(); ++wait) {
            heard = peer.Hear(10);
        }
        return heard;
    }
    std::unique_ptr<PanelSocketPeer> Connect() const
    {
        auto peer = std::make_unique<PanelSocketPeer>(mPort);
        for (int wait = 0; wait < 1000 && !peer->IsOpen(); ++wait) (void)peer->Hear(10);
        peer->Say(json{{"token", mToken}}.dump());
        EXPECT_THAT(Hear(*peer), HasSubstr("\"ok\":true"));
        return peer;
    }

    int mPort = 0;
    std::string mToken;
};

TEST_F(PanelTest, ActivatesFontsUntilItEnds)
{
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const std::string log = home.GetPath() / "log";
    const auto panel = StartPanel({"--no-open", "--log", log});
    const auto peer = Connect();
    peer->Say(R"({"op":"activate","fonts":["DejaVuSans"]})");
    EXPECT_THAT(Hear(*peer), HasSubstr(R"("activated":["DejaVuSans"])"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    panel->Send(SIGINT);
    EXPECT_EQ(vexcor::kSuccess, panel->Wait());
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ReadFile(log), HasSubstr("serving the panel at http://127.0.0.1:"));
    EXPECT_THAT(ReadFile(log), Not(HasSubstr(mToken)));
    EXPECT_TRUE(OpenServices().programs.ListGone().empty());
}

TEST_F(PanelTest, ChangesOfAnotherProcessArriveWithinASecond)
{
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const auto panel = StartPanel({"--no-open"});
    const auto peer = Connect();
    peer->Say(R"({"op":"subscribe"})");
    EXPECT_EQ("{\"ok\":true}\n", Hear(*peer));
    OpenServices().Start();
    const auto start = std::chrono::steady_clock::now();
    (void)OpenServices().activation.Activate("/a.ai", {"DejaVuSans"});
    EXPECT_THAT(Hear(*peer), HasSubstr(R"("activated":["DejaVuSans"])"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    OpenServices().Stop();
}

TEST_F(PanelTest, WhatAKilledPanelActivatedIsRepaired)
{
    FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    auto panel = StartPanel({"--no-open"});
    const auto peer = Connect();
    peer->Say(R"({"op":"activate","fonts":["DejaVuSans"]})");
    EXPECT_THAT(Hear(*peer), HasSubstr(R"("activated":["DejaVuSans"])"));
    panel->Send(SIGKILL);
    EXPECT_EQ(-SIGKILL, panel->Wait());
    EXPECT_EQ("", peer->Hear(1000));
    EXPECT_TRUE(peer->IsClosed());
    panel = StartPanel({"--no-open"});
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(PanelTest, OpensABrowserWithoutTheTokenInItsArguments)
{
    const fs::path programs = home.GetPath() / "programs";
    fs::create_directory(programs);
    const fs::path seen = home.GetPath() / "seen";
    std::ofstream(programs / "xdg-open")
        << "#!/bin/sh\nset -e\nstat -c %a \"$1\" > '" << seen.string() << ".new'\ncat \"$1\" >> '"
        << seen.string() << ".new'\necho \"$@\" >> '" << seen.string() << ".new'\nmv '"
        << seen.string() << ".new' '" << seen.string() << "'\n";
    ASSERT_EQ(0, chmod((programs / "xdg-open").c_str(), 0700));
    const std::string before = getenv("PATH");
    setenv("PATH", (programs.string() + ":" + before).c_str(), 1);
    const auto panel = StartPanel({});
    setenv("PATH", before.c_str(), 1);
    for (int wait = 0; wait < 2000 && !fs::exists(seen); ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    const std::string text = ReadFile(seen);
    EXPECT_EQ(0U, text.find("600\n")) << text;
    EXPECT_THAT(text, HasSubstr("url=http://127.0.0.1:" + std::to_string(mPort) + "/#" + mToken));
    const std::string arguments = text.substr(text.rfind('\n', text.size() - 2) + 1);
    EXPECT_THAT(arguments, testing::EndsWith(".html\n"));
    EXPECT_THAT(arguments, Not(HasSubstr(mToken)));
    panel->Send(SIGTERM);
    EXPECT_EQ(vexcor::kSuccess, panel->Wait());
    EXPECT_FALSE(fs::exists(arguments.substr(0, arguments.size() - 1)));
}

TEST_F(PanelTest, WithoutABrowserTheAddressRemains)
{
    const std::string before = getenv("PATH");
    setenv("PATH", home.GetPath().c_str(), 1);
    const auto panel = StartPanel({});
    setenv("PATH", before.c_str(), 1);
    EXPECT_TRUE(panel->WaitForOutput("xdg-open: cannot be started: No such file or directory"));
    (void)Connect();
    panel->Send(SIGTERM);
    EXPECT_EQ(vexcor::kSuccess, panel->Wait());
}

TEST_F(PanelTest, AStateFolderThatCannotBeWrittenIsNamed)
{
    FontTestHome::WriteFile(home.GetPath() / "state", "a file");
    EXPECT_EQ(vexcor::kFileFailed, Run({"panel", "--no-open"}));
    EXPECT_THAT(output, HasSubstr("state/Corvanta"));
    EXPECT_EQ(output.size() - 1, output.find('\n')) << output;
}

}  // namespace
