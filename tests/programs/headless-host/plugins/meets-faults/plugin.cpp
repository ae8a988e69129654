#include <dirent.h>
#include <dlfcn.h>
#include <time.h>

#include <cstring>
#include <new>

#include "../PluginSupport.h"
#include "AIError.h"
#include "ATEWrappers.h"

// Breaks no rule, whatever fails. Messages of the caller "Test" have it make one call each, and its
// answer says how that ended: a status, or one of the numbers below.
namespace {

constexpr AIErr kHostError = 1001;
constexpr AIErr kTextError = 1002;
constexpr AIErr kNumberThrown = 1003;
constexpr AIErr kStandardException = 1004;
constexpr AIErr kOtherException = 1005;
constexpr AIErr kNoMemory = 1006;
constexpr AIErr kNoFunction = 1007;

constexpr char kSuite[] = "AI Document Suite";
constexpr int kVersion = 1017;

const AIDocumentSuite* sDocuments = nullptr;

template <class Body>
AIErr Try(Body body)
{
    try {
        return body();
    } catch (const ai::Error&) {
        return kHostError;
    } catch (const ATE::Exception&) {
        return kTextError;
    } catch (int) {
        return kNumberThrown;
    } catch (const std::bad_alloc&) {
        return kNoMemory;
    } catch (const std::exception&) {
        return kStandardException;
    } catch (...) {
        return kOtherException;
    }
}

AIErr CallSuite()
{
    bool isModified = false;
    return sDocuments == nullptr ? kNoFunction : sDocuments->GetDocumentModified(&isModified);
}

// The module is where a simulation installs it, relative to the folder that it runs in.
AIErr CallCore()
{
    using GetPort = unsigned int (*)(int*);
    void* const module =
        dlopen("./Vexcor/PluginFiles/PluginCore.framework/PluginCore", RTLD_NOW | RTLD_LOCAL);
    const auto getPort =
        reinterpret_cast<GetPort>(module == nullptr ? nullptr : dlsym(module, "GetSocketPort"));
    int port = 0;
    if (getPort == nullptr) return kNoFunction;
    const unsigned int status = getPort(&port);
    return status != 0 ? static_cast<AIErr>(status) : port;
}

AIErr Allocate()
{
    ::operator delete(::operator new(1));
    return 0;
}

// What the plug-in's clock is ahead.
AIErr CompareClocks()
{
    timespec now = {};
    (void)clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<AIErr>(time(nullptr) - now.tv_sec);
}

AIErr OpenFolder(const char* path)
{
    DIR* const folder = opendir(path);
    if (folder == nullptr) return kNoFunction;
    (void)closedir(folder);
    return 0;
}

AIErr Perform(const char* what)
{
    if (std::strcmp(what, "Suite") == 0) return CallSuite();
    if (std::strcmp(what, "Core") == 0) return CallCore();
    if (std::strcmp(what, "Allocation") == 0) return Allocate();
    if (std::strcmp(what, "Clock") == 0) return CompareClocks();
    if (std::strcmp(what, "Processes") == 0) return OpenFolder("/proc");
    if (std::strcmp(what, "Folder") == 0) return OpenFolder(".");
    return 0;
}

AIErr StartUp(SPMessageData& data)
{
    const AIErr error = data.basic->AcquireSuite(kSuite, kVersion, &sDocuments);
    if (error != 0) return error;
    (void)Allocate();
    data.globals = &sDocuments;
    return 0;
}

AIErr ShutDown(SPMessageData& data)
{
    data.globals = nullptr;
    if (sDocuments == nullptr) return 0;
    sDocuments = nullptr;
    return data.basic->ReleaseSuite(kSuite, kVersion);
}

}  // namespace

// Without strings, which would allocate.
PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    auto& data = *static_cast<SPMessageData*>(message);
    if (std::strcmp(caller, "Test") == 0) return Try([&] { return Perform(selector); });
    if (std::strcmp(caller, "SP Interface") != 0) return 0;
    if (std::strcmp(selector, "Startup") == 0) return Try([&] { return StartUp(data); });
    if (std::strcmp(selector, "Shutdown") == 0) return Try([&] { return ShutDown(data); });
    return 0;
}
