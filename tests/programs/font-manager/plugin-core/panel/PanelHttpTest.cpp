#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "PanelServerFixture.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class PanelHttpTest : public PanelServerFixture {
protected:
    static std::string GetStatus(const std::string& answer)
    {
        return answer.substr(0, 9) == "HTTP/1.1 " ? answer.substr(9, 3) : answer;
    }
    // The status of an answer that must tell nothing else.
    std::string AskInVain(const std::string& bytes)
    {
        const std::string answer = Ask(bytes);
        EXPECT_THAT(answer, HasSubstr("\r\nContent-Length: 0\r\n")) << bytes;
        EXPECT_THAT(answer, EndsWith("\r\n\r\n")) << bytes;
        EXPECT_THAT(answer, Not(HasSubstr("Access-Control"))) << bytes;
        return GetStatus(answer);
    }
    std::string MakeWith(const std::string& target, const std::string& host,
                         const std::string& headers = {}) const
    {
        return "GET " + target + " HTTP/1.1\r\n" + (host.empty() ? "" : "Host: " + host + "\r\n") +
               headers + "\r\n";
    }
    std::string GetFontId()
    {
        const std::string answer = mProtocol.Serve(R"({"op":"fonts"})").text;
        return nlohmann::json::parse(answer).at("fonts").at(0).at("id");
    }
};

TEST_F(PanelHttpTest, ServesThePageWithoutAToken)
{
    const std::string answer = Ask(MakeRequest("GET /"));
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(answer, HasSubstr("\r\nContent-Type: text/html; charset=utf-8\r\n"));
    EXPECT_THAT(answer, HasSubstr("\r\nConnection: close\r\n"));
    EXPECT_THAT(answer, HasSubstr("<!DOCTYPE html>"));
    EXPECT_THAT(answer, Not(HasSubstr(mToken)));
    const std::string head = Ask(MakeRequest("HEAD /"));
    EXPECT_EQ(answer.substr(0, answer.find("\r\n\r\n") + 4), head);
}

TEST_F(PanelHttpTest, EachAnswerForbidsWhatThePageDoesNotNeed)
{
    const std::string port = std::to_string(mServer.GetPort());
    const std::string policy =
        "\r\nContent-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; "
        "connect-src 'self' ws://127.0.0.1:" +
        port + " ws://localhost:" + port +
        "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'\r\n";
    for (const std::string& request :
         {MakeRequest("GET /"), MakeRequest("GET /nothing"), MakeRequest("GET /font/1"),
          MakeRequest("GET /font/" + GetFontId(), MakeTokenHeader()),
          MakeRequest("GET /socket", "Upgrade: websocket\r\nConnection: Upgrade\r\n")}) {
        const std::string answer = Ask(request);
        const std::string header = answer.substr(0, answer.find("\r\n\r\n") + 2);
        EXPECT_THAT(header, HasSubstr(policy)) << request;
        EXPECT_THAT(header, HasSubstr("\r\nX-Content-Type-Options: nosniff\r\n")) << request;
        EXPECT_THAT(header, HasSubstr("\r\nReferrer-Policy: no-referrer\r\n")) << request;
        EXPECT_THAT(header, HasSubstr("\r\nCross-Origin-Resource-Policy: same-origin\r\n"));
        EXPECT_THAT(header, HasSubstr("\r\nCache-Control: no-store\r\n")) << request;
    }
}

