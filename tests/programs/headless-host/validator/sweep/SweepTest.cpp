#include "validator/sweep/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "model/CallFaults.h"
#include "session/SessionWords.h"

using namespace headless;

namespace {

const Scenario kSmall = {"small", "start\nfault\ntick\n"};

size_t CountOf(const std::string& text, const std::string& part)
{
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

CaseOutcome MakeOutcome(int rule, const std::string& message, const std::string& failedCall)
{
    CaseOutcome outcome;
    outcome.result = CaseResult::kFailed;
    outcome.findings = {{rule, message}};
    if (!failedCall.empty()) outcome.failedCalls = {failedCall};
    LeaveOutKnown(outcome);
    return outcome;
}

}  // namespace

TEST(SweepTest, EveryScenarioHasOnePlaceForAFaultAndANameOfItsOwn)
{
    std::set<std::string> names;
    const std::vector<Scenario> all = ListScenarios(true);
    for (const Scenario& scenario : all) {
        EXPECT_TRUE(names.insert(scenario.name).second) << scenario.name;
        EXPECT_EQ(1U, CountOf(scenario.script, "\nfault\n")) << scenario.name;
    }
    const std::vector<Scenario> some = ListScenarios(false);
    EXPECT_LT(some.size(), all.size());
    for (const Scenario& scenario : some) EXPECT_EQ(1U, names.count(scenario.name));
    EXPECT_EQ(1U, names.count("activate"));
    EXPECT_TRUE(std::none_of(some.begin(), some.end(),
                             [](const Scenario& each) { return each.name == "activate"; }));
}

TEST(SweepTest, AProbeCountsFromThePlaceOfTheFaultToTheMessagesAfterIt)
{
    for (const Scenario& scenario : ListScenarios(true)) {
        if (scenario.name == "shutdown") continue;  // nothing follows it
        const ValidatorCase probe = MakeProbe(scenario);
        EXPECT_EQ(scenario.name, probe.name);
        EXPECT_EQ(0U, CountOf(probe.script, "fault\n")) << probe.script;
        const size_t from = probe.script.find("\ncount\n");
        const size_t to = probe.script.find("\ncount end\n");
        ASSERT_NE(std::string::npos, from) << probe.script;
        ASSERT_NE(std::string::npos, to) << probe.script;
        EXPECT_LT(from, to);
        EXPECT_GT(probe.script.find("\nexpect answer 0\n"), to);
        std::string without = probe.script;
        without.erase(to + 1, sizeof "count end\n" - 1);
        without.replace(from + 1, sizeof "count\n" - 1, "fault\n");
        EXPECT_EQ(scenario.script, without);
    }
}

TEST(SweepTest, EachCountedCallFailsInEachWay)
{
    CallCounts counts;
    counts.suiteCalls = 3;
    counts.coreCalls = 2;
    counts.allocations = 5;
    EXPECT_EQ(3U * 4, MakeSweepCases(kSmall, kSuiteCallFails, counts).size());
    EXPECT_EQ(3U * 5, MakeSweepCases(kSmall, kSuiteCallThrows, counts).size());
    EXPECT_EQ(2U * 15, MakeSweepCases(kSmall, kCoreCallFails, counts).size());
    EXPECT_EQ(5U, MakeSweepCases(kSmall, kAllocationFails, counts).size());
    EXPECT_TRUE(MakeSweepCases(kSmall, kAllocationFails, {}).empty());
}

TEST(SweepTest, ACaseIsNamedAfterItsFault)
{
    CallCounts counts;
    counts.suiteCalls = 2;
    counts.allocations = 1;
    const ValidatorCase last = MakeSweepCases(kSmall, kSuiteCallThrows, counts).back();
    EXPECT_EQ(1502, last.rule);
    EXPECT_EQ("small: fail-call 2 throw:foreign", last.name);
    EXPECT_EQ("start\nfail-call 2 throw:foreign\ntick\n", last.script);
    const ValidatorCase first = MakeSweepCases(kSmall, kSuiteCallFails, counts).front();
    EXPECT_EQ("small: fail-call 1 1346458189", first.name);
    const ValidatorCase allocation = MakeSweepCases(kSmall, kAllocationFails, counts).front();
    EXPECT_EQ(1504, allocation.rule);
    EXPECT_EQ("small: fail-allocation 1", allocation.name);
    EXPECT_EQ("start\nfail-allocation 1\ntick\n", allocation.script);
}

TEST(SweepTest, EveryCaseHasAFaultThatCanBeReadAndAnUniqueName)
{
    CallCounts counts;
    counts.suiteCalls = counts.coreCalls = 2;
    for (const SweepRule rule : {kSuiteCallFails, kSuiteCallThrows, kCoreCallFails}) {
        std::set<std::string> names;
        for (const ValidatorCase& each : MakeSweepCases(kSmall, rule, counts)) {
            EXPECT_TRUE(names.insert(each.name).second) << each.name;
            Fault fault;
            EXPECT_TRUE(ReadFault(SplitSessionLine(each.name).words.back(), fault)) << each.name;
        }
    }
}

TEST(SweepTest, WhatIsKnownIsLeftOutIfItsCallHasFailed)
{
    const CaseOutcome outcome =
        MakeOutcome(505, "Unload: block#4 was not given back", "FreeBlock 1346458189");
    EXPECT_EQ(CaseResult::kPassed, outcome.result);
    EXPECT_TRUE(outcome.findings.empty());
}

TEST(SweepTest, NothingIsLeftOutIfAnotherCallOrNoneHasFailed)
{
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(505, "Unload: memory handle#1", "").result);
    EXPECT_EQ(CaseResult::kPassed, MakeOutcome(505, "Unload: memory handle#1", "Any 1").result);
    for (const char* const call : {"", "GetMenus 1", "DisposeFilePath 1"}) {
        const CaseOutcome outcome = MakeOutcome(505, "Unload: block#4 was not given back", call);
        EXPECT_EQ(CaseResult::kFailed, outcome.result) << call;
        EXPECT_EQ(1U, outcome.findings.size()) << call;
    }
}

