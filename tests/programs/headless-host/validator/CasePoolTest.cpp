#include "validator/CasePool.h"

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <thread>

#include "ScratchFolder.h"
#include "checks/BrokenRule.h"
#include "system/Interrupts.h"
#include "system/ShadowMemory.h"
#include "validator/process/CaseEnd.h"

using namespace headless;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

using Body = std::function<CaseOutcome(const ValidatorCase&, const std::string&)>;
using Outcomes = std::map<std::string, CaseOutcome>;

// The scratch folders of the pool are below a folder of the test's own.
class CasePool : public testing::Test {
protected:
    CasePool() { EXPECT_EQ(0, setenv("TMPDIR", scratch.Path().c_str(), 1)); }
    ~CasePool() override { EXPECT_EQ(0, setenv("TMPDIR", before.c_str(), 1)); }

    // Runs cases with the names "0", "1" and so on.
    Outcomes Run(size_t count, const Body& body)
    {
        size_t made = 0;
        Outcomes outcomes;
        RunCases(
            limits,
            [&]() -> std::optional<ValidatorCase> {
                if (made == count) return std::nullopt;
                ValidatorCase next;
                next.name = std::to_string(made++);
                return next;
            },
            body,
            [&](const ValidatorCase& which, const CaseOutcome& outcome) {
                outcomes[which.name] = outcome;
                return true;
            });
        return outcomes;
    }

    CaseOutcome RunOne(const std::function<void(const std::string& folder)>& act)
    {
        return Run(1,
                   [&act](const ValidatorCase&, const std::string& folder) {
                       act(folder);
                       return CaseOutcome();
                   })
            .at("0");
    }

    // Expects that the act breaks one rule, and returns the message.
    std::string ExpectRule(BrokenRule rule, const std::function<void(const std::string&)>& act)
    {
        const CaseOutcome outcome = RunOne(act);
        EXPECT_EQ(CaseResult::kFailed, outcome.result);
        if (outcome.findings.size() != 1) {
            ADD_FAILURE() << outcome.findings.size() << " findings";
            return {};
        }
        EXPECT_EQ(rule, outcome.findings[0].rule) << outcome.findings[0].message;
        return outcome.findings[0].message;
    }

    // Whether the process whose id is in the file exists.
    bool IsAlive(const std::string& file) const
    {
        pid_t process = 0;
        std::ifstream(file) >> process;
        EXPECT_LT(0, process);
        return kill(process, 0) == 0;
    }

    // A process that runs for a minute, with its id in the file.
    static void LeaveProcess(const std::string& file, bool leavesGroup)
    {
        if (fork() != 0) return;
        if (leavesGroup) (void)setsid();
        std::ofstream(file + ".new") << getpid();
        fs::rename(file + ".new", file);
        (void)sleep(60);
        _exit(0);
    }

