// library-bench LIBRARY [OPTIONS]: measures what PluginCore does with a large font library, and the
// floor of each figure. LIBRARY is a folder that make-library wrote, OPTIONS are those of the
// benchmark library. Works in a home folder of its own, which it removes.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "fonts/ActiveFonts.h"
#include "plugin-core/services/Services.h"

namespace fs = std::filesystem;
using plugincore::Services;

namespace {

constexpr int kFonts = 20;

std::string sLibrary;
fs::path sHome;
std::unique_ptr<Services> sServices;

void MakeHome()
{
    std::string pattern = (fs::temp_directory_path() / "bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    sHome = pattern;
    fs::create_directories(sHome / "data/fonts");
    std::ofstream(sHome / "fonts.conf") << "<fontconfig><dir prefix=\"xdg\">fonts</dir>"
                                           "<cachedir prefix=\"xdg\">cache</cachedir></fontconfig>";
    setenv("HOME", sHome.c_str(), 1);
    setenv("XDG_DATA_HOME", (sHome / "data").c_str(), 1);
    setenv("XDG_CACHE_HOME", (sHome / "cache").c_str(), 1);
    setenv("FONTCONFIG_FILE", (sHome / "fonts.conf").c_str(), 1);
    setenv("CORVANTA_FONT_LIBRARY", sLibrary.c_str(), 1);
}

std::vector<std::string> GetFirstNames() { return sServices->library.ListNames("", 0, kFonts); }

void CheckUnchanged(benchmark::State& state)
{
    for (auto _ : state) sServices->library.Refresh();
    state.counters["files read"] = static_cast<double>(sServices->library.GetCounts().filesRead);
    state.counters["files"] = static_cast<double>(sServices->library.GetCounts().files);
}
BENCHMARK(CheckUnchanged)->Unit(benchmark::kMillisecond);

size_t CountBytes(const std::string& path)
{
    size_t bytes = 0;
    DIR* const folder = opendir(path.c_str());
    if (folder == nullptr) return 0;
    while (const dirent* const entry = readdir(folder)) {
        if (entry->d_name[0] == '.') continue;
        struct stat status = {};
        if (entry->d_type == DT_DIR) {
            bytes += CountBytes(path + "/" + entry->d_name);
        } else if (fstatat(dirfd(folder), entry->d_name, &status, 0) == 0) {
            bytes += static_cast<size_t>(status.st_size);
        }
    }
    closedir(folder);
    return bytes;
}

// The floor of the check: the names and states of all files from the file system.
void LookAtEachFile(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(CountBytes(sLibrary));
}
BENCHMARK(LookAtEachFile)->Unit(benchmark::kMillisecond);

void ActivateFonts(benchmark::State& state)
{
    const std::vector<std::string> names = GetFirstNames();
    for (auto _ : state) {
        if (sServices->activation.Activate("/bench.ai", names).activated.size() != names.size()) {
            state.SkipWithError("the fonts were active before");
            break;
        }
        state.PauseTiming();
        sServices->activation.Release("/bench.ai");
        state.ResumeTiming();
    }
}
BENCHMARK(ActivateFonts)->Unit(benchmark::kMillisecond);

// The part of the activation that SQLite has: its rows, in one transaction.
void StoreActivation(benchmark::State& state)
{
    plugincore::Database& database = sServices->database;
    std::vector<std::pair<std::string, std::string>> fonts;
    for (const std::string& name : GetFirstNames()) {
        fonts.emplace_back(name, sServices->library.Find(name).value_or(""));
    }
    for (auto _ : state) {
        plugincore::Transaction transaction(database);
        database.Execute("INSERT INTO active_group(id) VALUES(-1)");
        for (const auto& [name, file] : fonts) {
            plugincore::Statement(database, "INSERT INTO active_file VALUES(?, ?, -1)")
                .Bind(file)
                .Bind(name)
                .Run();
            plugincore::Statement(database, "INSERT INTO active_face VALUES(?, ?)")
                .Bind(name)
                .Bind(file)
                .Run();
            plugincore::Statement(database, "INSERT INTO hold VALUES('/bench.ai', ?, ?, '')")
                .Bind(name)
                .Bind(file)
                .Run();
        }
        transaction.Commit();
        state.PauseTiming();
        database.Execute(
            "DELETE FROM hold WHERE holder = ''; DELETE FROM active_file WHERE group_id = -1;"
            "DELETE FROM active_group WHERE id = -1");
        state.ResumeTiming();
    }
}
BENCHMARK(StoreActivation)->Unit(benchmark::kMillisecond);

// The floor of the activation: the links, and the rename that shows them.
void LinkAndRename(benchmark::State& state)
{
    const fs::path hidden = sHome / ".new";
    const fs::path visible = sHome / "new";
    for (auto _ : state) {
        fs::create_directory(hidden);
        for (int font = 0; font < kFonts; ++font) {
            fs::create_symlink(sLibrary + "/font", hidden / std::to_string(font));
        }
        fs::rename(hidden, visible);
        state.PauseTiming();
        fs::remove_all(visible);
        state.ResumeTiming();
    }
}
BENCHMARK(LinkAndRename)->Unit(benchmark::kMillisecond);

void ActivateAndLook(benchmark::State& state, bool isOtherProcess)
{
    const std::vector<std::string> names = GetFirstNames();
    for (auto _ : state) {
        (void)sServices->activation.Activate("/bench.ai", names);  // the look checks the result
        const bool isSeen = isOtherProcess
                                ? std::system("fc-list : postscriptname | grep -q Bench") == 0
                                : fonts::GetActiveFontNames().count(names.front()) != 0;
        if (!isSeen) {
            state.SkipWithError("fontconfig doesn't see the fonts");
            break;
        }
        state.PauseTiming();
        sServices->activation.Release("/bench.ai");
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(ActivateAndLook, inThisProcess, false)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(ActivateAndLook, withFcList, true)->Unit(benchmark::kMillisecond)->UseRealTime();

void FcListAlone(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(std::system("fc-list >/dev/null"));
}
BENCHMARK(FcListAlone)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv)
try {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fputs("usage: library-bench LIBRARY [OPTIONS]\n", stderr);
        return 2;
    }
    sLibrary = fs::canonical(argv[1]);
    MakeHome();
    sServices = std::make_unique<Services>(plugincore::GetLocations());
    (void)sServices->Start();           // there is nothing to repair
    (void)fonts::GetActiveFontNames();  // fontconfig writes caches at the first look in a home
    benchmark::RunSpecifiedBenchmarks();
    sServices->Stop();
    sServices.reset();
    fs::remove_all(sHome);
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "library-bench: %s\n", failure.what());
    return 1;
}
