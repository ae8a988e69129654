#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "FontTestHome.h"
#include "PanelPeer.h"
#include "plugin-core/panel/PanelServer.h"

constexpr const char* kRefusal = "{\"error\":\"refused\",\"ok\":false}\n";
constexpr const char* kWelcome = "{\"ok\":true,\"protocol\":2}\n";
constexpr const char* kTooLong = "{\"error\":\"the message is too long\",\"ok\":false}\n";
constexpr const char* kUnknown = "{\"error\":\"there is no such operation\",\"ok\":false}\n";

// The panel's server over a library with one font. The test makes its ticks and sets its clock.
class PanelServerFixture : public testing::Test {
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
            mServer.Serve(plugincore::PanelBudget(1, [] { return 0; }));
        }
    }
    // Ticks with a budget of some looks at the clock, which is the number of steps. Serves nothing.
    void TickOfSteps(int steps)
    {
        int64_t time = 0;
        mServer.Serve(plugincore::PanelBudget(steps, [&time] { return time++; }));
    }
    // Ticks until the peer has received as many bytes as `expected` has, or the connection ends.
    // Returns the messages.
    std::string HearUntil(PanelSocketPeer& peer, const std::string& expected)
    {
        std::string heard;
        for (int wait = 0; wait < 1000 && heard.size() < expected.size(); ++wait) {
            Tick();
            heard += peer.Hear(10);
            if (peer.IsClosed()) break;
        }
        return heard;
    }
    std::string Exchange(PanelSocketPeer& peer, const std::string& text,
                         const std::string& expected)
    {
        EXPECT_EQ(static_cast<int64_t>(MakeFrame(text).size()), peer.Say(text));
        return HearUntil(peer, expected);
    }
    bool Open(PanelSocketPeer& peer)
    {
        for (int wait = 0; wait < 1000 && !peer.IsOpen() && !peer.IsClosed(); ++wait) {
            Tick();
            EXPECT_EQ("", peer.Hear(10));
        }
        return peer.IsOpen();
    }
    std::string Present(PanelSocketPeer& peer)
    {
        EXPECT_TRUE(Open(peer));
        return Exchange(peer, MakeTokenMessage(), kWelcome);
    }
    void Subscribe(PanelSocketPeer& peer)
    {
        const std::string answer = "{\"ok\":true}\n";
        ASSERT_EQ(answer, Exchange(peer, R"({"op":"subscribe"})", answer));
    }
    std::string MakeTokenMessage() const { return "{\"token\":\"" + mToken + "\"}"; }

    bool IsClosed(PanelPeer& peer)
    {
        for (int wait = 0; wait < 1000 && !peer.IsClosed(); ++wait) {
            Tick();
            (void)peer.Receive(10);
        }
        return peer.IsClosed();
    }
    // The same, and decodes what arrives until then.
    bool IsClosedWithFrame(PanelSocketPeer& peer)
    {
        for (int wait = 0; wait < 1000 && !peer.IsClosed() && peer.GetCloseCode() == 0; ++wait) {
            Tick();
            (void)peer.Hear(10);
        }
        return peer.GetCloseCode() != 0;
    }
    size_t CountClients(size_t expected)
    {
        for (int wait = 0; wait < 1000 && mServer.GetClientCount() != expected; ++wait) {
            Tick();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return mServer.GetClientCount();
    }

    // Sends the bytes on a connection of its own and returns all that comes until its end.
    std::string Ask(const std::string& bytes)
    {
        PanelPeer peer(mServer.GetPort());
        EXPECT_EQ(static_cast<int64_t>(bytes.size()), peer.Send(bytes));
        return ReceiveAll(peer);
    }
    std::string ReceiveAll(PanelPeer& peer)
    {
        std::string answer;
        for (int wait = 0; wait < 1000 && !peer.IsClosed(); ++wait) {
            Tick();
            answer += peer.Receive(10);
        }
        EXPECT_TRUE(peer.IsClosed()) << answer;
        return answer;
    }
    // A request with headers, each ended by a line end.
    std::string MakeRequest(const std::string& line, const std::string& headers = {}) const
    {
        return line + " HTTP/1.1\r\nHost: " + MakeHost() + "\r\n" + headers + "\r\n";
    }
    std::string MakeHost() const { return "127.0.0.1:" + std::to_string(mServer.GetPort()); }
    std::string MakeTokenHeader() const { return "X-Panel-Token: " + mToken + "\r\n"; }

    FontTestHome mHome;
    plugincore::Services mServices{plugincore::GetLocations()};
    plugincore::PanelProtocol mProtocol{mServices};
    int64_t mNow = 1000;
    std::string mToken = std::string(64, 'a');
    plugincore::PanelQueue mQueue{mProtocol};
    plugincore::PanelServer mServer{mQueue, mToken, [this] { return mNow; }};
};
