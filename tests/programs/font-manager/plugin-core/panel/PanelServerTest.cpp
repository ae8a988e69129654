#include "plugin-core/panel/PanelServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <thread>

#include "FontTestHome.h"
#include "PanelPeer.h"

using plugincore::PanelBudget;
using plugincore::PanelProtocol;
using plugincore::PanelQueue;
using plugincore::PanelServer;
using plugincore::Services;

namespace {

constexpr const char* kRefusal = "{\"error\":\"refused\",\"ok\":false}\n";
constexpr const char* kWelcome = "{\"ok\":true,\"protocol\":1}\n";
constexpr const char* kTooLong = "{\"error\":\"the line is too long\",\"ok\":false}\n";
constexpr const char* kUnknown = "{\"error\":\"there is no such operation\",\"ok\":false}\n";

class PanelServerTest : public testing::Test {
protected:
    void SetUp() override
    {
        FontTestHome::CopyFont("DejaVuSans", mHome.GetLibrary());
        mServices.Start();
    }
    void TearDown() override { mServices.Stop(); }

    // Ticks without a limit of time, and serves all requests before each.
    void Tick(int times = 1)
    {
        for (int tick = 0; tick < times; ++tick) {
            while (mQueue.ServeNext()) {
            }
            mServer.Serve(PanelBudget(1, [] { return 0; }));
        }
    }
    // Ticks with a budget of some looks at the clock, which is the number of steps. Serves nothing.
    void TickOfSteps(int steps)
    {
        int64_t time = 0;
        mServer.Serve(PanelBudget(steps, [&time] { return time++; }));
    }
    // Ticks until the peer has received as many bytes as `expected` has, or the connection ends.
    // Returns the received bytes.
    std::string ReceiveUntil(PanelPeer& peer, const std::string& expected)
    {
        std::string heard;
        for (int wait = 0; wait < 1000 && heard.size() < expected.size(); ++wait) {
            Tick();
            heard += peer.Receive(10);
            if (peer.IsClosed()) break;
        }
        return heard;
    }
    std::string Exchange(PanelPeer& peer, const std::string& bytes, const std::string& expected)
    {
        EXPECT_EQ(static_cast<int64_t>(bytes.size()), peer.Send(bytes));
        return ReceiveUntil(peer, expected);
    }
    bool IsClosed(PanelPeer& peer)
    {
        for (int wait = 0; wait < 1000 && !peer.IsClosed(); ++wait) {
            Tick();
            (void)peer.Receive(10);
        }
        return peer.IsClosed();
    }
    size_t CountClients(size_t expected)
    {
        for (int wait = 0; wait < 1000 && mServer.GetClientCount() != expected; ++wait) {
            Tick();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return mServer.GetClientCount();
    }
    std::string Present(PanelPeer& peer) { return Exchange(peer, MakeTokenLine(), kWelcome); }
    void Subscribe(PanelPeer& peer)
    {
        const std::string answer = "{\"ok\":true}\n";
        ASSERT_EQ(answer, Exchange(peer, "{\"op\":\"subscribe\"}\n", answer));
    }
    std::string MakeTokenLine() const { return "{\"token\":\"" + mToken + "\"}\n"; }

    // Writes blocks of 64 KiB, whatever the server answers, until the connection breaks or 100 MiB
    // are written. Returns the answers.
    std::string WriteUntilDropped(PanelPeer& peer)
    {
        constexpr int64_t kMost = 100 << 20;
        const std::string bytes(65536, '{');
        std::string said;
        int64_t sent = 0;
        for (int64_t count = 0; sent < kMost && count >= 0; sent += count) {
            count = peer.Send(bytes);
            Tick();
            said += peer.Receive();
        }
        EXPECT_LT(sent, kMost);
        return said;
    }

    FontTestHome mHome;
    Services mServices{plugincore::GetLocations()};
    PanelProtocol mProtocol{mServices};
    int64_t mNow = 1000;
    std::string mToken = std::string(64, 'a');
    PanelQueue mQueue{mProtocol};
    PanelServer mServer{mQueue, mToken, [this] { return mNow; }};
};

TEST_F(PanelServerTest, ServesAClientWithTheToken)
{
    PanelPeer peer(mServer.GetPort());
    EXPECT_EQ(kWelcome, Present(peer));
    const std::string answer = "{\"id\":[7],\"libraries\":[],\"ok\":true}\n";
    EXPECT_EQ(answer, Exchange(peer, "{\"op\":\"libraries\",\"id\":[7]}\n", answer));
    EXPECT_EQ(1U, mServer.GetClientCount());
}

TEST_F(PanelServerTest, TokenAndRequestMayArriveTogetherAndInPieces)
{
    PanelPeer peer(mServer.GetPort());
    for (const char byte : MakeTokenLine() + "{}\n") {
        EXPECT_EQ(1, peer.Send(std::string(1, byte)));
        Tick();
    }
    const std::string answers = std::string(kWelcome) + kUnknown;
    EXPECT_EQ(answers, ReceiveUntil(peer, answers));
}

TEST_F(PanelServerTest, RefusesAnyOtherFirstLineAndCloses)
{
    const std::string half = mToken.substr(1);
    for (const std::string& line :
         {std::string("\n"), std::string("rubbish\n"), std::string("{\"op\":\"fonts\"}\n"),
          "{\"token\":\"" + half + "\"}\n", "{\"token\":\"" + half + "b\"}\n",
          "[\"" + mToken + "\"]\n", std::string("{\"token\":null}\n"), std::string(257, ' '),
          std::string(300, ' ') + MakeTokenLine()}) {
        PanelPeer peer(mServer.GetPort());
        EXPECT_EQ(kRefusal, Exchange(peer, line, kRefusal)) << line;
        EXPECT_TRUE(IsClosed(peer)) << line;
    }
}

TEST_F(PanelServerTest, DoesNotServeLinesAfterARefusedOne)
{
    PanelPeer peer(mServer.GetPort());
    const std::string activate = "{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}\n";
    EXPECT_EQ(kRefusal, Exchange(peer, "rubbish\n" + MakeTokenLine() + activate, kRefusal));
    EXPECT_TRUE(IsClosed(peer));
    EXPECT_TRUE(mServices.activation.GetActive().empty());
}

TEST_F(PanelServerTest, SendsNothingBeforeTheFirstLineHasEnded)
{
    PanelPeer peer(mServer.GetPort());
    EXPECT_EQ(5, peer.Send("{\"tok"));
    EXPECT_EQ(1U, CountClients(1));
    Tick(50);
    EXPECT_EQ("", peer.Receive(50));
    EXPECT_FALSE(peer.IsClosed());
}

TEST_F(PanelServerTest, RefusesAClientThatPresentsNothingInTime)
{
    PanelPeer peer(mServer.GetPort());
    ASSERT_EQ(1U, CountClients(1));
    mNow += 9999;
    Tick(2);
    EXPECT_EQ("", peer.Receive(50));
    mNow += 1;
    EXPECT_EQ(kRefusal, ReceiveUntil(peer, kRefusal));
    EXPECT_EQ(1U, mServer.GetClientCount());
    mNow += 2000;
    Tick();
    EXPECT_EQ(0U, mServer.GetClientCount());
}

TEST_F(PanelServerTest, ServedClientMayBeIdle)
{
    PanelPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    mNow += 1000000000;
    EXPECT_EQ(kUnknown, Exchange(peer, "{}\n", kUnknown));
}

TEST_F(PanelServerTest, RemovesAClientThatDisconnects)
{
    {
        PanelPeer served(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(served));
        const PanelPeer silent(mServer.GetPort());
        EXPECT_EQ(2U, CountClients(2));
    }
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelServerTest, RefusesALineWithoutEndOfAnyLength)
{
    PanelPeer stranger(mServer.GetPort());
    EXPECT_THAT(WriteUntilDropped(stranger), testing::AnyOf("", kRefusal));
    PanelPeer panel(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(panel));
    EXPECT_THAT(WriteUntilDropped(panel), testing::AnyOf("", kTooLong));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelServerTest, ServesALineOfExactlyTheLimit)
{
    PanelPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    const std::string blanks((64 << 10) - 2, ' ');
    EXPECT_EQ(kUnknown, Exchange(peer, "{" + blanks + "}\n", kUnknown));
    EXPECT_EQ(kTooLong, Exchange(peer, "{" + blanks + " }\n", kTooLong));
}

TEST_F(PanelServerTest, TickDoesNoWorkOfARequest)
{
    PanelPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    const std::string activate = "{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}\n";
    ASSERT_EQ(static_cast<int64_t>(activate.size()), peer.Send(activate + activate) / 2);
    const std::string mark = mServices.database.GetChangeMark();
    for (int tick = 0; tick < 50; ++tick) TickOfSteps(100);
    EXPECT_EQ("", peer.Receive(10));
    EXPECT_EQ(mark, mServices.database.GetChangeMark());
    // One request of a client is in the queue, so that its answers have the order of its requests.
    EXPECT_TRUE(mQueue.ServeNext());
    EXPECT_FALSE(mQueue.ServeNext());
    EXPECT_NE(mark, mServices.database.GetChangeMark());
    const std::string answer =
        "{\"activated\":[\"DejaVuSans\"],\"alreadyActive\":[],\"missing\":[],\"ok\":true}\n";
    EXPECT_EQ(answer, ReceiveUntil(peer, answer));
}

TEST_F(PanelServerTest, TickEndsWithItsBudgetAndTheNextOneContinues)
{
    std::deque<PanelPeer> peers;
    for (int client = 0; client < 10; ++client) {
        peers.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(peers.back()));
    }
    for (const PanelPeer& peer : peers) EXPECT_EQ(3, peer.Send("{}\n"));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto countRequests = [this] {
        int requests = 0;
        while (mQueue.ServeNext()) ++requests;
        return requests;
    };
    TickOfSteps(3);
    EXPECT_EQ(3, countRequests());
    TickOfSteps(0);
    EXPECT_EQ(1, countRequests());
    TickOfSteps(100);
    EXPECT_EQ(6, countRequests());
    for (PanelPeer& peer : peers) EXPECT_EQ(kUnknown, ReceiveUntil(peer, kUnknown));
}

TEST_F(PanelServerTest, TickAcceptsOneClientThoughItsBudgetIsSpent)
{
    std::deque<PanelPeer> peers;
    for (int client = 0; client < 3; ++client) peers.emplace_back(mServer.GetPort());
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    for (const size_t clients : {1U, 2U, 3U}) {
        TickOfSteps(0);
        EXPECT_EQ(clients, mServer.GetClientCount());
    }
}

TEST_F(PanelServerTest, ChangesCostSubscribersOneLookForAll)
{
    std::deque<PanelPeer> peers;
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
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n";
    for (PanelPeer& peer : peers) EXPECT_EQ(event, ReceiveUntil(peer, event));
}

TEST_F(PanelServerTest, ClientThatClosesItsSideReceivesAllAnswers)
{
    PanelPeer peer(mServer.GetPort());
    std::string lines = MakeTokenLine();
    std::string answers = kWelcome;
    for (int request = 0; request < 20; ++request) {
        lines += "{}\n";
        answers += kUnknown;
    }
    ASSERT_EQ(static_cast<int64_t>(lines.size()), peer.Send(lines));
    peer.EndOutput();
    EXPECT_EQ(answers, ReceiveUntil(peer, answers));
    EXPECT_TRUE(IsClosed(peer));
}

TEST_F(PanelServerTest, ClientThatDoesNotReadWaitsAndLosesNothing)
{
    PanelPeer peer(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(peer));
    // Each answer repeats the long id, so that the answers fill all buffers.
    const std::string request = "{\"id\":\"" + std::string(60000, 'x') + "\"}\n";
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
        const std::string got = peer.Receive(10);
        answers += std::count(got.begin(), got.end(), '\n');
        Tick();
    }
    EXPECT_EQ(answers, requests);
}

