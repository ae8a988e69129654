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

TEST_F(PanelTokenTest, ATokenIsMadeThatOnlyTheUserCanRead)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    EXPECT_EQ(token.size(), 64U);
    EXPECT_EQ(token.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(Read(mFile), token);
    EXPECT_EQ(fs::status(mFile).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(mFile.parent_path()).permissions(), fs::perms(0700));
    const fs::directory_iterator entries(mFile.parent_path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(PanelTokenTest, ItStaysTheSame)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    EXPECT_EQ(LoadOrMakePanelToken(mFile), token);
    fs::remove(mFile);
    EXPECT_NE(LoadOrMakePanelToken(mFile), token);
}

TEST_F(PanelTokenTest, AFileThatOthersCouldReadIsReplaced)
{
    const std::string token = LoadOrMakePanelToken(mFile);
    fs::permissions(mFile, fs::perms(0640));
    EXPECT_NE(LoadOrMakePanelToken(mFile), token);
    EXPECT_EQ(fs::status(mFile).permissions(), fs::perms(0600));
}

TEST_F(PanelTokenTest, AFileThatHoldsAnythingElseIsReplaced)
{
    for (const std::string& text : {std::string(), std::string("short"), std::string(65, 'a'),
                                    std::string(64, 'x'), std::string(64, 'A')}) {
        FontTestHome::WriteFile(mFile, text);
        fs::permissions(mFile, fs::perms(0600));
        const std::string token = LoadOrMakePanelToken(mFile);
        EXPECT_EQ(token.size(), 64U);
        EXPECT_NE(token, text);
        EXPECT_EQ(Read(mFile), token);
    }
}

TEST_F(PanelTokenTest, ALinkOrAPipeIsReplacedAndNotFollowed)
{
    const fs::path other = mHome.GetPath() / "other";
    FontTestHome::WriteFile(other, std::string(64, 'a'));
    fs::permissions(other, fs::perms(0600));
    fs::create_directories(mFile.parent_path());
    fs::create_symlink(other, mFile);
    EXPECT_NE(LoadOrMakePanelToken(mFile), std::string(64, 'a'));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(mFile)));
    EXPECT_EQ(Read(other), std::string(64, 'a'));
    fs::remove(mFile);
    ASSERT_EQ(mkfifo(mFile.c_str(), 0600), 0);
    EXPECT_EQ(LoadOrMakePanelToken(mFile).size(), 64U);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(mFile)));
}

TEST_F(PanelTokenTest, AFolderThatCannotBeMadeIsAFailure)
{
    FontTestHome::WriteFile(mHome.GetPath() / "state", "a file");
    EXPECT_THROW(LoadOrMakePanelToken(mFile), plugincore::Failure);
}

TEST(PanelPortTest, TheSocketIsOpenFromTheFirstQuestionToTheEnd)
{
    const CoreSession session;
    const fs::path file = session.home.GetPath() / "state/Corvanta/panel-token";
    EXPECT_FALSE(fs::exists(file));
    int port = 0;
    ASSERT_EQ(session.core.pGetSocketPort(&port), 0U);
    EXPECT_GT(port, 0);
    int again = 0;
    EXPECT_EQ(session.core.pGetSocketPort(&again), 0U);
    EXPECT_EQ(again, port);

    PanelPeer panel(port);
    panel.Send("{\"token\":\"" + Read(file) + "\"}\n{\"op\":\"fonts\",\"limit\":1}\n");
    const std::string expected =
        "{\"ok\":true,\"protocol\":1}\n{\"fonts\":[{\"PostScriptName\":\"DejaVuSans\","
        "\"state\":\"inactive\"}],\"ok\":true,\"total\":3}\n";
    std::string heard;
    for (int wait = 0; wait < 1000 && heard.size() < expected.size(); ++wait) {
        EXPECT_EQ(session.core.pProcessPanelMessages(1), 0U);
        heard += panel.Receive(10);
    }
    EXPECT_EQ(heard, expected);
    EXPECT_EQ(session.core.pTerminatePluginCoreInterface(), 0U);
    EXPECT_EQ(panel.Receive(10000), "");
    EXPECT_TRUE(panel.IsClosed());
    EXPECT_EQ(session.core.pProcessPanelMessages(1), 0U);
    EXPECT_THROW(PanelPeer(port).Receive(), std::system_error);
}

TEST(PanelPortTest, WithoutAPlaceForTheTokenThereIsNoSocket)
{
    const CoreSession session;
    FontTestHome::WriteFile(session.home.GetPath() / "state", "a file");
    int port = 7;
    const std::string errors = CaptureErrors(
        [&] { EXPECT_EQ(session.core.pGetSocketPort(&port), plugincore::StatusCodes::kError); });
    EXPECT_EQ(errors.rfind("PluginCore: GetSocketPort: ", 0), 0U);
    EXPECT_EQ(port, 7);
}

TEST(PanelPortTest, WithoutAStartThereIsNoSocket)
{
    const FontTestHome home;
    const Framework core;
    int port = 0;
    (void)CaptureErrors(
        [&] { EXPECT_EQ(core.pGetSocketPort(&port), plugincore::StatusCodes::kNotInitialized); });
}

}  // namespace