TEST_F(PanelHttpTest, AnotherHostGetsNothing)
{
    const std::string port = ":" + std::to_string(mServer.GetPort());
    EXPECT_EQ("200", GetStatus(Ask(MakeWith("/", "localhost" + port))));
    for (const std::string& host :
         {"evil.example" + port, std::string("evil.example"), std::string("127.0.0.1"),
          "127.0.0.1.evil.example" + port, "127.0.0.1" + port + "0", "127.0.0.2" + port,
          "[::1]" + port, "127.0.0.1" + port + ", evil.example", std::string()}) {
        EXPECT_EQ("403", AskInVain(MakeWith("/", host))) << host;
        const std::string font = "/font/" + GetFontId();
        EXPECT_EQ("403", AskInVain(MakeWith(font, host, MakeTokenHeader()))) << host;
    }
    EXPECT_EQ("403", AskInVain(MakeRequest("GET /", "Host: evil.example\r\n")));
    EXPECT_EQ("403", AskInVain(MakeRequest("GET /", "Host: " + MakeHost() + "\r\n")));
    std::string handshake = MakeHandshake(mServer.GetPort()) + "\r\n";
    handshake.replace(handshake.find(MakeHost()), MakeHost().size(), "evil.example" + port);
    EXPECT_EQ("403", AskInVain(handshake));
}

TEST_F(PanelHttpTest, APageOfAnotherOriginGetsNothing)
{
    const std::string handshake = MakeHandshake(mServer.GetPort());
    for (const std::string& origin :
         {std::string("http://evil.example"), std::string("null"), "https://" + MakeHost(),
          "http://" + MakeHost() + "0", "http://" + MakeHost() + "/", std::string(),
          std::string("http://127.0.0.1:1")}) {
        const std::string header = "Origin: " + origin + "\r\n";
        EXPECT_EQ("403", AskInVain(MakeRequest("GET /", header))) << origin;
        EXPECT_EQ("403", AskInVain(handshake + header + "\r\n")) << origin;
        EXPECT_EQ("403",
                  AskInVain(MakeRequest("GET /font/" + GetFontId(), MakeTokenHeader() + header)));
        EXPECT_EQ("403", AskInVain(MakeRequest("OPTIONS /font/1", header)));
    }
    const std::string own = "Origin: http://" + MakeHost() + "\r\n";
    EXPECT_EQ("403", AskInVain(MakeRequest("GET /", own + own)));
    EXPECT_EQ("200", GetStatus(Ask(MakeRequest("GET /", own))));
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(handshake + own + "\r\n"), 0);
    std::string answer;
    for (int wait = 0; wait < 1000 && answer.empty(); ++wait) {
        Tick();
        answer = peer.Receive(10);
    }
    EXPECT_EQ("101", GetStatus(answer));
}

TEST_F(PanelHttpTest, OtherPathsLeadNowhere)
{
    for (const char* target :
         {"/../../etc/passwd", "/..", "/%2e%2e/%2e%2e/etc/passwd", "//", "/index.html", "/?", "/?a",
          "/panel.js/", "/PANEL.JS", "/socket/", "/socket?", "/font", "*", "http://evil.example/",
          "/\\..\\..", "/.", "/etc/passwd"}) {
        EXPECT_EQ("404", AskInVain(MakeRequest(std::string("GET ") + target))) << target;
    }
    const std::string id = GetFontId();
    for (const char* target : {"/font/", "/font/../../etc/passwd", "/font/%2e%2e%2f", "/font/1",
                               "/font/-1-0-0", "/font//etc/passwd", "/font/1-0-0"}) {
        EXPECT_EQ("404", AskInVain(MakeRequest(std::string("GET ") + target, MakeTokenHeader())))
            << target;
    }
    EXPECT_EQ("404", AskInVain(MakeRequest("GET /font/" + id + "?", MakeTokenHeader())));
    for (const char* method : {"POST", "PUT", "DELETE", "OPTIONS", "TRACE", "CONNECT", "BREW"}) {
        EXPECT_EQ("405", AskInVain(MakeRequest(std::string(method) + " /"))) << method;
    }
    EXPECT_EQ("426", AskInVain(MakeRequest("GET /socket")));
}

