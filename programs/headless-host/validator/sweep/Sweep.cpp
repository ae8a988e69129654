#include "validator/sweep/Sweep.h"

#include "model/CallFaults.h"
#include "validator/sweep/KnownResidue.h"

namespace headless {

namespace {

// The codes that the host returns: bad parameter, out of memory, no such suite, takes too long.
constexpr int kHostCodes[] = {0x5041524D, 0x214D454D, 0x53214664, 0x54494D45};

// The codes of PluginCore, see PluginCoreFunctions.h.
constexpr int kCoreCodes[] = {0x01000000, 0x04000000, 0x05000000, 0x07000000, 0x09000000,
                              0x0C000000, 0x0D000000, 0x0E000000, 0x11000000, 0x15000000};

constexpr char kFaultLine[] = "fault\n";

// What is there in each scenario.
constexpr char kWorld[] =
    "allow refusal\n"
    "document a.ai fonts=A-Regular,B-Bold frames=2 runs=3 placed=placed.eps\n"
    "document b.eps fonts=C-Italic\n"
    "document placed.eps\n"
    "document t.ait fonts=A-Regular\n"
    "active A-Regular\n";

// Messages that are handled after a failure as before it. The answer to a tick is always 0, unless
// the plug-in takes itself to be in the middle of a message.
constexpr char kAfter[] =
    "send \"AI Timer\" \"AI Go\"\n"
    "expect answer 0\n"
    "open b.eps\n"
    "show menu\n"
    "close\n";

struct Act {
    const char* name;
    const char* before;
    const char* act;
    bool isForTypeloftOnly;
    bool isLast = false;  // nothing can follow
};

constexpr Act kActs[] = {
    {"startup", "", "start\n", false},
    {"open", "start\n", "open a.ai\n", false},
    {"open-unreadable", "document c.ai unreadable\n", "open c.ai\n", false},
    {"new-and-text", "start\n", "new\ntext C-Italic words\n", false},
    {"place", "open a.ai\n", "place placed.eps\n", false},
    {"save", "open a.ai\nchange\n", "save\n", false},
    {"save-as", "new\ntext A-Regular words\n", "save n.ai\n", false},
    {"close", "open a.ai\n", "close\n", false},
    {"close-changed", "open a.ai\nchange\nsave\nchange\n", "close\n", false},
    {"close-in-background", "open a.ai\nopen b.eps\n", "close a.ai\n", false},
    {"template", "open t.ait\n", "text C-Italic words\nclose\n", false},
    {"fonts-changed", "open a.ai\n", "active A-Regular B-Bold\nfonts-changed\n", false},
    {"menus", "open a.ai\n", "show menu\n", false},
    {"about", "open a.ai\n", "about\n", false},
    {"ticks", "open a.ai\n", "tick 3\n", false},
    // After a release of the suites that stopped half way, the plug-in can't start again in the
    // same process.
    {"shutdown", "open a.ai\nopen b.eps\n", "", false, true},
    {"second-start", "open a.ai\nrestart\n", "open b.eps\n", false},
    {"activate",
     "core HandleOpenExistingDocument text='[{\"PostScriptName\":\"B-Bold\"}]'\n"
     "during ActivateChosenFonts active A-Regular B-Bold\n",
     "open a.ai\n", true},
    {"menu-command", "open a.ai\nshow menu\n", "menu \"Activate Fonts\"\n", true},
    {"library-command", "open a.ai\nshow menu\n", "menu \"Select Library/Two\"\n", true},
    {"rebuild", "show menu\ncore IdleEvent rebuild times=1\n", "tick\n", true},
    {"port", "tick\n", "ask-port\ntick\n", true},
};

void AddCases(std::vector<ValidatorCase>& cases, const Scenario& scenario, SweepRule rule,
              const std::string& word, size_t count, const std::vector<std::string>& kinds)
{
    const size_t at = scenario.script.find(kFaultLine);
    for (size_t number = 1; number <= count; ++number) {
        for (const std::string& kind : kinds) {
            std::string line = word + " " + std::to_string(number);
            if (!kind.empty()) line += " " + kind;
            ValidatorCase each;
            each.rule = rule;
            each.name = scenario.name + ": " + line;
            each.script = scenario.script;
            each.script.replace(at, sizeof kFaultLine - 1, line + "\n");
            cases.push_back(std::move(each));
        }
    }
}

template <class Codes>
std::vector<std::string> ListKinds(const Codes& codes)
{
    std::vector<std::string> kinds;
    for (const int code : codes) kinds.push_back(std::to_string(code));
    return kinds;
}

std::vector<std::string> ListExceptions()
{
    std::vector<std::string> kinds;
    for (const char* const type : kFaultExceptions) kinds.push_back(std::string("throw:") + type);
    return kinds;
}

}  // namespace

std::vector<Scenario> ListScenarios(bool isTypeloft)
{
    std::vector<Scenario> scenarios;
    for (const Act& act : kActs) {
        if (act.isForTypeloftOnly && !isTypeloft) continue;
        scenarios.push_back({act.name, std::string(kWorld) + act.before + kFaultLine + act.act +
                                           (act.isLast ? "" : kAfter)});
    }
    return scenarios;
}

ValidatorCase MakeProbe(const Scenario& scenario)
{
    ValidatorCase probe;
    probe.rule = kSuiteCallFails;
    probe.name = scenario.name;
    probe.script = scenario.script;
    const size_t after = probe.script.find(kAfter);
    if (after != std::string::npos) probe.script.insert(after, "count end\n");
    probe.script.replace(probe.script.find(kFaultLine), sizeof kFaultLine - 1, "count\n");
    return probe;
}

std::vector<ValidatorCase> MakeSweepCases(const Scenario& scenario, SweepRule rule,
                                          const CallCounts& counts)
{
    std::vector<ValidatorCase> cases;
    switch (rule) {
        case kSuiteCallFails:
            AddCases(cases, scenario, rule, "fail-call", counts.suiteCalls, ListKinds(kHostCodes));
            break;
        case kSuiteCallThrows:
            AddCases(cases, scenario, rule, "fail-call", counts.suiteCalls, ListExceptions());
            break;
        case kCoreCallFails: {
            std::vector<std::string> kinds = ListKinds(kCoreCodes);
            for (std::string& kind : ListExceptions()) kinds.push_back(std::move(kind));
            AddCases(cases, scenario, rule, "fail-core", counts.coreCalls, kinds);
            break;
        }
        case kAllocationFails:
            AddCases(cases, scenario, rule, "fail-allocation", counts.allocations, {""});
            break;
    }
    return cases;
}

void LeaveOutKnown(CaseOutcome& outcome)
{
    std::vector<Finding> left;
    for (Finding& finding : outcome.findings) {
        if (!IsKnownResidue(finding, outcome.failedCalls)) left.push_back(std::move(finding));
    }
    outcome.findings = std::move(left);
    if (outcome.findings.empty() && outcome.result == CaseResult::kFailed) {
        outcome.result = CaseResult::kPassed;
    }
}

}  // namespace headless