TEST_F(PanelServerTest, DropsASubscriberThatDoesNotRead)
{
    PanelPeer peer(mServer.GetPort());
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
    PanelPeer subscriber(mServer.GetPort());
    PanelPeer other(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(subscriber));
    ASSERT_EQ(kWelcome, Present(other));
    Subscribe(subscriber);
    mServices.activation.Activate("/a.ai", {"DejaVuSans"});
    mServer.AnnounceLibraryChange();
    std::string events =
        "{\"event\":\"libraries\"}\n"
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n";
    EXPECT_EQ(events, ReceiveUntil(subscriber, events));
    mServices.activation.Release("/a.ai");
    events = "{\"activated\":[],\"deactivated\":[\"DejaVuSans\"],\"event\":\"fonts\"}\n";
    EXPECT_EQ(events, ReceiveUntil(subscriber, events));
    EXPECT_EQ("", other.Receive());
}

TEST_F(PanelServerTest, SubscriberReceivesEventsOfAnotherProcess)
{
    PanelPeer subscriber(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(subscriber));
    Subscribe(subscriber);
    Services other(plugincore::GetLocations());
    other.Start();
    other.activation.Activate("/a.ai", {"DejaVuSans"});
    const std::string event =
        "{\"activated\":[\"DejaVuSans\"],\"deactivated\":[],\"event\":\"fonts\"}\n";
    EXPECT_EQ(event, ReceiveUntil(subscriber, event));
    other.Stop();
}

