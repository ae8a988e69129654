#include <gmock/gmock.h>

#include "PanelScene.h"

using headless::PanelAnswer;
using headless::PanelPlayer;
using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string Name(const PanelScene& scene)
{
    return "127.0.0.1:" + std::to_string(scene.server.GetPort());
}

}  // namespace

TEST(PanelRefusals, AWrongTokenIsRefused)
{
    PanelScene scene;
    scene.WriteToken(std::string(64, 'b'));
    const PanelAnswer answer = scene.Ask({{{"op", "libraries"}}});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ("the panel's token was refused: \"{\"error\":\"refused\",\"ok\":false}\"",
              answer.error);
    EXPECT_EQ(scene.server.GetPort(), answer.port);
    EXPECT_EQ(1U, scene.server.messages.size());
}

TEST(PanelRefusals, WithoutATokenNothingIsSent)
{
    PanelScene scene;
    scene.RemoveToken();
    EXPECT_EQ("cannot read the panel's token: " + scene.GetTokenFile(), scene.Ask().error);
    EXPECT_THAT(scene.server.messages, IsEmpty());
}

TEST(PanelRefusals, AFileWithoutATokenIsNamed)
{
    PanelScene scene;
    const std::string right(64, 'a');
    for (const std::string& bytes :
         {std::string(), std::string(63, 'a'), right + "a", right + "\n", std::string(64, 'g')}) {
        scene.WriteToken(bytes);
        EXPECT_EQ("not a panel token: " + scene.GetTokenFile(), scene.Ask().error) << bytes;
    }
}

TEST(PanelRefusals, AMissingServerIsReported)
{
    PanelScene scene;
    scene.server.StopListening();
    const PanelAnswer answer = scene.Ask();
    EXPECT_FALSE(answer.ok);
    EXPECT_THAT(answer.error, testing::HasSubstr(Name(scene) + ": "));
}

TEST(PanelRefusals, WaitingForASilentServerEnds)
{
    PanelScene scene;
    scene.welcome.clear();
    EXPECT_EQ("no answer to the token within 200 ticks", scene.Ask().error);
    EXPECT_EQ(PanelPlayer::kMaximumTicks, scene.ticks);
}

TEST(PanelRefusals, WaitingForAnAnswerEnds)
{
    PanelScene scene;
    scene.serve = [](const json& request) {
        return request["op"] == "first" ? "{\"ok\":true}\n" : "{\"ok\":tr";
    };
    const PanelAnswer answer = scene.Ask({{{"op", "first"}}, {{"op", "second"}}});
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ("no answer to request 2 within 200 ticks", answer.error);
    EXPECT_THAT(answer.answers, ElementsAre(json{{"ok", true}}));
}

TEST(PanelRefusals, EventsDoNotExtendTheWaiting)
{
    PanelScene scene;
    std::string endless;
    for (int count = 0; count < 100000; ++count) endless += "{\"event\":\"libraries\"}\n";
    scene.server.bytesPerTick = 22;
    scene.serve = [&](const json&) { return endless; };
    const PanelAnswer answer = scene.Ask({{{"op", "subscribe"}}});
    EXPECT_EQ("no answer to request 1 within 200 ticks", answer.error);
}

TEST(PanelRefusals, AClosedConnectionIsReported)
{
    PanelScene scene;
    scene.serve = [&](const json&) {
        scene.server.Hang();
        return "";
    };
    EXPECT_EQ("no answer to request 1: " + Name(scene) + ": the connection was closed",
              scene.Ask({{{"op", "libraries"}}}).error);
}

TEST(PanelRefusals, AnUnfinishedMessageIsNoAnswer)
{
    PanelScene scene;
    scene.serve = [&](const json&) {
        scene.server.Hang();
        return "{\"ok\":true}";
    };
    EXPECT_EQ("no answer to request 1: " + Name(scene) +
                  ": the connection was closed in the middle of a message",
              scene.Ask({{{"op", "libraries"}}}).error);
}

TEST(PanelRefusals, AWholeMessageBeforeTheCloseIsAnAnswer)
{
    PanelScene scene;
    scene.serve = [&](const json&) {
        scene.server.Hang();
        return "{\"ok\":true}\n";
    };
    EXPECT_TRUE(scene.Ask({{{"op", "libraries"}}}).ok);
}

TEST(PanelRefusals, AMessageThatIsNoJsonIsQuoted)
{
    PanelScene scene;
    scene.serve = [](const json&) { return "GET / HTTP/1.1\r\n"; };
    EXPECT_EQ("the answer to request 1 is not a JSON object: \"GET / HTTP/1.1?\"",
              scene.Ask({{{"op", "libraries"}}}).error);
}

TEST(PanelRefusals, AnAnswerThatIsNoObjectIsQuoted)
{
    PanelScene scene;
    scene.welcome = "[true]\n";
    EXPECT_EQ("the answer to the token is not a JSON object: \"[true]\"", scene.Ask().error);
}

TEST(PanelRefusals, AnEndlessMessageIsAnError)
{
    PanelScene scene;
    scene.serve = [](const json&) { return std::string(8000000, 'x'); };
    EXPECT_EQ("no answer to request 1: " + Name(scene) + ": the answer is too long",
              scene.Ask({{{"op", "libraries"}}}).error);
}

TEST(PanelRefusals, ARequestThatIsNotUtf8IsNamed)
{
    PanelScene scene;
    const PanelAnswer answer = scene.Ask({{{"op", "\xff"}}});
    EXPECT_FALSE(answer.ok);
    EXPECT_THAT(answer.error, testing::StartsWith("request 1: "));
}

TEST(PanelRefusals, AServerThatRefusesTheHandshakeIsReported)
{
    PanelScene scene;
    scene.server.handshakeAnswer = "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n";
    EXPECT_EQ("no answer to the token: " + Name(scene) +
                  ": the server refuses a WebSocket: HTTP status 403",
              scene.Ask().error);
    EXPECT_THAT(scene.server.messages, IsEmpty());
}

TEST(PanelRefusals, AServerOfAnotherProtocolIsReported)
{
    PanelScene scene;
    scene.server.handshakeAnswer = "{\"ok\":false,\"error\":\"refused\"}\n";
    EXPECT_THAT(scene.Ask().error, testing::StartsWith("no answer to the token: " + Name(scene)));
    EXPECT_THAT(scene.server.messages, IsEmpty());
}
