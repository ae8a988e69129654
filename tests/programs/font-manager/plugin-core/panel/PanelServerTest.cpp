#include "plugin-core/panel/PanelServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <thread>

#include "PanelServerFixture.h"

using plugincore::Services;

namespace {

class PanelServerTest : public PanelServerFixture {
protected:
    // Writes pieces of a message of 64 KiB, whatever the server answers, until the connection
    // breaks or 100 MiB are written. Returns the answers.
    std::string WriteUntilDropped(PanelSocketPeer& peer)
    {
        constexpr int64_t kMost = 100 << 20;
        const std::string first = MakeFrame(std::string(65000, '{'), FrameType::kText, false);
        const std::string next =
            MakeFrame(std::string(65000, '{'), FrameType::kContinuation, false);
        std::string said;
        int64_t sent = 0;
        size_t position = 0;
        const std::string* frame = &first;
        for (int64_t count = 0; sent < kMost && count >= 0; sent += count) {
            count = peer.Send(frame->substr(position));
            position += count > 0 ? static_cast<size_t>(count) : 0;
            if (position == frame->size()) {
                frame = &next;
                position = 0;
            }
            Tick();
            said += peer.Hear();
            mNow += count == 0 ? 1 : 0;  // the server reads no more, but for the farewell
        }
        EXPECT_LT(sent, kMost);
        return said;
    }
};

TEST_F(PanelServerTest, ServesAClientWithTheToken)
{
    PanelSocketPeer peer(mServer.GetPort());
    EXPECT_EQ(kWelcome, Present(peer));
    const std::string answer = "{\"id\":[7],\"libraries\":[],\"ok\":true}\n";
    EXPECT_EQ(answer, Exchange(peer, "{\"op\":\"libraries\",\"id\":[7]}", answer));
    EXPECT_EQ(1U, mServer.GetClientCount());
}

TEST_F(PanelServerTest, TokenAndRequestMayArriveTogetherAndInPieces)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    for (const char byte : MakeFrame(MakeTokenMessage()) + MakeFrame("{}")) {
        EXPECT_EQ(1, peer.Send(std::string(1, byte)));
        Tick();
    }
    const std::string answers = std::string(kWelcome) + kUnknown;
    EXPECT_EQ(answers, HearUntil(peer, answers));
}

TEST_F(PanelServerTest, RefusesAnyOtherFirstMessageAndCloses)
{
    const std::string half = mToken.substr(1);
    for (const std::string& text :
         {std::string(), std::string("rubbish"), std::string("{\"op\":\"fonts\"}"),
          "{\"token\":\"" + half + "\"}", "{\"token\":\"" + half + "b\"}", "[\"" + mToken + "\"]",
          std::string("{\"token\":null}"), std::string(257, ' '),
          std::string(300, ' ') + MakeTokenMessage()}) {
        PanelSocketPeer peer(mServer.GetPort());
        ASSERT_TRUE(Open(peer));
        EXPECT_EQ(kRefusal, Exchange(peer, text, kRefusal)) << text;
        EXPECT_TRUE(IsClosedWithFrame(peer)) << text;
        EXPECT_EQ(1008, peer.GetCloseCode()) << text;
        EXPECT_TRUE(IsClosed(peer)) << text;
    }
}

TEST_F(PanelServerTest, DoesNotServeMessagesAfterARefusedOne)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    const std::string frames = MakeFrame("rubbish") + MakeFrame(MakeTokenMessage()) +
                               MakeFrame("{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}");
    EXPECT_EQ(static_cast<int64_t>(frames.size()), peer.Send(frames));
    EXPECT_EQ(kRefusal, HearUntil(peer, kRefusal));
    EXPECT_TRUE(IsClosed(peer));
    EXPECT_TRUE(mServices.activation.GetActive().empty());
}

TEST_F(PanelServerTest, SendsNothingBeforeTheFirstMessageHasEnded)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    const std::string frame = MakeFrame(MakeTokenMessage());
    EXPECT_EQ(15, peer.Send(frame.substr(0, 15)));
    Tick(50);
    EXPECT_EQ("", peer.Hear(50));
    EXPECT_FALSE(peer.IsClosed());
    EXPECT_EQ(0, peer.GetCloseCode());
}

