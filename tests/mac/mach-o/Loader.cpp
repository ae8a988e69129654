// A plug-in module for Linux that runs the x86_64 slice of a bundle for macOS. It maps the bundle
// that lies beside it: X.aip/X is this module, X.aip/Contents is the bundle's.
//
// If the bundle cannot be loaded, the process ends with status 77 and one line that says why: a
// check that could not run has not passed. With MACH_O_REPORT in the environment, lines on standard
// error say what was bound, and how many functions ran at the end.

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>

#include "cocoa/HostWindows.h"
#include "image/Fixups.h"
#include "image/Image.h"
#include "image/LoadError.h"
#include "image/Memory.h"
#include "image/ThreadLocals.h"
#include "image/Unwinding.h"
#include "libraries/Foundation.h"
#include "libraries/ObjCSections.h"
#include "libraries/Symbols.h"
#include "libraries/SystemCalls.h"

namespace {

constexpr int kNotRun = 77;

typedef int (*PluginMainFunction)(char* caller, char* selector, void* message);

struct LoadedBundle {
    explicit LoadedBundle(const std::string& folder);

    macho::Image image;
    macho::Memory memory;
    std::vector<uint8_t> frames;
    PluginMainFunction main = nullptr;

private:
    void BindAll();
    void Report(const std::map<std::string, std::string>& libraryOfName) const;
    void RunInitialisers() const;
};

// As LoadedBundle's constructor needs it.
std::string GetExecutable(const std::string& folder)
{
    const std::string name = folder.substr(folder.rfind('/') + 1);
    return folder + "/Contents/MacOS/" + name.substr(0, name.rfind('.'));
}

LoadedBundle::LoadedBundle(const std::string& folder)
    : image(macho::ReadImage(GetExecutable(folder))), memory(image)
{
    const SHostPlatform* const platform = macho::GetPlatform();
    const bool hasFrameworks = platform != nullptr && platform->privateFrameworksPath != nullptr;
    macho::SetBundles(folder, hasFrameworks ? platform->privateFrameworksPath : "");

    memory.Rebase(macho::ReadRebases(image));
    BindAll();
    macho::SetUpThreadLocals(image, memory);
    macho::RegisterObjectiveC(image, memory);
    frames = macho::MakeFrames(image, memory);
    macho::RegisterFrames(frames);
    memory.Protect();
    macho::ConnectWindows();
    main = reinterpret_cast<PluginMainFunction>(memory.At(macho::FindExport(image, "_PluginMain")));
    RunInitialisers();
}

void LoadedBundle::BindAll()
{
    std::map<std::string, std::string> libraryOfName;
    for (const macho::Bind& bind : macho::ReadBinds(image)) {
        const int index = bind.library - 1;
        if (index < 0 || index >= static_cast<int>(image.libraries.size())) {
            throw macho::LoadError(image.path + ": bind " + bind.symbol +
                                   " has the unknown ordinal " + std::to_string(bind.library));
        }
        const std::string& library = image.libraries[static_cast<size_t>(index)];
        const auto address = reinterpret_cast<uint64_t>(macho::FindSymbol(library, bind.symbol));
        memory.PointerAt(bind.address) = address + static_cast<uint64_t>(bind.addend);
        libraryOfName[bind.symbol] = library.substr(library.rfind('/') + 1);
    }
    Report(libraryOfName);
}

void LoadedBundle::Report(const std::map<std::string, std::string>& libraryOfName) const
{
    if (std::getenv("MACH_O_REPORT") == nullptr) return;
    std::map<std::string, int> counts;
    for (const auto& [name, library] : libraryOfName) ++counts[library];
    std::fprintf(stderr, "mach-o: %s: %zu names bound:", image.path.c_str(), libraryOfName.size());
    for (const auto& [library, count] : counts) {
        std::fprintf(stderr, " %s %d", library.c_str(), count);
    }
    std::fprintf(stderr, "\n");
}

void LoadedBundle::RunInitialisers() const
{
    typedef void (*Initialiser)(int, const char**, const char**, const char**, const void*);
    const char* none[] = {nullptr};
    for (const macho::Section& section : image.sections) {
        if (section.type == macho::kInitFuncOffsets) {
            throw macho::LoadError(image.path + ": section " + section.name + " is unknown");
        }
        if (section.type != macho::kModInitFuncPointers) continue;
        for (uint64_t offset = 0; offset < section.size; offset += 8) {
            const uint64_t function = memory.PointerAt(section.address + offset);
            reinterpret_cast<Initialiser>(function)(0, none, none, none, nullptr);
        }
    }
}

LoadedBundle* sBundle = nullptr;

std::string GetOwnFolder()
{
    Dl_info module;
    if (dladdr(reinterpret_cast<void*>(&GetOwnFolder), &module) == 0) return std::string();
    const std::string file = module.dli_fname;
    return file.substr(0, file.rfind('/'));
}

// Runs when the host has opened this module, before dlopen returns.
__attribute__((constructor)) void LoadBundle()
{
    const macho::PoolOfMessage pool;
    try {
        sBundle = new LoadedBundle(GetOwnFolder());  // for the life of the process
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "mach-o: %s\n", exception.what());
        std::fflush(nullptr);
        _exit(kNotRun);
    }
}

// Runs when the process ends, as on macOS, which doesn't unload such a bundle before.
__attribute__((destructor)) void EndBundle()
{
    const int count = macho::RunAtExit();
    if (std::getenv("MACH_O_REPORT") != nullptr) {
        std::fprintf(stderr, "mach-o: %d functions ran at exit\n", count);
    }
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int PluginMain(char* caller, char* selector,
                                                                 void* message)
{
    const macho::PoolOfMessage pool;
    return sBundle->main(caller, selector, message);
}
