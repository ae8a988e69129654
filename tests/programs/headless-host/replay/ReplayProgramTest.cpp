#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ProgramFixture.h"
#include "system/ShadowMemory.h"

using testing::HasSubstr;

// A journal of the test plug-in makes-calls, played by the program.
class ReplayProgram : public ProgramFixture {
protected:
    void SetUp() override
    {
        WriteFile("script", "simulate\ndocument a.eps fonts=Alpha\nopen a.eps\ntick 3\nclose\n");
        ASSERT_EQ(0, RunProgram("script script --journal '" + folder + "/journal'", "makes-calls"))
            << errors;
    }

    void WriteFile(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
    }

    // Runs `headless-host replay` with the plug-in; returns its exit status.
    int Replay(const std::string& plugin, const std::string& arguments = "journal")
    {
        const std::string command = "cd '" + folder + "' && '" HEADLESS_HOST_PROGRAM "' replay " +
                                    arguments + " --plugin '" TEST_PLUGINS_FOLDER "/" + plugin +
                                    ".aip' >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        output = ReadFile("out");
        errors = ReadFile("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::vector<nlohmann::json> ReadLines(const std::string& name) const
    {
        std::vector<nlohmann::json> lines;
        std::istringstream text(ReadFile(name));
        for (std::string line; std::getline(text, line);) {
            lines.push_back(nlohmann::json::parse(line));
        }
        return lines;
    }

    // The number of the line with the n-th call of an operation.
    size_t FindLine(const std::string& operation, int n = 1) const
    {
        const auto lines = ReadLines("journal");
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].at("op") == operation && --n == 0) return i + 1;
        }
        ADD_FAILURE() << operation;
        return 0;
    }
};

TEST_F(ReplayProgram, TheSamePluginMakesTheSameCalls)
{
    const size_t lines = ReadLines("journal").size();
    EXPECT_EQ(0, Replay("makes-calls")) << errors;
    EXPECT_EQ("journal: " + std::to_string(lines - 1) + " lines are equal\n", output)
        << "all but the header";
    EXPECT_EQ("", errors);
}

TEST_F(ReplayProgram, RawMessagesAreSentAgain)
{
    WriteFile("script",
              "simulate\nopen a.eps\nsend 'AI Timer' 'AI Go'\nsend Other Thing self=null\n"
              "send 'AI Notifier' 'AI Notify' notifier=1 type=null\n");
    ASSERT_EQ(0, RunProgram("script script --journal '" + folder + "/journal'", "makes-calls"))
        << errors;
    EXPECT_EQ(0, Replay("makes-calls")) << errors;
    EXPECT_EQ("", errors);
}

TEST_F(ReplayProgram, AnExtraCallIsFoundAtItsLine)
{
    const size_t line = FindLine("AI Document Suite, GetDocumentModified") + 1;
    EXPECT_EQ(1, Replay("makes-extra-call"));
    EXPECT_THAT(errors, HasSubstr("journal: line " + std::to_string(line) +
                                  ": not what was recorded (op)\n"));
    EXPECT_THAT(errors, HasSubstr("  > " + std::to_string(line) +
                                  "  suite | AcquireSuite | "
                                  "{\"name\":\"AI Timer Suite\",\"version\":1005} | 0\n    now:"));
    EXPECT_THAT(errors, HasSubstr("  > " + std::to_string(line) +
                                  "  suite | AI Document Suite, GetDocumentModified | {} | "
                                  "{\"modified\":false,\"status\":0}\n"));
}

TEST_F(ReplayProgram, AnotherArgumentIsFoundAtItsLine)
{
    const size_t line = FindLine("AI Timer Suite, AddTimer");
    EXPECT_EQ(1, Replay("makes-other-argument", "journal --json"));
    EXPECT_THAT(errors, HasSubstr("journal: line " + std::to_string(line) +
                                  ": not what was recorded (args/period)\n"));
    const auto report = nlohmann::json::parse(output);
    EXPECT_EQ(false, report.at("equal"));
    EXPECT_EQ(line, report.at("line"));
    EXPECT_EQ("args/period", report.at("where"));
    EXPECT_THAT(report.at("recorded").get<std::string>(), HasSubstr("\"period\":3"));
    EXPECT_THAT(report.at("now").get<std::string>(), HasSubstr("\"period\":4"));
}