TEST_F(PanelServerTest, RefusesAClientThatPresentsNothingInTime)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    mNow += 9999;
    Tick(2);
    EXPECT_EQ("", peer.Hear(50));
    mNow += 1;
    EXPECT_EQ(kRefusal, HearUntil(peer, kRefusal));
    EXPECT_EQ(1U, mServer.GetClientCount());
    mNow += 2000;
    Tick();
    EXPECT_EQ(0U, mServer.GetClientCount());
}

TEST_F(PanelServerTest, ServedClientMayBeIdle)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    mNow += 1000000000;
    EXPECT_EQ(kUnknown, Exchange(peer, "{}", kUnknown));
}

TEST_F(PanelServerTest, RemovesAClientThatDisconnects)
{
    {
        PanelSocketPeer served(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(served));
        const PanelSocketPeer silent(mServer.GetPort());
        EXPECT_EQ(2U, CountClients(2));
    }
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelServerTest, RefusesAMessageWithoutEndOfAnyLength)
{
    PanelSocketPeer stranger(mServer.GetPort());
    ASSERT_TRUE(Open(stranger));
    EXPECT_THAT(WriteUntilDropped(stranger), testing::AnyOf("", kRefusal));
    PanelSocketPeer panel(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(panel));
    EXPECT_THAT(WriteUntilDropped(panel), testing::AnyOf("", kTooLong));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelServerTest, ServesAMessageOfExactlyTheLimit)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    const std::string blanks((64 << 10) - 2, ' ');
    EXPECT_EQ(kUnknown, Exchange(peer, "{" + blanks + "}", kUnknown));
    EXPECT_EQ(kTooLong, Exchange(peer, "{" + blanks + " }", kTooLong));
}

TEST_F(PanelServerTest, TickDoesNoWorkOfARequest)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    const std::string activate = MakeFrame("{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}");
    ASSERT_EQ(static_cast<int64_t>(activate.size()), peer.Send(activate + activate) / 2);
    const std::string mark = mServices.database.GetChangeMark();
    for (int tick = 0; tick < 50; ++tick) TickOfSteps(100);
    EXPECT_EQ("", peer.Hear(10));
    EXPECT_EQ(mark, mServices.database.GetChangeMark());
    // One request of a client is in the queue, so that its answers have the order of its requests.
    EXPECT_TRUE(mQueue.ServeNext());
    EXPECT_FALSE(mQueue.ServeNext());
    EXPECT_NE(mark, mServices.database.GetChangeMark());
    const std::string answer =
        "{\"activated\":[\"DejaVuSans\"],\"alreadyActive\":[],\"missing\":[],\"ok\":true}\n";
    EXPECT_EQ(answer, HearUntil(peer, answer));
}

TEST_F(PanelServerTest, TickEndsWithItsBudgetAndTheNextOneContinues)
{
    std::deque<PanelSocketPeer> peers;
    for (int client = 0; client < 10; ++client) {
        peers.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(peers.back()));
    }
    for (const PanelSocketPeer& peer : peers) EXPECT_GT(peer.Say("{}"), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto countRequests = [this] {
        int requests = 0;
        while (mQueue.ServeNext()) ++requests;
        return requests;
    };
    // A step is at most one request, and all clients have their turns.
    int requests = 0;
    for (int tick = 0; tick < 1000 && requests < 10; ++tick) {
        TickOfSteps(tick % 3);
        const int served = countRequests();
        EXPECT_LE(served, std::max(tick % 3, 1));
        requests += served;
    }
    EXPECT_EQ(10, requests);
    for (PanelSocketPeer& peer : peers) EXPECT_EQ(kUnknown, HearUntil(peer, kUnknown));
}

TEST_F(PanelServerTest, TickAcceptsOneClientThoughItsBudgetIsSpent)
{
    std::deque<PanelSocketPeer> peers;
    for (int client = 0; client < 3; ++client) peers.emplace_back(mServer.GetPort());
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    for (const size_t clients : {1U, 2U, 3U}) {
        TickOfSteps(0);
        EXPECT_EQ(clients, mServer.GetClientCount());
    }
}

