#include "../probe/Probe.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <utility>

#include "ScratchFolder.h"

namespace fs = std::filesystem;

namespace {

// A small bundle in the loader. Without the tools that build it the tests are skipped.
class MachOProbe : public testing::Test {
protected:
    void SetUp() override { Load("Probe"); }

    void Load(const std::string& name)
    {
        const fs::path probe = fs::path(MACH_O_PROBES) / name;
        if (!fs::exists(probe)) {
            GTEST_SKIP() << probe << ": not run: the probe is not built (make mac-cross)";
        }
        const fs::path bundle = folder.Path("Probe.aip");
        fs::create_directories(bundle / "Contents/MacOS");
        fs::create_symlink(MACH_O_LOADER, bundle / "Probe");
        fs::create_symlink(probe, bundle / "Contents/MacOS/Probe");
        void* const module = dlopen((bundle / "Probe").c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(nullptr, module) << dlerror();
        entry = reinterpret_cast<Entry>(dlsym(module, "PluginMain"));
        ASSERT_NE(nullptr, entry);
    }

    int Call(std::string selector, void* message) const
    {
        char caller[] = "probe";
        return entry(caller, selector.data(), message);
    }

    int CallForInt(const std::string& selector) const
    {
        int value = 0;
        EXPECT_EQ(0, Call(selector, &value));
        return value;
    }

    const ScratchFolder folder;

private:
    typedef int (*Entry)(char* caller, char* selector, void* message);
    Entry entry = nullptr;
};

TEST_F(MachOProbe, EachThreadHasItsOwnVariables)
{
    EXPECT_EQ(142, CallForInt("thread-local"));
    EXPECT_EQ(243, CallForInt("thread-local"));
    int ofOther = 0;
    std::thread([&] { ofOther = CallForInt("thread-local"); }).join();
    EXPECT_EQ(142, ofOther);
    EXPECT_EQ(344, CallForInt("thread-local"));
}

TEST_F(MachOProbe, AStaticMutexAndConditionWork) { EXPECT_EQ(42, CallForInt("static-mutex")); }

TEST_F(MachOProbe, ObjectsAreDestroyedAtTheEndTheLastOneFirst)
{
    EXPECT_EXIT(
        {
            (void)setenv("MACH_O_REPORT", "1", 1);
            (void)Call("at-exit", nullptr);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^second first\nmach-o: 2 functions ran at exit\n$");
}

TEST_F(MachOProbe, ReadsTheStatusOfAFile)
{
    const std::string file = folder.Write("file", "12345");
    ProbeStatus status = {file.c_str(), -2, true, 0, 0};
    EXPECT_EQ(0, Call("status", &status));
    EXPECT_EQ(0, status.result);
    EXPECT_FALSE(status.isFolder);
    EXPECT_EQ(5, status.size);
    EXPECT_NEAR(static_cast<double>(std::time(nullptr)), static_cast<double>(status.seconds), 60);
    ProbeStatus ofFolder = {"/", -2, false, 0, 0};
    EXPECT_EQ(0, Call("status", &ofFolder));
    EXPECT_TRUE(ofFolder.isFolder);
    ProbeStatus missing = {"/no/such/file", 0, false, 0, 0};
    EXPECT_EQ(0, Call("status", &missing));
    EXPECT_EQ(-1, missing.result);
}

TEST_F(MachOProbe, AppendsToAFileThatItCreates)
{
    const std::string path = folder.Path("new");
    for (const char* text : {"one ", "two"}) {
        ProbeAppend request = {path.c_str(), text, 0, 0};
        EXPECT_EQ(0, Call("append", &request));
        EXPECT_EQ(static_cast<int>(std::string(text).size()), request.result);
    }
    std::ifstream file(path);
    EXPECT_EQ("one two", std::string(std::istreambuf_iterator<char>(file), {}));
    EXPECT_EQ(0640U, static_cast<unsigned>(fs::status(path).permissions()));
    ProbeAppend refused = {"/no/such/folder/file", "", 0, 0};
    EXPECT_EQ(0, Call("append", &refused));
    EXPECT_EQ(ENOENT, refused.error);
}

// The bundle, and what is thrown.
typedef std::pair<std::string, std::string> ProbeAndKind;

class MachOProbeException : public MachOProbe, public testing::WithParamInterface<ProbeAndKind> {
protected:
    void SetUp() override { Load(GetParam().first); }
};

TEST_P(MachOProbeException, CrossesThreeFrames)
{
    const std::string kind = GetParam().second;
    ProbeThrow result = {};
    EXPECT_EQ(0, Call(kind, &result));
    EXPECT_EQ(3, result.destroyed);
    EXPECT_TRUE(result.kept);
    EXPECT_EQ(kind == "int" ? 4711 : kind == "object" ? 4712 : 35, result.caught);
}

// The frame of the function that throws has saved three registers.
TEST_P(MachOProbeException, RestoresTheRegistersOfOneFrame)
{
    ProbeThrow result = {};
    EXPECT_EQ(0, Call("direct", &result));
    EXPECT_EQ(4713, result.caught);
    EXPECT_TRUE(result.kept);
}

INSTANTIATE_TEST_SUITE_P(Kinds, MachOProbeException,
                         testing::Values(ProbeAndKind("Probe", "int"),
                                         ProbeAndKind("Probe", "object"),
                                         ProbeAndKind("Probe", "standard"),
                                         ProbeAndKind("FramelessProbe", "int"),
                                         ProbeAndKind("FramelessProbe", "object"),
                                         ProbeAndKind("FramelessProbe", "standard")),
                         [](const auto& row) { return row.param.first + "_" + row.param.second; });

}  // namespace