TEST_F(PanelHttpTest, SendsAFontFileToAClientWithTheToken)
{
    // More than the socket's buffers take.
    const std::filesystem::path font = mHome.GetLibrary() / "DejaVuSans.ttf";
    std::ifstream stream(font, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    bytes.resize(12 << 20, 'x');
    FontTestHome::WriteFile(font, bytes);
    mServices.library.Refresh();
    const std::string request = MakeRequest("GET /font/" + GetFontId(), MakeTokenHeader());
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(request), 0);
    Tick(200);  // before the client reads anything
    const std::string answer = ReceiveAll(peer);
    const size_t end = answer.find("\r\n\r\n");
    ASSERT_NE(std::string::npos, end);
    EXPECT_THAT(answer.substr(0, end), StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(answer.substr(0, end), HasSubstr("\r\nContent-Type: font/ttf\r\n"));
    EXPECT_THAT(answer.substr(0, end), HasSubstr("\r\nX-Face-Index: 0\r\n"));
    EXPECT_THAT(answer.substr(0, end), HasSubstr("\r\nContent-Length: 12582912"));
    EXPECT_TRUE(bytes == answer.substr(end + 4));
    EXPECT_EQ(answer.substr(0, end + 4),
              Ask(MakeRequest("HEAD /font/" + GetFontId(), MakeTokenHeader())));
}

TEST_F(PanelHttpTest, SendsNoFontWithoutTheToken)
{
    const std::string line = "GET /font/" + GetFontId();
    const std::string wrong = "X-Panel-Token: " + std::string(64, 'b') + "\r\n";
    EXPECT_EQ("403", AskInVain(MakeRequest(line)));
    EXPECT_EQ("403", AskInVain(MakeRequest(line, wrong)));
    EXPECT_EQ("403", AskInVain(MakeRequest(line, "X-Panel-Token:\r\n")));
    EXPECT_EQ("403", AskInVain(MakeRequest(line, wrong + MakeTokenHeader())));
    EXPECT_EQ("403", AskInVain(MakeRequest(line + "?" + mToken, "Cookie: " + mToken + "\r\n")));
}

TEST_F(PanelHttpTest, AFontThatShrinksWhileItIsSentEndsTheConnection)
{
    const std::filesystem::path font = mHome.GetLibrary() / "DejaVuSans.ttf";
    const auto size = std::filesystem::file_size(font);
    ASSERT_GT(size, 512U << 10);
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(MakeRequest("GET /font/" + GetFontId(), MakeTokenHeader())), 0);
    std::string answer;
    for (int wait = 0; wait < 1000 && answer.empty(); ++wait) {
        Tick();
        answer = peer.Receive(10);
        if (!answer.empty()) std::filesystem::resize_file(font, 1000);
    }
    answer += ReceiveAll(peer);
    EXPECT_LT(answer.size(), size);
}

TEST_F(PanelHttpTest, ARequestWithABodyIsRefusedAndWhatFollowsIsNotServed)
{
    const std::string second = MakeRequest("GET /");
    for (const char* headers :
         {"Content-Length: 5\r\n", "Transfer-Encoding: chunked\r\n",
          "Content-Length: 0\r\nTransfer-Encoding: chunked\r\n",
          "Transfer-Encoding: chunked\r\nContent-Length: 4\r\n", "Transfer-Encoding: xchunked\r\n",
          "Content-Length: 0\r\nContent-Length: 5\r\n", "Content-Length: -1\r\n",
          "Content-Length: +0\r\n", "Content-Length: 1, 1\r\n",
          "Content-Length: 99999999999999999999\r\n"}) {
        EXPECT_EQ("400", AskInVain(MakeRequest("GET /", headers) + "0\r\n\r\n" + second))
            << headers;
    }
    // One connection, one answer.
    const std::string answer = Ask(second + second + second);
    EXPECT_EQ(0U, answer.find("HTTP/1.1 "));
    EXPECT_EQ(std::string::npos, answer.find("HTTP/1.1 ", 1));
}