TEST_F(PanelServerTest, ChangesCostSubscribersOneLookForAll)
{
    std::deque<PanelSocketPeer> peers;
    for (int client = 0; client < 20; ++client) {
        peers.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(peers.back()));
        Subscribe(peers.back());
    }
    Tick(3);
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    for (int tick = 0; tick < 10; ++tick) TickOfSteps(100);
    EXPECT_TRUE(mQueue.ServeNext());
    EXPECT_FALSE(mQueue.ServeNext());
    const std::string event =
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n"
        "{\"event\":\"documents\"}\n";
    for (PanelSocketPeer& peer : peers) EXPECT_EQ(event, HearUntil(peer, event));
}

TEST_F(PanelServerTest, ClientThatClosesItsSideReceivesAllAnswers)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_TRUE(Open(peer));
    std::string frames = MakeFrame(MakeTokenMessage());
    std::string answers = kWelcome;
    for (int request = 0; request < 20; ++request) {
        frames += MakeFrame("{}");
        answers += kUnknown;
    }
    ASSERT_EQ(static_cast<int64_t>(frames.size()), peer.Send(frames));
    peer.EndOutput();
    EXPECT_EQ(answers, HearUntil(peer, answers));
    EXPECT_TRUE(IsClosed(peer));
}

TEST_F(PanelServerTest, ClientThatDoesNotReadWaitsAndLosesNothing)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    // Each answer repeats the long id, so that the answers fill all buffers.
    const std::string request = MakeFrame("{\"id\":\"" + std::string(60000, 'x') + "\"}");
    int64_t sent = 0;
    for (int64_t count = 1, idle = 0; idle < 5; idle = count == 0 ? idle + 1 : 0) {
        const size_t position = static_cast<size_t>(sent) % request.size();
        count = peer.Send(request.substr(position));
        sent += count;
        Tick(3);
    }
    EXPECT_EQ(1U, mServer.GetClientCount());
    EXPECT_GT(sent, 1 << 20);
    const auto requests = sent / static_cast<int64_t>(request.size());
    int64_t answers = 0;
    for (int wait = 0; wait < 1000 && answers < requests; ++wait) {
        const std::string got = peer.Hear(10);
        answers += std::count(got.begin(), got.end(), '\n');
        Tick();
    }
    EXPECT_EQ(answers, requests);
}

TEST_F(PanelServerTest, DropsASubscriberThatDoesNotRead)
{
    PanelSocketPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    Subscribe(peer);
    mServices.database.Execute("INSERT INTO active_group(id) VALUES(99)");
    // As many names as a large library has.
    const std::string add =
        "INSERT INTO active_file VALUES('/many', 'many', 99);"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
        " INSERT INTO active_face SELECT hex(zeroblob(120)) || i, '/many' FROM n";
    int rounds = 0;
    for (; rounds < 200 && mServer.GetClientCount() != 0; ++rounds) {
        mServices.database.Execute(rounds % 2 == 0 ? add : "DELETE FROM active_file");
        Tick();
    }
    EXPECT_GT(rounds, 2);
    EXPECT_EQ(0U, mServer.GetClientCount());
}

TEST_F(PanelServerTest, SubscribersReceiveEventsForFontsAndLibraries)
{
    PanelSocketPeer subscriber(mServer.GetPort());
    PanelSocketPeer other(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(subscriber));
    ASSERT_EQ(kWelcome, Present(other));
    Subscribe(subscriber);
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    const std::string documents = "{\"event\":\"documents\"}\n";
    std::string events =
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n" + documents;
    EXPECT_EQ(events, HearUntil(subscriber, events));
    mServices.activation.Release("/a.ai");
    events =
        "{\"activated\":[],\"deactivated\":[\"DejaVuSans\"],\"event\":\"fonts\"}\n" + documents;
    EXPECT_EQ(events, HearUntil(subscriber, events));
    // A library is in the database, or a folder that appears.
    events = "{\"event\":\"libraries\"}\n";
    mServices.folders.Select(mHome.GetLibrary() / "House");
    std::filesystem::create_directory(mHome.GetLibrary() / "House");
    EXPECT_EQ(events, HearUntil(subscriber, events));
    mServices.folders.Add(mHome.GetLibrary() / "House");
    mServices.folders.Select("");
    EXPECT_EQ(events, HearUntil(subscriber, events));
    Tick(3);
    EXPECT_EQ("", subscriber.Hear(10));
    EXPECT_EQ("", other.Hear());
}

