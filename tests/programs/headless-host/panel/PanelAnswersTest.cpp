#include <gmock/gmock.h>

#include <stdexcept>

#include "PanelScene.h"

using headless::PanelAnswer;
using nlohmann::json;
using testing::ElementsAre;

TEST(PanelAnswers, ComeInTheOrderOfTheRequests)
{
    PanelScene scene;
    scene.serve = [](const json& request) {
        return json{{"ok", true}, {"op", request["op"]}}.dump() + "\n";
    };
    const PanelAnswer answer = scene.Ask({{{"op", "libraries"}}, {{"op", "fonts"}}});
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_THAT(answer.answers, ElementsAre(json{{"ok", true}, {"op", "libraries"}},
                                            json{{"ok", true}, {"op", "fonts"}}));
}

TEST(PanelAnswers, TheTokenIsTheFirstMessage)
{
    PanelScene scene;
    ASSERT_TRUE(scene.Ask({{{"op", "libraries"}}}).ok);
    EXPECT_THAT(scene.server.messages,
                ElementsAre("{\"token\":\"" + scene.token + "\"}", "{\"op\":\"libraries\"}"));
}

TEST(PanelAnswers, ARefusedRequestIsAnAnswer)
{
    PanelScene scene;
    scene.serve = [](const json&) { return "{\"ok\":false,\"error\":\"no such op\"}\n"; };
    const PanelAnswer answer = scene.Ask({{{"op", "rubbish"}}});
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_THAT(answer.answers, ElementsAre(json{{"ok", false}, {"error", "no such op"}}));
}

TEST(PanelAnswers, EventsAreKeptApart)
{
    PanelScene scene;
    scene.serve = [](const json&) { return "{\"event\":\"libraries\"}\n{\"ok\":true}\n"; };
    const PanelAnswer answer = scene.Ask({{{"op", "subscribe"}}, {{"op", "libraries"}}});
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_THAT(answer.answers, ElementsAre(json{{"ok", true}}, json{{"ok", true}}));
    EXPECT_THAT(answer.events,
                ElementsAre(json{{"event", "libraries"}}, json{{"event", "libraries"}}));
}

TEST(PanelAnswers, ArriveInPieces)
{
    PanelScene scene;
    scene.server.bytesPerTick = 1;
    const PanelAnswer answer = scene.Ask({{{"op", "libraries"}}});
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_THAT(answer.answers, ElementsAre(json{{"ok", true}}));
}

TEST(PanelAnswers, MayBeLong)
{
    PanelScene scene;
    const json fonts = {{"ok", true}, {"fonts", std::string(1000000, 'f')}};
    scene.serve = [&](const json&) { return fonts.dump() + "\n"; };
    const PanelAnswer answer = scene.Ask({{{"op", "fonts"}}});
    EXPECT_TRUE(answer.ok) << answer.error;
    EXPECT_THAT(answer.answers, ElementsAre(fonts));
}

TEST(PanelAnswers, ALongRequestIsSentWhole)
{
    PanelScene scene;
    const json request = {{"op", "activate"}, {"fonts", {std::string(8000000, 'f')}}};
    ASSERT_TRUE(scene.Ask({request}).ok);
    EXPECT_EQ(request.dump(), scene.server.messages.back());
}

TEST(PanelAnswers, TheConnectionIsClosedInTheEnd)
{
    PanelScene scene;
    ASSERT_TRUE(scene.Ask({{{"op", "libraries"}}}).ok);
    EXPECT_TRUE(scene.server.HasClient());
    scene.server.Tick();
    EXPECT_FALSE(scene.server.HasClient());
}

TEST(PanelAnswers, WhatTheTickThrowsPassesThrough)
{
    PanelScene scene;
    headless::PanelPlayer player(scene.frameworks);
    const auto tick = [] { throw std::runtime_error("interrupted"); };
    EXPECT_THROW((void)player.Ask({}, tick), std::runtime_error);
    scene.server.Tick();
    scene.server.Tick();
    EXPECT_FALSE(scene.server.HasClient());
    EXPECT_TRUE(scene.Ask().ok);
}
