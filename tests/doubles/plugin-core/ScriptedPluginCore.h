#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "PluginCoreFunctions.h"

// What a scripted PluginCore answers and what it was asked. One state per library, and one for the
// variant that is linked into the test. Header alone, so that a state can be used on both sides of
// a library. The state lives as long as its library.
struct ScriptedPluginCore {
    // One text per call, in order: "Name(arguments)". Texts in quotes; values that are preset to
    // something are printed as they came in; a buffer as its text in quotes, or as "zeroed 256" if
    // that is its size and all of it is zero; sizes behind their buffer.
    std::vector<std::string> calls;

    // Answers. A status not named here is 0.
    std::map<std::string, unsigned int> statuses;
    bool enabled = true;
    // What HandleOpenExistingDocument leaves in the buffer; without a value, what came in.
    std::optional<std::string> openAnswer = "";
    // What InvokeResolveDialog leaves in the buffer, and as the size; without a value, what came.
    std::optional<std::string> resolveAnswer;
    std::optional<std::size_t> resolveSize;
    std::string settings = "{}";
    std::string menus = "{}";
    std::string documentID;
    // What GetIDForDocument leaves as the size; without a value, what came.
    std::optional<std::size_t> documentIDSize;
    int socketPort = 0;

    // Runs inside every call of that name, before it is answered: may send messages or throw.
    std::map<std::string, std::function<void()>> onCall;

    // What HandleOpenExistingDocument got, in full: the text and whether all of the buffer behind
    // it was zero.
    std::vector<std::string> openTexts;
    RebuildWorkgroupsMenuFunction rebuildWorkgroupsMenu = nullptr;
    // What CreateMenusFromJSONBuffer got; the second lives only inside of that call.
    AddIllustratorMenuFunction addIllustratorMenu = nullptr;
    MenuItemHelp* menuItemHelp = nullptr;

    // The names alone, in order.
    std::vector<std::string> CalledNames() const
    {
        std::vector<std::string> names;
        for (const std::string& call : calls) names.push_back(call.substr(0, call.find('(')));
        return names;
    }
};

// What a library exports under the name "ScriptedPluginCore_GetState".
typedef ScriptedPluginCore* (*ScriptedPluginCoreGetStateFunction)();

// The variant in the test: its state, and the address of one of the 26 functions (null for another
// name).
ScriptedPluginCore& InProcessPluginCoreState();
void* InProcessPluginCoreFunction(const std::string& name);
