#include <utility>

#include "validator/TypeloftCaseFamilies.h"
#include "validator/typeloft/CaseWriter.h"

namespace headless {

namespace {

void AddTicksWithoutBus(std::vector<ValidatorCase>& cases)
{
    AddCase(
        cases, 1301, "ten-ticks",
        {"lack-bus", "tick 10", ExpectCore("IdleEvent", 10), ExpectCore("ProcessPanelMessages", 10),
         ExpectCore("RegisterPlugPlug", 0), ExpectCore("GetSocketPort", 0)});
    AddCase(cases, 1301, "with-documents",
            {"lack-bus", "document a.ai fonts=Missing-One", "open a.ai", "tick", "change", "tick",
             "close", "tick", ExpectCore("IdleEvent", 3), ExpectCore("GetSocketPort", 0)});
}

void AddAnswers(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1302, "first-tick",
            {"start", ExpectCore("RegisterPlugPlug", 0), ExpectCore("GetSocketPort", 0), "tick",
             ExpectCore("RegisterPlugPlug", 1), ExpectCore("GetSocketPort", 1)});
    AddCase(cases, 1302, "later-ticks",
            {"tick 100", ExpectCore("RegisterPlugPlug", 1), ExpectCore("GetSocketPort", 1),
             ExpectCore("IdleEvent", 100)});

    AddCase(cases, 1303, "one-request",
            {"tick", "ask-port", "expect port 4711", ExpectCore("GetSocketPort", 2)});
    AddCase(cases, 1303, "asked-again",
            {"tick", "ask-port", "ask-port", "ask-port", "expect port 4711",
             ExpectCore("GetSocketPort", 4)});
    AddCase(cases, 1303, "port-changes",
            {"tick", "ask-port", "expect port 4711", "core GetSocketPort number=4712", "ask-port",
             "expect port 4712"});
    AddCase(cases, 1303, "asked-before-the-first-tick",
            {"start", "ask-port", "expect port none", "tick", ExpectCore("GetSocketPort", 1)});

    for (const CoreStatus& status : kCoreStatuses) {
        const std::string fails = MakeStatusLine("GetSocketPort", status.value);
        AddCase(cases, 1304, status.name,
                {"tick", fails, "ask-port", "expect port none", "core GetSocketPort", "ask-port",
                 "expect port 4711"});
        AddCase(cases, 1304, std::string("at-the-first-tick-") + status.name,
                {fails, "tick 3", ExpectCore("GetSocketPort", 1), ExpectCore("IdleEvent", 3),
                 "core GetSocketPort", "ask-port", "expect port 4711"});
    }

    // A number is sent without its sign: the panel reads 32 bits.
    const std::vector<std::pair<std::string, std::string>> ports = {{"0", "0"},
                                                                    {"1", "1"},
                                                                    {"65535", "65535"},
                                                                    {"65536", "65536"},
                                                                    {"-1", "4294967295"},
                                                                    {"2147483647", "2147483647"},
                                                                    {"-2147483648", "2147483648"}};
    for (const auto& [number, sent] : ports) {
        AddCase(cases, 1305, number,
                {"core GetSocketPort number=" + number, "tick", "ask-port", "expect port " + sent});
    }
}

void AddOddMoments(std::vector<ValidatorCase>& cases)
{
    for (const std::string& type : kExceptionTypes) {
        AddCase(cases, 1306, "for-a-request-" + type,
                {"tick", "core GetSocketPort throw=" + type, "ask-port", "expect port none",
                 "core GetSocketPort", "ask-port", "expect port 4711"});
        AddCase(cases, 1306, "at-the-first-tick-" + type,
                {"core GetSocketPort throw=" + type + " times=1", "tick", "expect answer 0", "tick",
                 ExpectCore("IdleEvent", 1), "ask-port", "expect port 4711"});
        AddCase(cases, 1308, "throws-" + type,
                {"core RegisterPlugPlug throw=" + type + " times=1", "tick", "expect answer 0",
                 "tick 2", ExpectCore("RegisterPlugPlug", 2), ExpectCore("IdleEvent", 2),
                 "ask-port", "expect port 4711"});
    }
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1308, status.name,
                {MakeStatusLine("RegisterPlugPlug", status.value), "tick 2",
                 ExpectCore("RegisterPlugPlug", 1), "ask-port", "expect port 4711"});
    }
    for (const CoreCall& call : kCoreCalls) {
        AddCase(cases, 1307, std::string("during-") + call.function,
                Join(Join(MakeWorld(), {"tick"}),
                     Join(call.before, {"during " + std::string(call.function) + " ask-port",
                                        Fill(call.act, "a.ai"), "expect port 4711",
                                        ExpectCore("GetSocketPort", 2)})));
    }
    AddCase(cases, 1309, "after-the-shutdown",
            {"tick", "send \"SP Interface\" Shutdown", "ask-port", "expect port 4711"});
    AddCase(cases, 1309, "in-the-second-life",
            {"tick", "restart", "ask-port", "tick 2", ExpectCore("IdleEvent", 3)});
}

}  // namespace

void AddPanelPortCases(std::vector<ValidatorCase>& cases)
{
    std::vector<ValidatorCase> made;
    AddTicksWithoutBus(made);
    AddAnswers(made);
    AddOddMoments(made);
    AppendByRule(cases, std::move(made));
}

}  // namespace headless
