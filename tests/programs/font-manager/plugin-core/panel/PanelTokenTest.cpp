#include "plugin-core/panel/PanelToken.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>

#include "CoreSession.h"
#include "PanelPeer.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using plugincore::LoadOrMakePanelToken;

namespace {

class PanelTokenTest : public testing::Test {
protected:
    FontTestHome mHome;
    fs::path mFile = mHome.GetPath() / "state/Corvanta/panel-token";
};

std::string Read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST_F(PanelTokenTest, CreatesATokenThatOnlyTheUserCanRead)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    EXPECT_EQ(64U, token.size());
    EXPECT_EQ(std::string::npos, token.find_first_not_of("0123456789abcdef"));
    EXPECT_EQ(token, Read(mFile));
    EXPECT_EQ(fs::perms(0600), fs::status(mFile).permissions());
    EXPECT_EQ(fs::perms(0700), fs::status(mFile.parent_path()).permissions());
    const fs::directory_iterator entries(mFile.parent_path());
    EXPECT_EQ(1, std::distance(begin(entries), end(entries)));
}

TEST_F(PanelTokenTest, SecondCallReturnsTheSameToken)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    EXPECT_EQ(token, LoadOrMakePanelToken(mFile));
    fs::remove(mFile);
    EXPECT_NE(token, LoadOrMakePanelToken(mFile));
}

TEST_F(PanelTokenTest, ReplacesAFileThatOthersCouldRead)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    fs::permissions(mFile, fs::perms(0640));
    EXPECT_NE(token, LoadOrMakePanelToken(mFile));
    EXPECT_EQ(fs::perms(0600), fs::status(mFile).permissions());
}

TEST_F(PanelTokenTest, ReplacesAFileWithAnyOtherContent)
{
    for (const std::string& text : {std::string(), std::string("short"), std::string(65, 'a'),
                                    std::string(64, 'x'), std::string(64, 'A')}) {
        FontTestHome::WriteFile(mFile, text);
        fs::permissions(mFile, fs::perms(0600));
        const std::string token = LoadOrMakePanelToken(mFile);
        EXPECT_EQ(64U, token.size());
        EXPECT_NE(token, text);
        EXPECT_EQ(token, Read(mFile));
    }
}

TEST_F(PanelTokenTest, ReplacesALinkOrAPipe)
{
    const fs::path other = mHome.GetPath() / "other";
    FontTestHome::WriteFile(other, std::string(64, 'a'));
    fs::permissions(other, fs::perms(0600));
    fs::create_directories(mFile.parent_path());
    fs::create_symlink(other, mFile);
    EXPECT_NE(std::string(64, 'a'), LoadOrMakePanelToken(mFile));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(mFile)));
    EXPECT_EQ(std::string(64, 'a'), Read(other));
    fs::remove(mFile);
    ASSERT_EQ(0, mkfifo(mFile.c_str(), 0600));
    EXPECT_EQ(64U, LoadOrMakePanelToken(mFile).size());
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(mFile)));
}

TEST_F(PanelTokenTest, FailsIfTheFolderCannotBeCreated)
{
    FontTestHome::WriteFile(mHome.GetPath() / "state", "a file");
    EXPECT_THROW(LoadOrMakePanelToken(mFile), plugincore::Failure);
}

TEST(PanelPortTest, SocketIsOpenFromTheFirstGetSocketPortToTheEnd)
{
    const CoreSession session;
    const fs::path file = session.home.GetPath() / "state/Corvanta/panel-token";
    EXPECT_FALSE(fs::exists(file));
    int port = 0;
    ASSERT_EQ(0U, session.core.pGetSocketPort(&port));
    EXPECT_GT(port, 0);
    int again = 0;
    EXPECT_EQ(0U, session.core.pGetSocketPort(&again));
    EXPECT_EQ(port, again);

    PanelSocketPeer panel(port);
    const std::string expected =
        "{\"ok\":true,\"protocol\":2}\n{\"fonts\":[],\"ok\":true,\"total\":3}\n";
    std::string heard;
    bool hasSaid = false;
    for (int wait = 0; wait < 1000 && heard.size() < expected.size(); ++wait) {
        EXPECT_EQ(0U, session.core.pProcessPanelMessages(1));
        heard += panel.Hear(10);
        if (!panel.IsOpen() || hasSaid) continue;
        panel.Say("{\"token\":\"" + Read(file) + "\"}");
        panel.Say(R"({"op":"fonts","limit":0})");
        hasSaid = true;
    }
    EXPECT_EQ(expected, heard);
    EXPECT_EQ(0U, session.core.pTerminatePluginCoreInterface());
    EXPECT_EQ("", panel.Receive(10000));
    EXPECT_TRUE(panel.IsClosed());
    EXPECT_EQ(0U, session.core.pProcessPanelMessages(1));
    EXPECT_THROW(PanelPeer(port).Receive(), std::system_error);
}

TEST(PanelPortTest, NoSocketWithoutAFileForTheToken)
{
    const CoreSession session;
    FontTestHome::WriteFile(session.home.GetPath() / "state", "a file");
    int port = 7;
    const std::string errors = CaptureErrors(
        [&] { EXPECT_EQ(plugincore::StatusCodes::kError, session.core.pGetSocketPort(&port)); });
    EXPECT_EQ(0U, errors.rfind("PluginCore: GetSocketPort: ", 0));
    EXPECT_EQ(7, port);
}

TEST(PanelPortTest, NoSocketWithoutAStart)
{
    const FontTestHome home;
    const Framework core;
    int port = 0;
    (void)CaptureErrors(
        [&] { EXPECT_EQ(plugincore::StatusCodes::kNotInitialized, core.pGetSocketPort(&port)); });
}

}  // namespace