    static void WaitForFile(const std::string& path)
    {
        while (!fs::exists(path)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    const std::string before = fs::temp_directory_path().string();
    const ScratchFolder scratch;
    const ScratchFolder notes;  // that remain after the cases
    CaseLimits limits;
};

void UseMuchMemory(size_t bytes)
{
    std::vector<std::string> blocks;
    for (size_t used = 0; used < bytes; used += size_t{16} << 20) {
        blocks.emplace_back(size_t{16} << 20, 'x');
    }
}

}  // namespace

TEST_F(CasePool, ReturnsWhatTheBodyReturns)
{
    limits.jobs = 3;
    const Outcomes outcomes = Run(20, [](const ValidatorCase& which, const std::string&) {
        CaseOutcome outcome;
        outcome.result = which.name == "7" ? CaseResult::kFailed : CaseResult::kSkipped;
        outcome.findings = {{401, "one\ntwo \xff"}, {101, ""}};
        outcome.reason = which.name;
        outcome.journal = {"a", "b"};
        outcome.counts = {1, 2, 3};
        return outcome;
    });
    ASSERT_EQ(20U, outcomes.size());
    EXPECT_EQ(CaseResult::kSkipped, outcomes.at("19").result);
    EXPECT_EQ("19", outcomes.at("19").reason);
    const CaseOutcome& outcome = outcomes.at("7");
    EXPECT_EQ(CaseResult::kFailed, outcome.result);
    ASSERT_EQ(2U, outcome.findings.size());
    EXPECT_EQ(401, outcome.findings[0].rule);
    EXPECT_EQ("one\ntwo \xef\xbf\xbd", outcome.findings[0].message);
    EXPECT_THAT(outcome.journal, ElementsAre("a", "b"));
    EXPECT_EQ(1U, outcome.counts.suiteCalls);
    EXPECT_EQ(2U, outcome.counts.coreCalls);
    EXPECT_EQ(3U, outcome.counts.allocations);
}

TEST_F(CasePool, ReturnsALongOutcome)
{
    const Outcomes outcomes = Run(1, [](const ValidatorCase&, const std::string&) {
        CaseOutcome outcome;
        outcome.journal = {std::string(3000000, 'j')};
        return outcome;
    });
    ASSERT_EQ(1U, outcomes.at("0").journal.size());
    EXPECT_EQ(3000000U, outcomes.at("0").journal[0].size());
}

TEST_F(CasePool, ACrashIsAFindingWithItsSignal)
{
    EXPECT_THAT(ExpectRule(kCrash,
                           [](const std::string&) {
                               (void)std::signal(SIGSEGV, SIG_DFL);  // a sanitizer's handler
                               (void)raise(SIGSEGV);
                           }),
                HasSubstr("SIGSEGV (Segmentation fault)"));
    EXPECT_THAT(ExpectRule(kCrash, [](const std::string&) { std::abort(); }), HasSubstr("SIGABRT"));
    EXPECT_THAT(ExpectRule(kCrash,
                           [](const std::string&) {
                               std::function<void()> fail = [] { throw std::runtime_error("why"); };
                               [&fail]() noexcept { fail(); }();
                           }),
                AllOf(HasSubstr("SIGABRT (Aborted): terminat"), HasSubstr("runtime_error")));
}

// In other builds there is no leak checker.
TEST_F(CasePool, LostMemoryIsAFindingUnderASanitizer)
{
    if (!kHasShadowMemory) GTEST_SKIP();
    const CaseOutcome outcome = RunOne([](const std::string&) {
        for (int i = 0; i < 3; ++i) {
            auto* volatile lost = new std::array<int, 10>();
            lost = nullptr;
            (void)lost;
        }
    });
    EXPECT_EQ(CaseResult::kFailed, outcome.result);
    ASSERT_EQ(1U, outcome.findings.size());
    EXPECT_EQ(kMemoryLost, outcome.findings[0].rule);
    EXPECT_THAT(outcome.findings[0].message, HasSubstr(" byte(s) in "));
    EXPECT_EQ(CaseResult::kPassed, RunOne([](const std::string&) {}).result);
}

TEST_F(CasePool, ALineTellsWhatAllocatedLostMemory)
{
    const std::string file = scratch.Path() + "/report";
    std::ofstream(file) << "==5==ERROR: LeakSanitizer: detected memory leaks\n\n"
                           "Direct leak of 24 byte(s) in 1 object(s) allocated from:\n"
                           "    #0 0x1 in operator new(unsigned long) new.cpp\n"
                           "    #1 0x2 in ReadMenus(char const*) Menus.cpp:5\n"
                           "    #2 0x3 in main main.cpp\n\n"
                           "SUMMARY: AddressSanitizer: 24 byte(s) leaked in 1 allocation(s).\n";
    EXPECT_EQ("lost memory: 24 byte(s) in 1 object(s) of ReadMenus(char const*) Menus.cpp:5",
              FindLostMemory(file));
    EXPECT_EQ("", FindSanitizerReport(file));
    std::ofstream(file) << "nothing\n";
    EXPECT_EQ("lost memory", FindLostMemory(file));
}

TEST_F(CasePool, OfACrashItIsKnownWhichCallsHadFailed)
{
    const CaseOutcome outcome = RunOne([](const std::string& folder) {
        fs::create_directory(folder + "/world");
        std::ofstream(folder + "/" + kFailedCallsFile) << "AddMenuItem 5\nRelease throw:int\n";
        std::abort();
    });
    EXPECT_EQ(CaseResult::kFailed, outcome.result);
    EXPECT_THAT(outcome.failedCalls, ElementsAre("AddMenuItem 5", "Release throw:int"));
}

TEST_F(CasePool, ACaseThatTakesTooLongIsEnded)
{
    limits.seconds = 0.2;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ("did not end within 0.2 s",
              ExpectRule(kTakesTooLong, [](const std::string&) { (void)sleep(60); }));
    EXPECT_GT(std::chrono::seconds(30), std::chrono::steady_clock::now() - start);
}

TEST_F(CasePool, TheTimeThatACaseWaitsForAProcessorIsNotItsOwn)
{
    cpu_set_t first;
    CPU_ZERO(&first);
    cpu_set_t all;
    ASSERT_EQ(0, sched_getaffinity(0, sizeof all, &all));
    for (int processor = 0; CPU_COUNT(&first) == 0; ++processor) {
        if (CPU_ISSET(processor, &all)) CPU_SET(processor, &first);
    }
    limits.seconds = 0.5;
    limits.jobs = 8;
    const Outcomes outcomes = Run(8, [&first](const ValidatorCase&, const std::string&) {
        EXPECT_EQ(0, sched_setaffinity(0, sizeof first, &first));
        timespec used = {};
        do {
            EXPECT_EQ(0, clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used));
        } while (used.tv_sec == 0 && used.tv_nsec < 150'000'000);
        return CaseOutcome();
    });
    for (const auto& [name, outcome] : outcomes) {
        EXPECT_EQ(CaseResult::kPassed, outcome.result) << name;
    }
}