TEST_F(PanelServerTest, SubscriberReceivesEventsOfAnotherProcess)
{
    PanelSocketPeer subscriber(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(subscriber));
    Subscribe(subscriber);
    Services other(plugincore::GetLocations());
    other.Start();
    other.activation.Activate("/a.ai", {"DejaVuSans"});
    const std::string event =
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n"
        "{\"event\":\"documents\"}\n";
    EXPECT_EQ(event, HearUntil(subscriber, event));
    other.Stop();
}

TEST_F(PanelServerTest, IdleClientsCannotLockThePanelOut)
{
    std::deque<PanelPeer> silent;
    for (int client = 0; client < 64; ++client) {
        silent.emplace_back(mServer.GetPort());
        Tick();
    }
    EXPECT_THAT(ReceiveAll(silent.front()), testing::StartsWith("HTTP/1.1 503 "));
    EXPECT_EQ(32U, CountClients(32));
    PanelSocketPeer panel(mServer.GetPort());
    EXPECT_EQ(kWelcome, Present(panel));
}

TEST_F(PanelServerTest, RefusesOneClientTooManyIfAllHaveTheToken)
{
    std::deque<PanelSocketPeer> panels;
    for (int client = 0; client < 32; ++client) {
        panels.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(panels.back()));
    }
    PanelPeer another(mServer.GetPort());
    EXPECT_THAT(ReceiveAll(another), testing::StartsWith("HTTP/1.1 503 "));
    EXPECT_EQ(32U, mServer.GetClientCount());
    EXPECT_EQ(kUnknown, Exchange(panels.front(), "{}", kUnknown));
}

TEST_F(PanelServerTest, OneTickAcceptsSixteenClients)
{
    std::deque<PanelSocketPeer> peers;
    for (int client = 0; client < 20; ++client) peers.emplace_back(mServer.GetPort());
    while (mServer.GetClientCount() < 20) {
        const size_t before = mServer.GetClientCount();
        Tick();
        EXPECT_LE(mServer.GetClientCount(), before + 16);
    }
}

TEST_F(PanelServerTest, ThousandMaliciousClientsChangeNothing)
{
    PanelSocketPeer panel(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(panel));
    const std::string list = "{\"op\":\"libraries\"}";
    const std::string fonts = "{\"libraries\":[],\"ok\":true}\n";
    const std::string activate = MakeFrame("{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}");
    std::deque<PanelSocketPeer> peers;
    for (int client = 0; client < 1000; ++client) {
        if (peers.size() == 40) peers.pop_front();
        PanelSocketPeer& peer = peers.emplace_back(mServer.GetPort());
        if (client % 2 == 0) Tick();
        const int kind = client % 6;
        if (kind == 0) peer.Send("\x01\xff rubbish\n\n\n");
        if (kind == 1) peer.Send(MakeFrame("{\"token\":\"", FrameType::kText, false));
        const std::string said = client % 60 == 2 ? WriteUntilDropped(peer) : std::string();
        EXPECT_THAT(said, testing::AnyOf("", kRefusal));
        if (kind == 3) peer.Send(activate);
        if (kind == 4) peer.Send(MakeFrame(std::string(64, '\xff'), FrameType::kBinary));
        if (kind == 5) peer.EndOutput();
        Tick();
        EXPECT_THAT(peer.Hear(), testing::AnyOf("", kRefusal));
        ASSERT_LE(mServer.GetClientCount(), 32U);
    }
    for (PanelSocketPeer& peer : peers) EXPECT_THAT(peer.Hear(), testing::AnyOf("", kRefusal));
    EXPECT_EQ(fonts, Exchange(panel, list, fonts));
    EXPECT_TRUE(mServices.activation.GetActive().empty());
    peers.clear();
    EXPECT_EQ(1U, CountClients(1));
}

}  // namespace