TEST_F(PanelServerTest, IdleClientsCannotLockThePanelOut)
{
    std::deque<PanelPeer> silent;
    for (int client = 0; client < 64; ++client) {
        silent.emplace_back(mServer.GetPort());
        Tick();
    }
    EXPECT_EQ(kRefusal, ReceiveUntil(silent.front(), kRefusal));
    EXPECT_EQ(32U, CountClients(32));
    PanelPeer panel(mServer.GetPort());
    EXPECT_EQ(kWelcome, Present(panel));
}

TEST_F(PanelServerTest, RefusesOneClientTooManyIfAllHaveTheToken)
{
    std::deque<PanelPeer> panels;
    for (int client = 0; client < 32; ++client) {
        panels.emplace_back(mServer.GetPort());
        ASSERT_EQ(kWelcome, Present(panels.back()));
    }
    PanelPeer another(mServer.GetPort());
    EXPECT_EQ(kRefusal, ReceiveUntil(another, kRefusal));
    EXPECT_EQ(32U, mServer.GetClientCount());
    EXPECT_EQ(kUnknown, Exchange(panels.front(), "{}\n", kUnknown));
}

TEST_F(PanelServerTest, OneTickAcceptsSixteenClients)
{
    std::deque<PanelPeer> peers;
    for (int client = 0; client < 20; ++client) peers.emplace_back(mServer.GetPort());
    while (mServer.GetClientCount() < 20) {
        const size_t before = mServer.GetClientCount();
        Tick();
        EXPECT_LE(mServer.GetClientCount(), before + 16);
    }
}