TEST_F(CasePool, TheEndOfTheProcessIsAFinding)
{
    EXPECT_EQ("ended the process with status 3",
              ExpectRule(kEndsProcess, [](const std::string&) { _exit(3); }));
    EXPECT_EQ("ended the process with status 0",
              ExpectRule(kEndsProcess, [](const std::string&) { _exit(0); }));
}

TEST_F(CasePool, AnExceptionOfTheBodyIsAFinding)
{
    EXPECT_EQ("an exception: abc", ExpectRule(kExceptionLeavesPlugin, [](const std::string&) {
                  throw std::runtime_error("abc");
              }));
    EXPECT_EQ("an exception of an unknown type",
              ExpectRule(kExceptionLeavesPlugin, [](const std::string&) { throw 3; }));
}

TEST_F(CasePool, TheMemoryIsLimited)
{
    if (kHasShadowMemory) GTEST_SKIP() << "the limit is not enforced under this sanitizer";
    limits.bytes = size_t{256} << 20;
    EXPECT_EQ("needed more than 256 MiB of memory",
              ExpectRule(kNeedsTooMuchMemory,
                         [this](const std::string&) { UseMuchMemory(limits.bytes); }));
    // Where no exception may pass.
    EXPECT_EQ("needed more than 256 MiB of memory",
              ExpectRule(kNeedsTooMuchMemory, [this](const std::string&) {
                  [this]() noexcept { UseMuchMemory(limits.bytes); }();
              }));
}

TEST_F(CasePool, AKillOfTheSystemIsALackOfMemory)
{
    (void)ExpectRule(kNeedsTooMuchMemory, [](const std::string&) { (void)raise(SIGKILL); });
}

TEST_F(CasePool, NothingIsPrintedOrRead)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const CaseOutcome outcome = RunOne([](const std::string&) {
        std::cout << "to standard output" << std::endl;
        std::cerr << "to standard error" << std::endl;
        std::string line;
        if (std::getline(std::cin, line)) _exit(1);
    });
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_EQ(CaseResult::kPassed, outcome.result);
}

TEST_F(CasePool, TheReportOfASanitizerIsAFinding)
{
    const std::string message = "ERROR: AddressSanitizer: heap-use-after-free on address 0x1";
    const auto print = [&](int status) {
        return [&message, status](const std::string&) {
            std::cerr << "=====\n==12==" << message << "\nREAD of size 8" << std::endl;
            if (status >= 0) _exit(status);
        };
    };
    EXPECT_EQ(message, ExpectRule(kCrash, print(1)));
    EXPECT_EQ(message, ExpectRule(kCrash, print(-1)));
    EXPECT_EQ("a.cpp:1:2: runtime error: overflow", ExpectRule(kCrash, [](const std::string&) {
                  std::cerr << "a.cpp:1:2: runtime error: overflow" << std::endl;
              }));
}

TEST_F(CasePool, TheJournalOfACrashHasTheLastLinesOfItsFile)
{
    const CaseOutcome outcome = RunOne([](const std::string& folder) {
        std::ofstream journal(folder + "/journal");
        for (int line = 1; line <= 25; ++line) journal << "line " << line << "\n";
        journal << "half" << std::flush;
        (void)raise(SIGKILL);
    });
    ASSERT_EQ(10U, outcome.journal.size());
    EXPECT_EQ("line 17", outcome.journal.front());
    EXPECT_EQ("half", outcome.journal.back());
}

