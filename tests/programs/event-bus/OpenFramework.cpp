#include "OpenFramework.h"

#include <dlfcn.h>

OpenFramework::OpenFramework(const std::string& name, const std::string& folder)
    : mHandle(dlopen((folder + "/" + name + ".framework/" + name).c_str(), RTLD_NOW | RTLD_LOCAL))
{
    if (mHandle == nullptr) return;
    LoadExtension =
        reinterpret_cast<PlugPlugLoadExtensionFunction>(dlsym(mHandle, "PlugPlugLoadExtension"));
    UnloadExtension = reinterpret_cast<PlugPlugUnloadExtensionFunction>(
        dlsym(mHandle, "PlugPlugUnloadExtension"));
    Add = reinterpret_cast<PlugPlugAddEventListenerFunction>(
        dlsym(mHandle, "PlugPlugAddEventListener"));
    Remove = reinterpret_cast<PlugPlugRemoveEventListenerFunction>(
        dlsym(mHandle, "PlugPlugRemoveEventListener"));
    Dispatch =
        reinterpret_cast<PlugPlugDispatchEventFunction>(dlsym(mHandle, "PlugPlugDispatchEvent"));
}

OpenFramework::~OpenFramework()
{
    // Another OpenFramework may keep the module loaded; an error has no consequence here.
    if (mHandle != nullptr) (void)dlclose(mHandle);
}