TEST(SweepTest, AnotherRuleOrAnotherTextIsNotLeftOut)
{
    EXPECT_EQ(CaseResult::kFailed,
              MakeOutcome(301, "Unload: block#4 was not given back", "FreeBlock 1").result);
    EXPECT_EQ(CaseResult::kFailed,
              MakeOutcome(505, "Unload: text range#4 was not given back", "FreeBlock 1").result);
    EXPECT_EQ(CaseResult::kPassed,
              MakeOutcome(403, "Unload", "TerminatePluginCoreInterface throw:int").result);
    const std::string timers = "Unload: suite \"AI Timer Suite\" version 1005 was not released";
    EXPECT_EQ(CaseResult::kPassed, MakeOutcome(403, timers, "SetTimerActive throw:int").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(403, timers, "SetTimerActive 5").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(403, timers, "FreeBlock throw:int").result);
    EXPECT_EQ(CaseResult::kFailed,
              MakeOutcome(403, "Unload", "TerminatePluginCoreInterface 5").result);
}

TEST(SweepTest, AShutdownThatAnExceptionEndsKeepsTheGlobals)
{
    const std::string refusal = "Unload: the plug-in refuses to be unloaded after its shutdown";
    const std::string release = "ReleaseSuite ATE ArrayParagraphJustification Suite throw:int";
    EXPECT_EQ(CaseResult::kPassed, MakeOutcome(104, refusal, release).result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(104, refusal, "").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(104, refusal, "GetMenus throw:int").result);
    const std::string leak = "lost memory: 32 byte(s) in 1 object(s) of AllocateGlobals(...)";
    EXPECT_EQ(CaseResult::kPassed, MakeOutcome(609, leak, "GetSettings throw:int").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(609, leak, "").result);
    EXPECT_EQ(CaseResult::kFailed,
              MakeOutcome(609, "lost memory: 32 byte(s)", "GetSettings throw:int").result);
}

// Without its notifiers, which a failed startup doesn't add, the plug-in is shut down once only.
TEST(SweepTest, AnExceptionOfAnyTypeOutOfPluginCoreEndsTheOnlyShutdown)
{
    const std::string refusal = "Unload: the plug-in refuses to be unloaded after its shutdown";
    for (const char* call : {"GetAPIVersion", "GetSettings", "TerminatePluginCoreInterface"}) {
        for (const char* type : {"int", "std::exception", "ATE::Exception"}) {
            const std::string failed = std::string(call) + " throw:" + type;
            for (const auto& [rule, message] : std::vector<std::pair<int, std::string>>{
                     {104, refusal},
                     {403, "Unload: suite \"AI User Suite\" version 1017 was not released"},
                     {505, "Unload: block#2 was not given back"}}) {
                EXPECT_EQ(CaseResult::kPassed, MakeOutcome(rule, message, failed).result)
                    << rule << " " << failed;
            }
        }
        EXPECT_EQ(CaseResult::kFailed,
                  MakeOutcome(104, refusal, std::string(call) + " 117440512").result);
    }
}

TEST(SweepTest, OnlyTheReleaseOfTheMenuSuiteMayEndTheProcessByAnException)
{
    const std::string end =
        "crashed: SIGABRT (Aborted): terminate called after throwing an instance of 'int'";
    const std::string menus = "ReleaseSuite AI Menu Suite throw:int";
    EXPECT_EQ(CaseResult::kPassed, MakeOutcome(302, end, menus).result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(302, end, "").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(302, end, "ReleaseSuite AI Menu Suite 5").result);
    EXPECT_EQ(CaseResult::kFailed,
              MakeOutcome(302, end, "ReleaseSuite AI Timer Suite throw:int").result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(302, "crashed: SIGSEGV (...)", menus).result);
    EXPECT_EQ(CaseResult::kFailed, MakeOutcome(302, "crashed: SIGABRT (Aborted)", menus).result);
}

TEST(SweepTest, OtherFindingsOfTheSameCaseRemain)
{
    CaseOutcome outcome;
    outcome.result = CaseResult::kFailed;
    outcome.findings = {{505, "Unload: block#4 was not given back"}, {301, "an exception"}};
    outcome.failedCalls = {"FreeBlock 1"};
    LeaveOutKnown(outcome);
    EXPECT_EQ(CaseResult::kFailed, outcome.result);
    ASSERT_EQ(1U, outcome.findings.size());
    EXPECT_EQ("an exception", outcome.findings[0].message);
    CaseOutcome skipped;
    skipped.result = CaseResult::kSkipped;
    LeaveOutKnown(skipped);
    EXPECT_EQ(CaseResult::kSkipped, skipped.result);
}