// The recorded plug-in made a call that this one leaves out.
TEST_F(ReplayProgram, AMissingCallIsFoundAtItsLine)
{
    ASSERT_EQ(0,
              RunProgram("script script --journal '" + folder + "/journal'", "makes-extra-call"));
    const size_t line = FindLine("AI Document Suite, GetDocumentModified", 2);
    EXPECT_EQ(1, Replay("makes-calls"));
    EXPECT_THAT(errors, HasSubstr("journal: line " + std::to_string(line) + ":"));
}

TEST_F(ReplayProgram, UpdateWritesTheJournalOfTheChangedPlugin)
{
    EXPECT_EQ(0, Replay("makes-extra-call", "journal --update journal")) << errors;
    EXPECT_FALSE(std::filesystem::exists(folder + "/journal.new"));
    EXPECT_EQ(0, Replay("makes-extra-call")) << errors;
    EXPECT_EQ(1, Replay("makes-calls"));
}

TEST_F(ReplayProgram, UpdateReplacesFilesOnly)
{
    ASSERT_EQ(0, mkfifo((folder + "/pipe").c_str(), 0600));
    EXPECT_EQ(3, Replay("makes-calls", "journal --update pipe"));
    EXPECT_EQ("headless-host: " + folder + "/pipe: cannot be written: is not a file\n", errors);
    EXPECT_TRUE(std::filesystem::is_fifo(folder + "/pipe"));
    EXPECT_FALSE(std::filesystem::exists(folder + "/pipe.new"));
}

TEST_F(ReplayProgram, AReportThatCannotBeWrittenIsAnError)
{
    const std::string command = "'" HEADLESS_HOST_PROGRAM "' replay '" + folder +
                                "/journal' --plugin '" TEST_PLUGINS_FOLDER
                                "/makes-calls.aip' >/dev/full 2>/dev/null </dev/null";
    for (const char* const option : {"", " --json"}) {
        EXPECT_EQ(3, WEXITSTATUS(std::system((command + option).c_str()))) << option;
    }
}

TEST_F(ReplayProgram, AJournalCutOffIsPlayedUpToThere)
{
    const std::string whole = ReadFile("journal");
    const size_t lines = ReadLines("journal").size();
    WriteFile("journal", whole.substr(0, whole.size() - 10));
    EXPECT_EQ(0, Replay("makes-calls")) << errors;
    EXPECT_EQ("headless-host: journal: line " + std::to_string(lines) +
                  ": is cut off; played up to there\n",
              errors);
}

TEST_F(ReplayProgram, AJournalCutOffAnywhereEndsInOneLine)
{
    constexpr size_t kCuts = 40;
    const std::string whole = ReadFile("journal");
    const size_t header = whole.find('\n') + 1;
    for (size_t i = 0; i < kCuts; ++i) {
        const bool isBetweenLines = i % 2 == 0;  // perhaps within a message
        const size_t place = header + (whole.size() - header) * i / kCuts;
        const size_t start = whole.rfind('\n', place) + 1;
        const size_t size = isBetweenLines ? start : (start + whole.find('\n', start)) / 2;
        WriteFile("journal", whole.substr(0, size));
        const auto lines =
            std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size), '\n');
        EXPECT_EQ(0, Replay("makes-calls")) << size << errors;
        EXPECT_EQ("journal: " + std::to_string(lines - 1) + " lines are equal\n", output) << size;
        EXPECT_EQ(isBetweenLines ? ""
                                 : "headless-host: journal: line " + std::to_string(lines + 1) +
                                       ": is cut off; played up to there\n",
                  errors)
            << size;
    }
}

