#include "TwoPlugins.h"

#include <cstdlib>
#include <regex>

namespace fs = std::filesystem;

namespace {

constexpr int kNotRun = 77;  // of the loader

}  // namespace

PluginPlace::PluginPlace(Kind kind)
{
    plugin = scratch / "TypeloftSPEA.aip";
    if (kind == kLinux) {
        fs::create_directory_symlink(PLUG_IN_FOLDER, plugin);
    } else {
        fs::create_directory(plugin);
        fs::create_symlink(MACH_O_LOADER, plugin / "TypeloftSPEA");
        fs::create_directory_symlink(fs::path(MACH_O_BUNDLE) / "Contents", plugin / "Contents");
    }
    runFolder = scratch;
}

void PluginPlace::RunWithJournal(const std::string& command)
{
    status = Run(command + " --journal journal");
}

std::string PluginPlace::WithoutFolder(std::string text) const
{
    const std::string folderName = scratch.string();
    for (size_t at = text.find(folderName); at != std::string::npos;
         at = text.find(folderName, at)) {
        text.replace(at, folderName.size(), "FOLDER");
    }
    static const std::regex sFontId("(\"id\":\"[0-9]+-[0-9]+)-[0-9]+\"");
    return std::regex_replace(text, sFontId, "$1-DATE\"");
}

void TwoPlugins::SetUp()
{
    if (!fs::exists(MACH_O_BUNDLE)) {
        GTEST_SKIP() << MACH_O_BUNDLE << ": not run: the bundle is not built (make mac-cross)";
    }
}

void TwoPlugins::SkipIfNotRun(int status) const
{
    if (status == kNotRun) GTEST_SKIP() << "not run: " << machO.errors;
}

int TwoPlugins::CompareJournals()
{
    const std::string command = COMPARE_JOURNALS " '" + (onLinux.scratch / "journal").string() +
                                "' '" + (machO.scratch / "journal").string() + "' '" +
                                onLinux.scratch.string() + "' '" + machO.scratch.string() + "' >'" +
                                (machO.scratch / "comparison").string() + "' 2>&1";
    const int status = std::system(command.c_str());
    comparison = machO.ReadFile(machO.scratch / "comparison");
    return WEXITSTATUS(status);
}

void TwoPlugins::ExpectTheSame(const std::string& command)
{
    onLinux.RunWithJournal(command);
    machO.RunWithJournal(command);
    SkipIfNotRun(machO.status);
    if (IsSkipped()) return;
    EXPECT_EQ(onLinux.status, machO.status);
    EXPECT_EQ(onLinux.WithoutFolder(onLinux.output), machO.WithoutFolder(machO.output));
    EXPECT_EQ(onLinux.WithoutFolder(onLinux.errors), machO.WithoutFolder(machO.errors));
    EXPECT_EQ(0, CompareJournals()) << comparison;
}
