#include <gmock/gmock.h>

#include "PanelScene.h"
#include "ScriptedPlugPlugLibrary_Linux.h"

using headless::PanelAnswer;
using headless::PanelPlayer;
using testing::HasSubstr;

TEST(PanelPort, IsReadFromThePayload)
{
    EXPECT_EQ(1, PanelPlayer::ReadPort("<payload><number>1</number></payload>"));
    EXPECT_EQ(12345, PanelPlayer::ReadPort("<payload><number>12345</number></payload>"));
    EXPECT_EQ(65535, PanelPlayer::ReadPort("<payload><number>65535</number></payload>"));
}

TEST(PanelPort, IsNotReadFromOtherText)
{
    for (const char* text :
         {"", "12345", "<payload><number></number></payload>",
          "<payload><number>0</number></payload>", "<payload><number>012</number></payload>",
          "<payload><number>-12</number></payload>", "<payload><number>+12</number></payload>",
          "<payload><number>12a</number></payload>", "<payload><number> 12</number></payload>",
          "<payload><number>65536</number></payload>",
          "<payload><number>4294967297</number></payload>",
          "<payload><number>12</number></payload>\n", " <payload><number>12</number></payload>",
          "<payload><number>12</number></payloae>", "<Payload><number>12</number></payload>",
          "<payload><number>12</number><number>12</number></payload>",
          "<payload><number>12</number>", "<number>12</number></payload>"}) {
        EXPECT_EQ(std::nullopt, PanelPlayer::ReadPort(text)) << text;
    }
}

TEST(PanelPort, IsAskedForOnce)
{
    PanelScene scene;
    const PanelAnswer answer = scene.Ask();
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_EQ(scene.server.GetPort(), answer.port);
    EXPECT_EQ(1, scene.portRequests);
}

TEST(PanelPort, IsWaitedForInTicks)
{
    PanelScene scene;
    scene.answersRequests = false;
    scene.sendsAtTick = 5;
    const PanelAnswer answer = scene.Ask();
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_EQ(1, scene.portRequests);
}

TEST(PanelPort, WaitingForItEndsAfter200Ticks)
{
    PanelScene scene;
    scene.answersRequests = false;
    const PanelAnswer answer = scene.Ask();
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ("no answer to com.corvanta.portnumberrequest within 200 ticks", answer.error);
    EXPECT_EQ(PanelPlayer::kMaximumTicks, scene.ticks);
    EXPECT_EQ(0, answer.port);
}

TEST(PanelPort, AWrongPayloadIsQuoted)
{
    PanelScene scene;
    scene.payload = "<payload>\n1\xff</payload>";
    const PanelAnswer answer = scene.Ask();
    EXPECT_FALSE(answer.ok);
    EXPECT_EQ("com.corvanta.portnumberresponse does not report a port: \"<payload>?1?</payload>\"",
              answer.error);
    EXPECT_EQ(0, answer.port);
}

TEST(PanelPort, ALongPayloadIsCut)
{
    PanelScene scene;
    scene.payload = std::string(100000, 'x');
    EXPECT_EQ("com.corvanta.portnumberresponse does not report a port: \"" + std::string(80, 'x') +
                  "\"...",
              scene.Ask().error);
}

TEST(PanelPort, IsNotFoundWithoutABus)
{
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("none");
    const PanelAnswer answer = scene.Ask();
    EXPECT_FALSE(answer.ok);
    EXPECT_THAT(answer.error, HasSubstr("cannot open the event bus: " + scene.frameworks +
                                        "/PlugPlug.framework/PlugPlug"));
    EXPECT_EQ(0, scene.ticks);
}

TEST(PanelPort, ABusThatIsNoLibraryIsNamed)
{
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("owl-not-a-library");
    EXPECT_THAT(scene.Ask().error, HasSubstr(scene.frameworks + "/PlugPlugOwl.framework"));
}

TEST(PanelPort, ABusWithoutAFunctionIsNamed)
{
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("missing-PlugPlugDispatchEvent");
    EXPECT_EQ("cannot open the event bus: " + scene.frameworks +
                  "/PlugPlugOwl.framework/PlugPlugOwl lacks a function",
              scene.Ask().error);
}

TEST(PanelPort, ABusThatRefusesTheListenerIsReported)
{
    const ScriptedPlugPlugLibrary bus("listener-fails-once");
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("listener-fails-once");
    EXPECT_EQ("the event bus refuses the panel's listener: 7", scene.Ask().error);
}

TEST(PanelPort, ABusThatRefusesTheRequestIsReported)
{
    const ScriptedPlugPlugLibrary bus("owl-only");
    bus->answers["PlugPlugDispatchEvent"] = 3;
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("owl-only");
    EXPECT_EQ("the event bus refuses com.corvanta.portnumberrequest: 3", scene.Ask().error);
}

TEST(PanelPort, TheOwlIsPreferred)
{
    const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
    const ScriptedPlugPlugLibrary plain("both", "PlugPlug");
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("both");
    EXPECT_FALSE(scene.Ask().ok);
    EXPECT_THAT(owl->calls,
                testing::ElementsAre("PlugPlugAddEventListener", "PlugPlugDispatchEvent",
                                     "PlugPlugRemoveEventListener"));
    EXPECT_THAT(plain->calls, testing::IsEmpty());
}

TEST(PanelPort, ThePlainNameIsUsedWithoutTheOwl)
{
    const ScriptedPlugPlugLibrary plain("plain-only", "PlugPlug");
    PanelScene scene;
    scene.frameworks = ScriptedPlugPlugFolder("plain-only");
    EXPECT_FALSE(scene.Ask().ok);
    ASSERT_EQ(1U, plain->events.size());
    EXPECT_EQ("com.corvanta.portnumberrequest", plain->events[0].type);
}
