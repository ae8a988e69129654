#include <fstream>

#include "SimulationFixture.h"
#include "application/ExitStatus.h"

// The plug-in meets-faults answers with what it met, see there.
class SimulationFaults : public SimulationFixture {};

namespace {

// The answers of meets-faults to the exception types.
const std::pair<const char*, const char*> kThrown[] = {{"ai::Error", "1001"},
                                                       {"ATE::Exception", "1002"},
                                                       {"int", "1003"},
                                                       {"std::exception", "1004"},
                                                       {"foreign", "1005"}};

std::string Send(const std::string& what, const std::string& answer)
{
    return "send Test " + what + "\nexpect answer " + answer + "\n";
}

}  // namespace

TEST_F(SimulationFaults, ACallOfASuiteFailsOnce)
{
    Pass("new\nfail-call 2 -77\n" + Send("Suite", "0") + Send("Suite", "-77") + Send("Suite", "0"));
    for (const auto& [type, answer] : kThrown) {
        Pass("new\nfail-call 1 throw:" + std::string(type) + "\n" + Send("Suite", answer) +
             Send("Suite", "0"));
    }
}

TEST_F(SimulationFaults, ACallOfPluginCoreFailsOnce)
{
    Pass("fail-core 2 83886080\n" + Send("Core", "4711") + Send("Core", "83886080") +
         Send("Core", "4711") + "expect core GetSocketPort 3");
    for (const auto& [type, answer] : kThrown) {
        Pass("fail-core 1 throw:" + std::string(type) + "\n" + Send("Core", answer) +
             Send("Core", "4711"));
        Pass("core GetSocketPort times=1 throw=" + std::string(type) + "\n" + Send("Core", answer) +
             Send("Core", "4711"));
    }
}

TEST_F(SimulationFaults, AnAllocationFailsOnce)
{
    Pass("start\nfail-allocation 2\n" + Send("Allocation", "0") + Send("Allocation", "1006") +
         Send("Allocation", "0"));
}

// The first call of the plug-in acquires its suite, the last one releases it.
TEST_F(SimulationFaults, AcquireSuiteAndReleaseSuiteCount)
{
    Pass("fail-call 1 7\nstart\nexpect refused");
    Fail(headless::kPluginBrokeRule,
         "rule 403: Unload: suite \"AI Document Suite\" version 1017 was not released, references "
         "left: 1",
         "start\nfail-call 1 7\nsend 'SP Interface' Shutdown\nexpect answer 7");
}

TEST_F(SimulationFaults, FaultsArriveOutsideOfASimulationToo)
{
    std::ofstream(folder + "/plain") << "new\nfail-call 1 throw:int\n" + Send("Suite", "1003") +
                                            "fail-allocation 1\n" + Send("Allocation", "1006") +
                                            "clock +60\n" + Send("Clock", "60");
    EXPECT_EQ(0, RunProgram("script plain", "meets-faults")) << errors;
}

TEST_F(SimulationFaults, TheClockMovesByTheSumOfTheLines)
{
    Pass("clock +3600\nclock -600\n" + Send("Clock", "3000") + "clock -3600\n" +
         Send("Clock", "-600"));
}

// In a simulation it doesn't see the font managers of this machine.
TEST_F(SimulationFaults, ProcessesAreHiddenInASimulationOnly)
{
    Pass(Send("Processes", "1007") + Send("Folder", "0"));
    std::ofstream(folder + "/plain") << Send("Processes", "0") + Send("Folder", "0") +
                                            Send("Clock", "0") + Send("Allocation", "0");
    EXPECT_EQ(0, RunProgram("script plain", "meets-faults")) << errors;
}

TEST_F(SimulationFaults, WhatPluginCoreLacksIsNotThere)
{
    Pass("lack-function GetSocketPort\n" + Send("Core", "1007"));
    Pass("lack-core\n" + Send("Core", "1007"));
}

TEST_F(SimulationFaults, ASuiteThatIsMissingOrOfAnotherVersionIsNotAcquired)
{
    Pass("lack-suite 'AI Document Suite'\nexpect refused");
    Pass("suite-version 'AI Document Suite' 1018\nexpect refused");
    Pass("suite-version 'AI Document Suite' 1017\nstart");
}

TEST_F(SimulationFaults, PluginCoreAnswersAsIsOrdered)
{
    Pass("core GetSocketPort number=5\n" + Send("Core", "5") + "core GetSocketPort status=9\n" +
         Send("Core", "9") + "core GetSocketPort\n" + Send("Core", "4711"));
}