TEST_F(PanelHttpTest, RubbishIsRefused)
{
    for (const std::string& bytes :
         {std::string("\r\n\r\n\r\n"), std::string("\x16\x03\x01\x02rubbish\r\n\r\n"),
          std::string("GET\r\n\r\n"), std::string("GET / HTTP/9.9\r\n\r\n"),
          std::string("GET / HTTP/1.1\nHost: x\n\n\r\n\r\n"),
          "GET / HTTP/1.1\r\nHost : " + MakeHost() + "\r\n\r\n",
          "GET / HTTP/1.1\r\nHost: " + MakeHost() + "\r\nA\x01: b\r\n\r\n",
          "GET /\x7f HTTP/1.1\r\nHost: " + MakeHost() + "\r\n\r\n",
          "GET / HTTP/1.1\r\n Host: " + MakeHost() + "\r\n\r\n", std::string(5000, '\0')}) {
        EXPECT_EQ("400", AskInVain(bytes)) << bytes;
    }
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelHttpTest, ALongHeaderIsRefused)
{
    const std::string most(7 << 10, 'x');
    EXPECT_EQ("200", GetStatus(Ask(MakeRequest("GET /", "Cookie: " + most + "\r\n"))));
    EXPECT_EQ("431", AskInVain(MakeRequest("GET /", "Cookie: " + most + most + "\r\n")));
    EXPECT_EQ("431", AskInVain("GET /" + most + most + " HTTP/1.1\r\n\r\n"));
    std::string many;
    for (int number = 0; number < 2000; ++number) many += "A" + std::to_string(number) + ": b\r\n";
    EXPECT_EQ("431", AskInVain(MakeRequest("GET /", many)));
}

TEST_F(PanelHttpTest, AHeaderThatDripsIsRefusedInTime)
{
    PanelPeer peer(mServer.GetPort());
    std::string answer;
    const std::string request = MakeRequest("GET /", "Cookie: " + std::string(2000, 'x'));
    for (size_t at = 0; at < request.size() && answer.empty(); ++at) {
        (void)peer.Send(request.substr(at, 1));  // fails after the refusal
        mNow += 100;
        Tick();
        answer = peer.Receive();
    }
    EXPECT_EQ("408", GetStatus(answer + ReceiveAll(peer)));
    EXPECT_LE(mNow, 1000 + 10000 + 2000 + 200);
}

TEST_F(PanelHttpTest, AClientThatReadsNothingIsDropped)
{
    const std::filesystem::path font = mHome.GetLibrary() / "DejaVuSans.ttf";
    std::filesystem::resize_file(font, 40 << 20);
    mServices.library.Refresh();
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(MakeRequest("GET /font/" + GetFontId(), MakeTokenHeader())), 0);
    Tick(500);
    EXPECT_EQ(1U, mServer.GetClientCount());
    mNow += 29999;
    Tick(5);
    EXPECT_EQ(1U, mServer.GetClientCount());
    mNow += 1;
    Tick(2);
    EXPECT_EQ(0U, mServer.GetClientCount());
}

TEST_F(PanelHttpTest, AHalfClosedClientReceivesItsAnswer)
{
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(MakeRequest("GET /")), 0);
    peer.EndOutput();
    EXPECT_EQ("200", GetStatus(ReceiveAll(peer)));
    PanelPeer half(mServer.GetPort());
    EXPECT_GT(half.Send("GET / HT"), 0);
    half.EndOutput();
    EXPECT_THAT(GetStatus(ReceiveAll(half)), testing::AnyOf("", "400"));
    EXPECT_EQ(0U, CountClients(0));
}

TEST_F(PanelHttpTest, AnAnswerThatIsNotTakenEndsInTime)
{
    PanelPeer peer(mServer.GetPort());
    EXPECT_GT(peer.Send(MakeRequest("GET /")), 0);
    EXPECT_EQ(1U, CountClients(1));
    Tick(20);
    mNow += 2000;
    Tick(2);
    EXPECT_EQ(0U, mServer.GetClientCount());
}

}  // namespace
