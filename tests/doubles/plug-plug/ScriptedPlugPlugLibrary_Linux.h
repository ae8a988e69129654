#pragma once

#include <dlfcn.h>

#include <string>

#include "ScriptedPlugPlug.h"

// The private frameworks folder of a variant.
inline std::string ScriptedPlugPlugFolder(const std::string& variant)
{
    return std::string(SCRIPTED_PLUG_PLUG_FOLDER) + "/" + variant;
}

// The library of one framework of a variant, held open with its state as when it was loaded first.
// Whoever opens the framework by its path while this lives gets the same library and state.
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
        // What the test put into the state may not outlast it in a library that stays open.
        mReset();
        (void)dlclose(mHandle);  // one reference less; nothing to do about a refusal
    }
    ScriptedPlugPlugLibrary(const ScriptedPlugPlugLibrary&) = delete;
    ScriptedPlugPlugLibrary& operator=(const ScriptedPlugPlugLibrary&) = delete;

    // False if the variant has no such library.
    explicit operator bool() const { return mState != nullptr; }
    ScriptedPlugPlug& State() const { return *mState; }
    ScriptedPlugPlug* operator->() const { return mState; }

    // The address of a function of the library, null if it has none of that name.
    void* Find(const std::string& name) const { return dlsym(mHandle, name.c_str()); }

private:
    void* mHandle = nullptr;
    ScriptedPlugPlug* mState = nullptr;
    ScriptedPlugPlugResetFunction mReset = nullptr;
};
