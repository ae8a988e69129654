#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

#include "PanelServerFixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

// What a WebSocket may do wrong.
class PanelSocketTest : public PanelServerFixture {
protected:
    // The code with which the server closes after the bytes.
    int CloseAfter(const std::string& bytes)
    {
        PanelSocketPeer peer(mServer.GetPort());
        EXPECT_EQ(kWelcome, Present(peer));
        EXPECT_EQ(static_cast<int64_t>(bytes.size()), peer.Send(bytes));
        EXPECT_TRUE(IsClosedWithFrame(peer));
        return peer.GetCloseCode();
    }
};

TEST_F(PanelSocketTest, NegotiatesNeitherCompressionNorASubprotocol)
{
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(MakeHandshake(mServer.GetPort()) +
                        "Sec-WebSocket-Extensions: permessage-deflate; client_max_window_bits\r\n"
                        "Sec-WebSocket-Protocol: chat\r\n\r\n"),
              0);
    std::string answer;
    for (int wait = 0; wait < 1000 && answer.empty(); ++wait) {
        Tick();
        answer = peer.Receive(10);
    }
    EXPECT_THAT(answer, testing::StartsWith("HTTP/1.1 101 "));
    EXPECT_THAT(answer, HasSubstr("\r\nSec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=\r\n"));
    EXPECT_THAT(answer, Not(HasSubstr("Extensions")));
    EXPECT_THAT(answer, Not(HasSubstr("Protocol:")));
}

TEST_F(PanelSocketTest, ABadHandshakeIsRefused)
{
    std::string key = MakeHandshake(mServer.GetPort()) + "\r\n";
    const size_t line = key.find("Sec-WebSocket-Key");
    key.erase(line, key.find("Sec-WebSocket-Version") - line);
    EXPECT_THAT(Ask(key), testing::StartsWith("HTTP/1.1 400 "));
    std::string version = MakeHandshake(mServer.GetPort()) + "\r\n";
    version.replace(version.find("Version: 13"), 11, "Version: 12");
    EXPECT_THAT(Ask(version), testing::StartsWith("HTTP/1.1 4"));
    // A client has to wait for the answer.
    EXPECT_THAT(Ask(MakeHandshake(mServer.GetPort()) + "\r\n" + MakeFrame(MakeTokenMessage())),
                testing::StartsWith("HTTP/1.1 400 "));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelSocketTest, AMessageMayBeFragmented)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    const std::string token = MakeTokenMessage();
    const std::string frames = MakeFrame(token.substr(0, 1), FrameType::kText, false) +
                               MakeFrame("", FrameType::kContinuation, false) +
                               MakeFrame("alive", FrameType::kPing) +
                               MakeFrame(token.substr(1), FrameType::kContinuation);
    EXPECT_GT(peer.Send(frames), 0);
    EXPECT_EQ(kWelcome, HearUntil(peer, kWelcome));
    EXPECT_EQ("alive", peer.GetPongs());
}

TEST_F(PanelSocketTest, FragmentsTogetherHaveTheLimitOfAMessage)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    std::string frames = MakeFrame("{", FrameType::kText, false);
    for (int count = 0; count < 70; ++count) {
        frames += MakeFrame(std::string(1000, ' '), FrameType::kContinuation, false);
    }
    EXPECT_EQ(static_cast<int64_t>(frames.size()), peer.Send(frames));
    EXPECT_EQ(kTooLong, HearUntil(peer, kTooLong));
    EXPECT_TRUE(IsClosedWithFrame(peer));
    EXPECT_EQ(1009, peer.GetCloseCode());
}

TEST_F(PanelSocketTest, AFrameThatClaimsAnyLengthIsReadInPieces)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    const std::string claim("\x81\xff\x40\0\0\0\0\0\0\0\1\2\3\4", 14);  // 2^62 bytes
    const std::string bytes = claim + std::string(70000, ' ');
    EXPECT_EQ(static_cast<int64_t>(bytes.size()), peer.Send(bytes));
    EXPECT_EQ(kTooLong, HearUntil(peer, kTooLong));
    EXPECT_TRUE(IsClosedWithFrame(peer));
    EXPECT_EQ(1009, peer.GetCloseCode());
}

