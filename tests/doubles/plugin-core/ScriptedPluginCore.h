#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "PluginCoreFunctions.h"

// The state of a scripted PluginCore: what it returns and how it was called. One per library, valid
// as long as the library is loaded, and one for the PluginCore that is linked into the test. Header
// only, so that the test and the library can both use it.
struct ScriptedPluginCore {
    // One string per call, in order: "Name(arguments)". Shows strings in quotes, output values as
    // they were passed in, and a buffer as its text in quotes, or as "zeroed 256" if all of its 256
    // bytes are zero. A size follows its buffer.
    std::vector<std::string> calls;

    // Results by function name; 0 for a function that isn't listed.
    std::map<std::string, unsigned int> statuses;
    bool enabled = true;
    // What HandleOpenExistingDocument writes to the buffer; without a value it writes nothing.
    std::optional<std::string> openAnswer = "";
    // What InvokeResolveDialog writes to the buffer and the size; without a value it writes
    // nothing.
    std::optional<std::string> resolveAnswer;
    std::optional<std::size_t> resolveSize;
    std::string settings = "{}";
    std::string menus = "{}";
    std::string documentID;
    // What GetIDForDocument writes to the size; without a value it writes nothing.
    std::optional<std::size_t> documentIDSize;
    int socketPort = 0;

    // Runs in every call of that function, before it returns; may send messages or throw.
    std::map<std::string, std::function<void()>> onCall;

    // The text that each HandleOpenExistingDocument call received, in full; `calls` shows only the
    // length of a long one.
    std::vector<std::string> openTexts;
    RebuildWorkgroupsMenuFunction rebuildWorkgroupsMenu = nullptr;
    // The arguments of CreateMenusFromJSONBuffer; menuItemHelp is valid only during that call.
    AddIllustratorMenuFunction addIllustratorMenu = nullptr;
    MenuItemHelp* menuItemHelp = nullptr;

    // Returns the names of the functions called, in order.
    std::vector<std::string> CalledNames() const
    {
        std::vector<std::string> names;
        for (const std::string& call : calls) names.push_back(call.substr(0, call.find('(')));
        return names;
    }
};

// Type of "ScriptedPluginCore_GetState", which each library exports.
typedef ScriptedPluginCore* (*ScriptedPluginCoreGetStateFunction)();

// The PluginCore in the test: its state, and the address of one of its 26 functions, or null for
// any other name.
ScriptedPluginCore& InProcessPluginCoreState();
void* InProcessPluginCoreFunction(const std::string& name);