TEST_F(PanelServerTest, ThousandMaliciousClientsChangeNothing)
{
    PanelPeer panel(mServer.GetPort());
    ASSERT_EQ(kWelcome, Present(panel));
    const std::string list = "{\"op\":\"fonts\"}\n";
    const std::string fonts =
        "{\"fonts\":[{\"PostScriptName\":\"DejaVuSans\",\"state\":\"inactive\"}],\"ok\":true,"
        "\"total\":1}\n";
    const std::string activate = "{\"op\":\"activate\",\"fonts\":[\"DejaVuSans\"]}\n";
    std::deque<PanelPeer> peers;
    for (int client = 0; client < 1000; ++client) {
        if (peers.size() == 40) peers.pop_front();
        PanelPeer& peer = peers.emplace_back(mServer.GetPort());
        const int kind = client % 5;
        if (kind == 0) peer.Send("\x01\xff rubbish\n\n\n");
        if (kind == 1) peer.Send("{\"token\":\"");
        const std::string said = kind == 2 ? WriteUntilDropped(peer) : std::string();
        EXPECT_THAT(said, testing::AnyOf("", kRefusal));
        if (kind == 3) peer.Send(activate);
        Tick();
        EXPECT_THAT(peer.Receive(), testing::AnyOf("", kRefusal));
        ASSERT_LE(mServer.GetClientCount(), 32U);
    }
    for (PanelPeer& peer : peers) EXPECT_THAT(peer.Receive(), testing::AnyOf("", kRefusal));
    EXPECT_EQ(fonts, Exchange(panel, list, fonts));
    EXPECT_TRUE(mServices.activation.GetActive().empty());
    peers.clear();
    EXPECT_EQ(1U, CountClients(1));
}

}  // namespace
