#pragma once

#include <dlfcn.h>

#include <string>

#include "ScriptedPlugPlug.h"

// Returns the private frameworks folder of a variant.
inline std::string ScriptedPlugPlugFolder(const std::string& variant)
{
    return std::string(SCRIPTED_PLUG_PLUG_FOLDER) + "/" + variant;
}

// Loads the library of one framework of a variant and resets its state. Code that loads the
// framework by its path while this object exists gets the same library and state.
class ScriptedPlugPlugLibrary {
public:
    explicit ScriptedPlugPlugLibrary(const std::string& variant,
                                     const std::string& name = "PlugPlugOwl")
    {
        const std::string file =
            ScriptedPlugPlugFolder(variant) + "/" + name + ".framework/" + name;
        mHandle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (mHandle == nullptr) return;
        const auto getState = reinterpret_cast<ScriptedPlugPlugGetStateFunction>(
            dlsym(mHandle, "ScriptedPlugPlug_GetState"));
        mReset = reinterpret_cast<ScriptedPlugPlugResetFunction>(
            dlsym(mHandle, "ScriptedPlugPlug_Reset"));
        mReset();
        mState = getState();
    }
    ~ScriptedPlugPlugLibrary()
    {
        if (mHandle == nullptr) return;
        // The plug-in may keep the library open: don't leave the test's state in it.
        mReset();
        (void)dlclose(mHandle);  // a failure needs no action
    }
    ScriptedPlugPlugLibrary(const ScriptedPlugPlugLibrary&) = delete;
    ScriptedPlugPlugLibrary& operator=(const ScriptedPlugPlugLibrary&) = delete;

    // False if the variant has no such library.
    explicit operator bool() const { return mState != nullptr; }
    ScriptedPlugPlug& State() const { return *mState; }
    ScriptedPlugPlug* operator->() const { return mState; }

    // Returns the address of a function of the library, or null if it has none of that name.
    void* Find(const std::string& name) const { return dlsym(mHandle, name.c_str()); }

private:
    void* mHandle = nullptr;
    ScriptedPlugPlug* mState = nullptr;
    ScriptedPlugPlugResetFunction mReset = nullptr;
};
