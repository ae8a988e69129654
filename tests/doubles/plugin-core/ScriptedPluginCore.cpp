#include "ScriptedPluginCore.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "ScriptedPluginCoreVariant.h"

namespace {

// Statuses of PluginCore. A scripted library isn't linked with the core library, which names them.
constexpr unsigned int kFatalError = 0x02000000;
constexpr unsigned int kIndexOutOfRange = 0x0C000000;
constexpr unsigned int kVersionMismatch = 0x0E000000;

ScriptedPluginCore MakeState()
{
    ScriptedPluginCore state;
    const std::string variant = ScriptedPluginCoreVariant();
    if (variant == "version-refused") state.statuses["GetAPIVersion"] = kVersionMismatch;
    if (variant == "initialization-fails") {
        state.statuses["InitializePluginCoreInterface"] = kFatalError;
    }
    if (variant == "throws") {
        state.onCall["InitializePluginCoreInterface"] = [] { throw std::runtime_error("thrown"); };
    }
    return state;
}

ScriptedPluginCore& State()
{
    static ScriptedPluginCore state = MakeState();
    return state;
}

unsigned int Answer(const std::string& name, const std::string& arguments)
{
    State().calls.push_back(name + "(" + arguments + ")");
    const auto action = State().onCall.find(name);
    if (action != State().onCall.end()) action->second();
    const auto status = State().statuses.find(name);
    return status == State().statuses.end() ? 0 : status->second;
}

std::string Text(const char* text)
{
    return text == nullptr ? "null" : "\"" + std::string(text) + "\"";
}

std::string Buffer(const char* buffer, std::size_t size)
{
    if (buffer == nullptr) return "null";
    const bool zeroed = std::all_of(buffer, buffer + size, [](char c) { return c == '\0'; });
    return zeroed ? "zeroed " + std::to_string(size) : Text(buffer);
}

// Writes the text, cut to the buffer, and a zero byte.
void Put(char* buffer, std::size_t size, const std::string& text)
{
    if (buffer == nullptr || size == 0) return;
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED ScriptedPluginCore* ScriptedPluginCore_GetState() { return &State(); }

EXPORTED unsigned int ActivateChosenFonts(const char* path, const char* fonts, int* outValue)
{
    return Answer("ActivateChosenFonts",
                  Text(path) + ", " + Text(fonts) + ", " + std::to_string(*outValue));
}

EXPORTED unsigned int CreateMenusFromJSONBuffer(const char* menus,
                                                AddIllustratorMenuFunction callback,
                                                MenuItemHelp* help)
{
    State().addIllustratorMenu = callback;
    State().menuItemHelp = help;
    return Answer("CreateMenusFromJSONBuffer", Text(menus));
}

EXPORTED unsigned int GetAPIVersion(int* outVersion, int required)
{
    const unsigned int status =
        Answer("GetAPIVersion", std::to_string(*outVersion) + ", " + std::to_string(required));
    *outVersion = kPluginCoreAPIVersion;
    return status;
}

EXPORTED unsigned int GetIDForDocument(const char* path, char* idBuffer, size_t* ioSize)
{
    const unsigned int status =
        Answer("GetIDForDocument",
               Text(path) + ", " + Buffer(idBuffer, *ioSize) + ", " + std::to_string(*ioSize));
    Put(idBuffer, *ioSize, State().documentID);
    if (State().documentIDSize) *ioSize = *State().documentIDSize;
    return status;
}

EXPORTED unsigned int GetMenus(const char* path, char* buffer, size_t* ioSize)
{
    const unsigned int status =
        Answer("GetMenus", Text(path) + (buffer == nullptr ? ", null, " : ", buffer, ") +
                               std::to_string(*ioSize));
    if (status != 0) return status;
    if (*ioSize < State().menus.size() + 1) {
        *ioSize = State().menus.size() + 1;
        return kIndexOutOfRange;
    }
    Put(buffer, *ioSize, State().menus);
    return 0;
}

EXPORTED unsigned int GetSettings(char* buffer, size_t* ioSize)
{
    const unsigned int status =
        Answer("GetSettings", Buffer(buffer, *ioSize) + ", " + std::to_string(*ioSize));
    Put(buffer, *ioSize, State().settings);
    return status;
}

EXPORTED unsigned int GetSocketPort(int* outPort)
{
    const unsigned int status = Answer("GetSocketPort", "");
    *outPort = State().socketPort;
    return status;
}

EXPORTED unsigned int HandleCloseDocument(const char* path, const char* usage)
{
    return Answer("HandleCloseDocument", Text(path) + ", " + Text(usage));
}

EXPORTED unsigned int HandleCreateNewDocument(char* idBuffer, size_t* ioSize)
{
    const unsigned int status = Answer("HandleCreateNewDocument",
                                       Buffer(idBuffer, *ioSize) + ", " + std::to_string(*ioSize));
    Put(idBuffer, *ioSize, State().documentID);
    return status;
}

EXPORTED unsigned int HandleMenuSelection(const char* id, const char* state, const char* key,
                                          const char* usage)
{
    return Answer("HandleMenuSelection",
                  Text(id) + ", " + Text(state) + ", " + Text(key) + ", " + Text(usage));
}

EXPORTED unsigned int HandleOpenExistingDocument(const char* path, char* ioJson, size_t* ioSize,
                                                 int* outValue)
{
    // The text may fill the whole size, without a zero byte.
    const std::string text(ioJson, strnlen(ioJson, *ioSize));
    State().openTexts.push_back(text);
    const std::string shown = text.size() > 1000 ? std::to_string(text.size()) + " bytes" : text;
    const unsigned int status =
        Answer("HandleOpenExistingDocument", Text(path) + ", " + Text(shown.c_str()) + ", " +
                                                 std::to_string(*ioSize) + ", " +
                                                 std::to_string(*outValue));
    *outValue = 1;
    if (State().openAnswer) Put(ioJson, *ioSize, *State().openAnswer);
    return status;
}

EXPORTED unsigned int HandleSaveDocument(const char* path, const char* usage)
{
    return Answer("HandleSaveDocument", Text(path) + ", " + Text(usage));
}

EXPORTED unsigned int IdleEvent() { return Answer("IdleEvent", ""); }

EXPORTED unsigned int InitializePluginCoreInterface(const char* bundleIdentifier,
                                                    const char* hostVersion)
{
    return Answer("InitializePluginCoreInterface",
                  Text(bundleIdentifier) + ", " + Text(hostVersion));
}

EXPORTED unsigned int InvokeCommandDialog(const char* path, char* buffer, bool* outFlag)
{
    const unsigned int status =
        Answer("InvokeCommandDialog",
               Text(path) + ", " + Buffer(buffer, 256) + (*outFlag ? ", true" : ", false"));
    *outFlag = true;
    return status;
}

EXPORTED unsigned int InvokeResolveDialog(char* ioJson, size_t* ioSize)
{
    const unsigned int status =
        Answer("InvokeResolveDialog", Text(ioJson) + ", " + std::to_string(*ioSize));
    if (State().resolveAnswer) Put(ioJson, *ioSize, *State().resolveAnswer);
    if (State().resolveSize) *ioSize = *State().resolveSize;
    return status;
}

EXPORTED void InvokeRestrictedFontsDialog() { (void)Answer("InvokeRestrictedFontsDialog", ""); }

EXPORTED unsigned int PluginIsEnabled(bool request, bool* outEnabled)
{
    const unsigned int status = Answer("PluginIsEnabled", std::string(request ? "true" : "false") +
                                                              (*outEnabled ? ", true" : ", false"));
    *outEnabled = State().enabled;
    return status;
}

EXPORTED unsigned int ProcessPanelMessages(int value)
{
    return Answer("ProcessPanelMessages", std::to_string(value));
}

EXPORTED unsigned int RegisterPlugPlug(SDKPlugPlug* plugPlug)
{
    return Answer("RegisterPlugPlug", plugPlug == nullptr ? "null" : "plugPlug");
}

EXPORTED void SetPathForDocument() { (void)Answer("SetPathForDocument", ""); }

EXPORTED unsigned int TerminatePluginCoreInterface()
{
    return Answer("TerminatePluginCoreInterface", "");
}

EXPORTED unsigned int UpdateDocumentFontUsage(const char* id, const char* usage)
{
    return Answer("UpdateDocumentFontUsage", Text(id) + ", " + Text(usage));
}

EXPORTED unsigned int SetRebuildWorkgroupsMenuCallback(RebuildWorkgroupsMenuFunction callback)
{
    State().rebuildWorkgroupsMenu = callback;
    return Answer("SetRebuildWorkgroupsMenuCallback", callback == nullptr ? "null" : "callback");
}

EXPORTED void ShowNotLoggedInMessageBox() { (void)Answer("ShowNotLoggedInMessageBox", ""); }

EXPORTED void ShouldShowLogin() { (void)Answer("ShouldShowLogin", ""); }

ScriptedPluginCore& InProcessPluginCoreState() { return State(); }

void* InProcessPluginCoreFunction(const std::string& name)
{
#define ROW(Name) {#Name, reinterpret_cast<void*>(&Name)},
    static const std::map<std::string, void*> functions = {PLUGIN_CORE_FUNCTIONS(ROW)};
#undef ROW
    const auto found = functions.find(name);
    return found == functions.end() ? nullptr : found->second;
}
