#include "SimulationFixture.h"
#include "application/ExitStatus.h"

using headless::kNotAsExpected;
using headless::kWrongUse;

// What each word of a simulation takes.
class SimulationWords : public SimulationFixture {};

TEST_F(SimulationWords, EveryWordTakesAGoodArgument)
{
    Pass(
        "language de\nlack-function GetSettings\nlack-suite 'ATE Spell Suite'\n"
        "suite-version 'AI User Suite' 3\nlack-bus\nallow refusal\ncount\n"
        "active A-Regular B-Bold\nactive\ndocument a.ai fonts=A,B frames=2 runs=3 placed=p.eps "
        "listed=C\ndocument b.pdf unreadable\ndocument c.ait empty\ndocument d/e.eps frames=0\n"
        "core GetMenus status=1 text=x size=18446744073709551615 number=-1 flag=false rebuild "
        "times=1\ncore GetMenus hex=00fFA0\ncore GetMenus fill=x throw=int\ncore GetMenus\n"
        "start\nvanish a.ai\nclock +10\nclock -10\nfail-call 100 7\nfail-core 100 throw:int\n"
        "fail-allocation 1000\nduring GetMenus open a.ai\nremember leaks\n"
        "remember registrations\nexpect unchanged leaks\nexpect unchanged registrations\n"
        "expect unique registrations\nexpect core GetMenus 0\nexpect port none\ncount end\n");
}

TEST_F(SimulationWords, AWrongArgumentIsNamed)
{
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"clock 5", "clock: unknown or invalid \"5\""},
        {"clock ''", "clock: unknown or invalid \"\""},
        {"clock +", "clock: unknown or invalid \"+\""},
        {"clock +-5", "clock: unknown or invalid \"+-5\""},
        {"clock +1099511627777", "clock: unknown or invalid \"+1099511627777\""},
        {"clock +99999999999999999999", "clock: unknown or invalid \"+99999999999999999999\""},
        {"fail-call 0 7", "fail-call: unknown or invalid \"0\""},
        {"fail-call 1 0", "fail-call: unknown or invalid \"0\""},
        {"fail-call 1 throw:long", "fail-call: unknown or invalid \"throw:long\""},
        {"fail-call 1", "usage: fail-call N KIND"},
        {"fail-core x 7", "fail-core: unknown or invalid \"x\""},
        {"fail-core 1 seven", "fail-core: unknown or invalid \"seven\""},
        {"fail-allocation -1", "fail-allocation: unknown or invalid \"-1\""},
        {"fail-allocation 0", "fail-allocation: unknown or invalid \"0\""},
        {"during GetMenus", "usage: during OPERATION LINE"},
        {"during GetMenus new x", "during GetMenus: usage: new"},
        {"during GetMenus during GetSettings tick 1 2",
         "during GetMenus: during GetSettings: usage: tick [N]"},
        {"lack-suite Nothing", "lack-suite: unknown or invalid \"Nothing\""},
        {"core Nothing", "core: unknown or invalid \"Nothing\""},
        {"document", "usage: document PATH [KEY=VALUE]..."},
        {"document a.ai colour=red", "document: unknown or invalid \"colour=red\""},
        {"document a.ai frames=many", "document: unknown or invalid \"frames=many\""},
        {"document a.ai frames=-1", "document: unknown or invalid \"frames=-1\""},
        {"document a.ai runs=", "document: unknown or invalid \"runs=\""},
        {"document a.ai runs=100001", "document: unknown or invalid \"runs=100001\""},
        {"language xx", "language: unknown or invalid \"xx\""},
        {"suite-version 'AI User Suite' new", "suite-version: unknown or invalid \"new\""},
        {"lack-function Nothing", "lack-function: unknown or invalid \"Nothing\""},
        {"lack-core\nlack-core", "lack-core: it is gone"},
        {"core GetMenus colour=red", "core: unknown or invalid \"colour=red\""},
        {"core GetMenus status=bad", "core: unknown or invalid \"status=bad\""},
        {"core GetMenus hex=0", "core: unknown or invalid \"hex=0\""},
        {"core GetMenus hex=0g", "core: unknown or invalid \"hex=0g\""},
        {"core GetMenus fill=ab", "core: unknown or invalid \"fill=ab\""},
        {"core GetMenus flag=yes", "core: unknown or invalid \"flag=yes\""},
        {"core GetMenus throw=long", "core: unknown or invalid \"throw=long\""},
        {"core GetMenus times=0", "core: unknown or invalid \"times=0\""},
        {"allow failure", "allow: unknown or invalid \"failure\""},
        {"count all", "count: unknown or invalid \"all\""},
        {"start now", "usage: start"},
        {"send X", "usage: send CALLER SELECTOR [KEY=VALUE]..."},
        {"send X Y item=first", "send: \"first\" is not a number, null, unknown or stale"},
        {"send X Y colour=red", "send: unknown word \"colour=red\""},
        {"remember everything", "cannot remember \"everything\""},
        {"expect unchanged everything", "\"everything\" is never remembered"},
        {"expect unique menus", "unknown word \"menus\""},
        {"expect answer x", "\"x\" is not a status or \"failure\""},
        {"expect core GetMenus x", "expect core: unknown or invalid \"x\""},
    };
    for (const auto& [lines, message] : wrong) {
        const size_t number = lines.find('\n') == std::string::npos ? 2 : 3;
        Fail(kWrongUse, "line " + std::to_string(number) + ": " + message, lines);
    }
}

TEST_F(SimulationWords, AnUnknownActionOfDuringIsNamed)
{
    EXPECT_EQ(kWrongUse, Play("during NeverCalled opn a.ai"));
    EXPECT_THAT(errors, testing::StartsWith("headless-host: session: line 2: during NeverCalled: "
                                            "unknown action \"opn\"; use one of open, new, "));
}

TEST_F(SimulationWords, AnInvalidLineEndsTheScript)
{
    Fail(kWrongUse, "line 2: usage: new", "new x\nexpect documents 7");
}

TEST_F(SimulationWords, ALineThatIsNotPossibleAtPresentIsLeftOut)
{
    Pass("vanish a.ai\nclose\nsave\ncurrent 2\nmenu Nothing\nexpect documents 0");
}

TEST_F(SimulationWords, TheyNeedASimulation)
{
    std::ofstream(folder + "/plain") << "active A\n";
    EXPECT_EQ(kWrongUse, RunProgram("script plain", "meets-faults"));
    EXPECT_EQ(
        "headless-host: plain:1: active: only in a file that begins with the line \"simulate\"\n",
        errors);
}

TEST_F(SimulationWords, AnExpectationThatIsNotMetIsReported)
{
    const std::vector<std::pair<std::string, std::string>> unmet = {
        {"send Test X\nexpect answer 5", "line 3: expected answer 5, found 0"},
        {"send Test X\nexpect answer failure", "line 3: expected answer failure, found 0"},
        {"start\nexpect alert Hello",
         "line 3: expected an alert with \"Hello\", found 0 alerts without it"},
        {"start\nexpect refused", "line 3: expected a refusal to start, found none"},
        {"send Test Core\nexpect core GetSocketPort 2",
         "line 3: expected 2 calls of GetSocketPort, found 1"},
        {"start\nexpect port 4711", "line 3: expected port 4711, found none"},
        {"remember leaks\nnew\nexpect unchanged registrations",
         "line 4: expected unchanged registrations, found 0 0 0 0 0"},
    };
    for (const auto& [lines, message] : unmet) Fail(kNotAsExpected, message, lines);
}