TEST_F(PanelSocketTest, ViolationsOfTheProtocolEndTheConnection)
{
    EXPECT_EQ(1003, CloseAfter(MakeFrame("{}", FrameType::kBinary)));
    EXPECT_EQ(1002, CloseAfter(std::string("\x81\x02{}", 4)));               // not masked
    EXPECT_EQ(1002, CloseAfter("\xc1" + MakeFrame("{}").substr(1)));         // reserved bit
    EXPECT_EQ(1002, CloseAfter("\x83" + MakeFrame("{}").substr(1)));         // reserved type
    EXPECT_EQ(1002, CloseAfter(MakeFrame("{}", FrameType::kContinuation)));  // continues nothing
    EXPECT_EQ(1002, CloseAfter(MakeFrame("{", FrameType::kText, false) + MakeFrame("}")));
    EXPECT_EQ(1002, CloseAfter(MakeFrame("", FrameType::kPing, false)));  // divided control frame
    EXPECT_EQ(1002, CloseAfter(MakeFrame(std::string(126, 'x'), FrameType::kPing)));
    EXPECT_EQ(1007, CloseAfter(MakeFrame("\xff\xfe")));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelSocketTest, AnswersACloseAndEnds)
{
    const std::string code("\x03\xe8", 2);  // 1000
    EXPECT_EQ(1000, CloseAfter(MakeFrame(code, FrameType::kClose)));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelSocketTest, AClientThatClosesAndStaysIsDroppedInTime)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    EXPECT_GT(peer.Send(MakeFrame(std::string("\x03\xe8", 2), FrameType::kClose)), 0);
    EXPECT_TRUE(IsClosedWithFrame(peer));
    EXPECT_EQ(1U, mServer.GetClientCount());
    mNow += 2000;
    Tick(2);
    EXPECT_EQ(0U, mServer.GetClientCount());
}

TEST_F(PanelSocketTest, AFloodOfMessagesAndPingsIsServedInTurns)
{
    PanelSocketPeer other(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(other));
    std::deque<PanelSocketPeer> peers;
    std::string flood;
    for (int count = 0; count < 1000; ++count) {
        flood += MakeFrame("{}") + MakeFrame("x", FrameType::kPing);
    }
    for (int client = 0; client < 20; ++client) {
        peers.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(peers.back()));
        EXPECT_GT(peers.back().Send(flood), 0);
    }
    EXPECT_GT(other.Say("{}"), 0);
    std::string heard;
    int steps = 0;
    for (; steps < 400 && heard.empty(); ++steps) {
        (void)mQueue.ServeNext();  // one of all clients
        TickOfSteps(5);
        heard = other.Hear();
    }
    EXPECT_EQ(kUnknown, heard);
    EXPECT_EQ(21U, mServer.GetClientCount());
}

TEST_F(PanelSocketTest, TwoHundredSlowClientsDoNotStopTheOthers)
{
    PanelSocketPeer panel(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(panel));
    std::deque<PanelPeer> slow;
    const std::string request = MakeHandshake(mServer.GetPort());
    for (int client = 0; client < 200; ++client) {
        slow.emplace_back(mServer.GetPort());
        Tick();
    }
    for (size_t at = 0; at < request.size(); ++at) {
        for (const PanelPeer& peer : slow) (void)peer.Send(request.substr(at, 1));  // many are gone
        mNow += 100;
        Tick();
        ASSERT_LE(mServer.GetClientCount(), 32U);
    }
    EXPECT_EQ(kUnknown, Exchange(panel, "{}", kUnknown));
    mNow += 20000;
    EXPECT_EQ(1U, CountClients(1));
}

}  // namespace