TEST_F(ReplayProgram, MemoryGrowsByLessThanTheJournal)
{
    if (headless::kHasShadowMemory) GTEST_SKIP() << "the sanitizer's memory is counted as well";
    const auto measure = [this](int turns) {
        std::string script = "simulate\ndocument a.eps fonts=Alpha\n";
        for (int i = 0; i < turns; ++i) script += "open a.eps\nchange\nclose\n";
        WriteFile("script", script + "tick 3\n");
        EXPECT_EQ(0, RunProgram("script script --journal '" + folder + "/journal'", "makes-calls"))
            << errors;
        EXPECT_EQ(0, Replay("makes-calls")) << errors;
        // Of all that this process waited for, the largest.
        rusage usage = {};
        EXPECT_EQ(0, getrusage(RUSAGE_CHILDREN, &usage));
        return usage.ru_maxrss << 10;
    };
    const long few = measure(50);
    const auto fewBytes = std::filesystem::file_size(folder + "/journal");
    const long many = measure(1000);
    const auto manyBytes = std::filesystem::file_size(folder + "/journal");
    EXPECT_LT(fewBytes * 10, manyBytes);
    EXPECT_LT(many - few, static_cast<long>(manyBytes - fewBytes));
}

TEST_F(ReplayProgram, ACompressedJournalIsRead)
{
    ASSERT_EQ(0, std::system(("gzip '" + folder + "/journal'").c_str()));
    EXPECT_EQ(0, Replay("makes-calls", "journal.gz")) << errors;
    EXPECT_EQ(1, Replay("makes-extra-call", "journal.gz"));
    // Of a file cut off, the lines before are played.
    const std::string whole = ReadFile("journal.gz");
    WriteFile("journal.gz", whole.substr(0, whole.size() - 100));
    EXPECT_EQ(0, Replay("makes-calls", "journal.gz"));
    EXPECT_THAT(errors, HasSubstr(": is cut off; played up to there\n"));
    // Other bytes in place of the end don't agree with its checksum.
    WriteFile("journal.gz", whole.substr(0, whole.size() - 8) + "12345678");
    EXPECT_EQ(3, Replay("makes-calls", "journal.gz"));
    EXPECT_EQ("headless-host: journal.gz: incorrect data check\n", errors);
}

TEST_F(ReplayProgram, FilesThatAreNoJournalEndInOneLine)
{
    const std::string header = R"({"side":"host","op":"journal","args":{"version":)";
    const std::vector<std::pair<std::string, std::string>> files = {
        {"", "journal: is empty, or cut off in its first line"},
        {"no JSON\n", "journal: line 1: is not a line of a journal"},
        {R"({"side":"host","op":"send","args":{},"result":null})"
         "\n",
         "journal: is a journal of version 1, a replay needs version 2; record it again"},
        {header + "3},\"result\":null}\n",
         "journal: is a journal of version 3, a replay needs version 2"},
        {header + "2},\"result\":null}\n\n", "journal: line 2: is not a line of a journal"},
        {header + "2},\"result\":null}\n" + std::string(100000, '[') + "\n",
         "journal: line 2: is not a line of a journal"},
        {header + "2},\"result\":null}\n" +
             R"({"side":"world","op":"path removed","args":{"handle":"file path#7"},"result":null})"
             "\n",
         "journal: line 2: cannot be played: there is no file path#7"},
        {header + "2},\"result\":null}\n" +
             R"({"side":"world","op":"file","args":{"path":"/../x","head":"x"},"result":null})"
             "\n",
         "journal: line 2: cannot be played: the path leads out of the folder"},
    };
    for (const auto& [bytes, error] : files) {
        WriteFile("journal", bytes);
        EXPECT_EQ(3, Replay("makes-calls")) << error;
        EXPECT_EQ("headless-host: " + error + "\n", errors);
    }
    EXPECT_EQ(3, Replay("makes-calls", "absent"));
    EXPECT_EQ("headless-host: absent: No such file or directory\n", errors);
    EXPECT_EQ(3, Replay("makes-calls", "."));
}

TEST_F(ReplayProgram, WrongUseAndAMissingPluginHaveTheirStatus)
{
    EXPECT_EQ(2, Replay("makes-calls", ""));
    EXPECT_EQ(4, Replay("absent"));
}
