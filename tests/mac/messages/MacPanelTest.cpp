#include "LinkFixture.h"
#include "Platform.h"

namespace {

struct MacPanel : LinkFixture {};

TEST_F(MacPanel, FirstTickFindsTheBusInTheHostsBundleAndSendsThePort)
{
    InFreshProcess([this] {
        const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
        ASSERT_TRUE(owl);
        Platform::UsePrivateFrameworks(ScriptedPlugPlugFolder("both"));
        core->socketPort = 12345;
        EXPECT_EQ(0, SendTick());
        ASSERT_EQ(1U, owl->events.size());
        EXPECT_EQ(kResponse, owl->events[0].type);
        EXPECT_EQ(Payload("12345"), owl->events[0].data);
        EXPECT_EQ(1U, owl->Raise(kRequest));
        EXPECT_EQ(2U, owl->events.size());
    });
}

TEST_F(MacPanel, LooksForTheBusAtEachTickUntilItIsFound)
{
    InFreshProcess([this] {
        Platform::UsePrivateFrameworks(ScriptedPlugPlugFolder("none"));
        EXPECT_EQ(0, SendTick());
        Platform::UsePrivateFrameworks(ScriptedPlugPlugFolder("both"));
        const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(1U, owl->events.size());
    });
}

}  // namespace