TEST_F(CasePool, EachCaseHasAnEmptyFolderThatIsDeleted)
{
    limits.jobs = 2;
    const Outcomes outcomes = Run(6, [](const ValidatorCase&, const std::string& folder) {
        CaseOutcome outcome;
        outcome.reason = fs::is_empty(folder) && fs::current_path() == folder ? "empty" : "not";
        fs::create_directories(folder + "/a/b");
        std::ofstream(folder + "/a/b/c") << "c";
        (void)chmod((folder + "/a").c_str(), 0500);
        if (fs::path(folder).filename() == "3") (void)raise(SIGKILL);
        return outcome;
    });
    EXPECT_EQ("empty", outcomes.at("0").reason);
    EXPECT_EQ("empty", outcomes.at("5").reason);
    EXPECT_TRUE(fs::is_empty(scratch.Path()));
}

TEST_F(CasePool, NoProcessStaysBehind)
{
    for (const bool leavesGroup : {false, true}) {
        const std::string file = notes.Path(leavesGroup ? "far" : "near");
        const CaseOutcome outcome = RunOne([&](const std::string&) {
            LeaveProcess(file, leavesGroup);
            WaitForFile(file);
        });
        EXPECT_EQ(CaseResult::kPassed, outcome.result);
        EXPECT_FALSE(IsAlive(file)) << file;
    }
}

TEST_F(CasePool, ACrashIsNoticedThoughAChildHoldsThePipe)
{
    const std::string file = notes.Path("child");
    const auto start = std::chrono::steady_clock::now();
    (void)ExpectRule(kEndsProcess, [&](const std::string&) {
        LeaveProcess(file, true);
        WaitForFile(file);
        _exit(4);
    });
    EXPECT_GT(std::chrono::seconds(8), std::chrono::steady_clock::now() - start);
    EXPECT_FALSE(IsAlive(file));
}

TEST_F(CasePool, StopsWhenTheCallerWantsNoMore)
{
    limits.jobs = 2;
    size_t made = 0;
    size_t ended = 0;
    const std::string file = notes.Path("sleeper");
    RunCases(
        limits,
        [&]() -> std::optional<ValidatorCase> {
            ValidatorCase next;
            next.name = made++ == 0 ? "sleeps" : "ends";
            return next;
        },
        [&](const ValidatorCase& which, const std::string&) {
            if (which.name == "sleeps") LeaveProcess(file, false);
            WaitForFile(file);
            while (which.name == "sleeps") (void)pause();
            return CaseOutcome();
        },
        [&](const ValidatorCase&, const CaseOutcome&) { return ++ended < 3; });
    EXPECT_EQ(3U, ended);
    EXPECT_FALSE(IsAlive(file));
    EXPECT_TRUE(fs::is_empty(scratch.Path()));
}

TEST_F(CasePool, AnInterruptLeavesNothingBehind)
{
    const std::string file = notes.Path("sleeper");
    const int status = [&] {
        const pid_t process = fork();
        if (process == 0) {
            CatchInterrupts();
            (void)Run(2, [&](const ValidatorCase&, const std::string&) {
                LeaveProcess(file, true);
                (void)sleep(60);
                return CaseOutcome();
            });
            _exit(IsInterrupted() ? 5 : 1);
        }
        WaitForFile(file);
        (void)kill(process, SIGTERM);
        int result = 0;
        (void)waitpid(process, &result, 0);
        return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    }();
    EXPECT_EQ(5, status);
    EXPECT_FALSE(IsAlive(file));
    EXPECT_TRUE(fs::is_empty(scratch.Path()));
}

TEST_F(CasePool, RunsSeveralCasesAtATime)
{
    limits.jobs = 2;
    // Each waits for the other one.
    const Outcomes outcomes = Run(2, [&](const ValidatorCase& which, const std::string&) {
        std::ofstream(notes.Path(which.name)) << "here";
        WaitForFile(notes.Path(which.name == "0" ? "1" : "0"));
        return CaseOutcome();
    });
    EXPECT_EQ(CaseResult::kPassed, outcomes.at("0").result);
    EXPECT_EQ(CaseResult::kPassed, outcomes.at("1").result);
}

TEST_F(CasePool, AFolderThatCannotBeMadeIsReported)
{
    EXPECT_EQ(0, setenv("TMPDIR", "/nowhere", 1));
    EXPECT_THROW((void)RunOne([](const std::string&) {}), std::runtime_error);
}
