#include "panel/PanelBus.h"

#include <dlfcn.h>

#include <filesystem>

#include "PlugPlugEvent.h"

namespace headless {

namespace {

std::string FindLibrary(const std::string& frameworksFolder)
{
    const std::filesystem::path folder = frameworksFolder;
    const std::filesystem::path preferred = folder / "PlugPlugOwl.framework";
    std::error_code ignored;  // a folder that cannot be examined cannot be loaded from
    if (std::filesystem::exists(preferred, ignored)) return preferred / "PlugPlugOwl";
    return folder / "PlugPlug.framework/PlugPlug";
}

template <class Function>
bool Bind(void* handle, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(dlsym(handle, name));
    return function != nullptr;
}

}  // namespace

std::unique_ptr<PanelBus> PanelBus::Open(const std::string& frameworksFolder,
                                         const std::string& type, std::string& error)
{
    std::unique_ptr<PanelBus> bus(new PanelBus);
    const std::string file = FindLibrary(frameworksFolder);
    bus->mHandle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (bus->mHandle == nullptr) {
        const char* const reason = dlerror();
        error = std::string("cannot open the event bus: ") +
                (reason == nullptr ? file.c_str() : reason);
        return nullptr;
    }
    if (!Bind(bus->mHandle, "PlugPlugAddEventListener", bus->mAdd) ||
        !Bind(bus->mHandle, "PlugPlugRemoveEventListener", bus->mRemove) ||
        !Bind(bus->mHandle, "PlugPlugDispatchEvent", bus->mDispatch)) {
        error = "cannot open the event bus: " + file + " lacks a function";
        return nullptr;
    }
    bus->mType = type;
    const int status = bus->mAdd(type.c_str(), OnEvent, bus.get());
    bus->mIsListening = status == 0;
    if (!bus->mIsListening) {
        error = "the event bus refuses the panel's listener: " + std::to_string(status);
        return nullptr;
    }
    return bus;
}

PanelBus::~PanelBus()
{
    // Nothing can be done about a failure of either.
    if (mIsListening) (void)mRemove(mType.c_str(), OnEvent, this);
    if (mHandle != nullptr) (void)dlclose(mHandle);
}

bool PanelBus::Send(const std::string& type, std::string& error)
{
    const PlugPlugEvent event = {type.c_str(), csxs::event::kEventScopeApplication, "panel",
                                 nullptr, nullptr};
    const int status = mDispatch(&event);
    if (status == 0) return true;
    error = "the event bus refuses " + type + ": " + std::to_string(status);
    return false;
}

void PanelBus::OnEvent(const PlugPlugEvent* event, void* context)
{
    if (event == nullptr) return;
    static_cast<PanelBus*>(context)->mReceived.push_back(event->data == nullptr ? "" : event->data);
}

}  // namespace headless
