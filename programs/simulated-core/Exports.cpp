// A PluginCore that manages no fonts: the headless host says what each of its functions does. For
// the validator and for replays.

#include <dlfcn.h>

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>

#include "CodeScope.h"
#include "HostAnswer.h"
#include "PluginCoreFunctions.h"
#include "plugin-core/menus/MenuTree.h"

using nlohmann::json;

namespace {

constexpr unsigned int kInvalidJson = 0x04000000;
constexpr unsigned int kNullPointer = 0x05000000;
constexpr unsigned int kBufferTooSmall = 0x0C000000;

RebuildWorkgroupsMenuFunction sRebuild = nullptr;

template <class Function>
Function FindInHost(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

std::string Print(const json& value)
{
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

json ToRecord(const char* text) { return text != nullptr ? json(text) : json(); }

// The text that a buffer of this size holds.
json ToRecord(const char* buffer, size_t size)
{
    return buffer != nullptr ? json(std::string(buffer, strnlen(buffer, size))) : json();
}

// One call of a function: asks the host what it does, and writes the host's journal.
class Call {
public:
    Call(const char* function, json arguments) : mFunction(function), mArguments(Print(arguments))
    {
        static const auto sAnswer =
            FindInHost<HeadlessHostAnswerCoreFunction>("HeadlessHostAnswerCore");
        if (sAnswer != nullptr) sAnswer(mFunction, mArguments.c_str(), &answer);
        if (!answer.rebuildsMenu || sRebuild == nullptr) return;
        const CodeScope inPlugin(true);
        sRebuild();
    }

    // Writes the answer's text, or "" if it has none, to a buffer of this capacity.
    void PutText(char* buffer, size_t* ioSize)
    {
        const size_t capacity = *ioSize;
        if (capacity > 0 && answer.isRaw) {
            std::memcpy(buffer, answer.text, std::min(answer.textSize, capacity));
        } else if (capacity > 0 && answer.hasText && answer.textSize < capacity) {
            std::memcpy(buffer, answer.text, answer.textSize);
            buffer[answer.textSize] = '\0';
        } else if (capacity > 0) {
            buffer[0] = '\0';
            if (answer.hasText && answer.status == 0) answer.status = kBufferTooSmall;
        }
        if (answer.hasSize) *ioSize = answer.size;
    }

    unsigned int Return(json result = json::object()) const
    {
        static const auto sJournal = FindInHost<HeadlessHostJournalFunction>("HeadlessHostJournal");
        result["status"] = answer.status;
        if (sJournal != nullptr) {
            sJournal("core", mFunction, mArguments.c_str(), Print(result).c_str());
        }
        return answer.status;
    }

    HostAnswer answer = {};

private:
    const char* mFunction;
    std::string mArguments;
};

}  // namespace

#define EXPORT extern "C" __attribute__((visibility("default"))) unsigned int

EXPORT ActivateChosenFonts(const char* documentPath, const char* fontsJson, int* outValue)
{
    const CodeScope inCore(false);
    const Call call(__func__,
                    {{"documentPath", ToRecord(documentPath)}, {"fontsJson", ToRecord(fontsJson)}});
    if (call.answer.hasNumber) *outValue = call.answer.number;
    return call.Return();
}

EXPORT CreateMenusFromJSONBuffer(const char* menusJson, AddIllustratorMenuFunction callback,
                                 MenuItemHelp* help)
{
    const CodeScope inCore(false);
    Call call(__func__, {{"menusJson", ToRecord(menusJson)}});
    const bool walks = call.answer.status == 0;
    const auto add = [=](const plugincore::MenuNode& node, const char* parent) {
        const CodeScope inPlugin(true);
        return callback(node.id.c_str(), node.label.c_str(), node.title.c_str(), node.isChecked,
                        node.isEnabled, node.hasSubmenu, parent, help) == 0;
    };
    if (walks && !plugincore::WalkMenuTree(menusJson, add)) call.answer.status = kInvalidJson;
    return call.Return();
}

EXPORT GetAPIVersion(int* outVersion, int requiredVersion)
{
    const CodeScope inCore(false);
    const Call call(__func__, {{"requiredVersion", requiredVersion}});
    *outVersion = call.answer.hasNumber ? call.answer.number : kPluginCoreAPIVersion;
    return call.Return();
}

EXPORT GetIDForDocument(const char* documentPath, char* idBuffer, size_t* ioSize)
{
    const CodeScope inCore(false);
    const size_t capacity = *ioSize;
    Call call(__func__, {{"documentPath", ToRecord(documentPath)}});
    call.PutText(idBuffer, ioSize);
    return call.Return({{"id", ToRecord(idBuffer, capacity)}});
}

EXPORT GetMenus(const char* documentPath, char* buffer, size_t* ioSize)
{
    const CodeScope inCore(false);
    Call call(__func__, {{"documentPath", ToRecord(documentPath)}});
    const size_t capacity = *ioSize;
    const bool fits = buffer != nullptr && (call.answer.isRaw || call.answer.textSize < capacity);
    if (call.answer.status == 0 && call.answer.hasText && !fits) {
        call.answer.status = kBufferTooSmall;
        if (!call.answer.hasSize) *ioSize = call.answer.textSize + 1;
    }
    if (call.answer.hasSize) *ioSize = call.answer.size;
    if (fits) {
        size_t room = capacity;
        call.answer.hasSize = false;
        call.PutText(buffer, &room);
    }
    return call.Return({{"menus", ToRecord(buffer, capacity)}});
}

EXPORT GetSettings(char* buffer, size_t* ioSize)
{
    const CodeScope inCore(false);
    const size_t capacity = *ioSize;
    Call call(__func__, json::object());
    call.PutText(buffer, ioSize);
    return call.Return({{"settings", ToRecord(buffer, capacity)}});
}

EXPORT GetSocketPort(int* outPort)
{
    const CodeScope inCore(false);
    const Call call(__func__, json::object());
    if (call.answer.hasNumber) *outPort = call.answer.number;
    return call.Return({{"port", *outPort}});
}

EXPORT HandleCloseDocument(const char* path, const char* fontUsageJson)
{
    const CodeScope inCore(false);
    return Call(__func__, {{"path", ToRecord(path)}, {"fontUsageJson", ToRecord(fontUsageJson)}})
        .Return();
}

EXPORT HandleCreateNewDocument(char* idBuffer, size_t* ioSize)
{
    const CodeScope inCore(false);
    const size_t capacity = *ioSize;
    Call call(__func__, json::object());
    call.PutText(idBuffer, ioSize);
    return call.Return({{"id", ToRecord(idBuffer, capacity)}});
}

EXPORT HandleMenuSelection(const char* documentId, const char* lastKnownMenuState,
                           const char* menuKey, const char* fontUsageJson)
{
    const CodeScope inCore(false);
    (void)lastKnownMenuState;  // what GetMenus gave
    return Call(__func__, {{"documentId", ToRecord(documentId)},
                           {"menuKey", ToRecord(menuKey)},
                           {"fontUsageJson", ToRecord(fontUsageJson)}})
        .Return();
}

EXPORT HandleOpenExistingDocument(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    const CodeScope inCore(false);
    const size_t capacity = *ioSize;
    Call call(__func__, {{"path", ToRecord(path)}, {"ioJson", ToRecord(ioJson, capacity)}});
    call.PutText(ioJson, ioSize);
    if (call.answer.hasNumber) *outValue = call.answer.number;
    return call.Return({{"ioJson", ToRecord(ioJson, capacity)}});
}

EXPORT HandleSaveDocument(const char* path, const char* fontUsageJson)
{
    const CodeScope inCore(false);
    return Call(__func__, {{"path", ToRecord(path)}, {"fontUsageJson", ToRecord(fontUsageJson)}})
        .Return();
}

// As in the real PluginCore, ticks leave no line in the journal.
EXPORT IdleEvent()
{
    const CodeScope inCore(false);
    return Call(__func__, json::object()).answer.status;
}

EXPORT InitializePluginCoreInterface(const char* bundleIdentifier, const char* hostVersion)
{
    const CodeScope inCore(false);
    return Call(__func__, {{"bundleIdentifier", ToRecord(bundleIdentifier)},
                           {"hostVersion", ToRecord(hostVersion)}})
        .Return();
}

EXPORT InvokeCommandDialog(const char* documentPath, char* buffer, bool* outFlag)
{
    const CodeScope inCore(false);
    size_t capacity = 256;
    Call call(__func__, {{"documentPath", ToRecord(documentPath)}});
    if (call.answer.hasText) call.PutText(buffer, &capacity);
    if (call.answer.hasFlag) *outFlag = call.answer.flag;
    return call.Return();
}

EXPORT InvokeResolveDialog(char* ioJson, size_t* ioSize)
{
    const CodeScope inCore(false);
    const size_t capacity = *ioSize;
    Call call(__func__, {{"ioJson", ToRecord(ioJson, capacity)}});
    if (call.answer.hasText || call.answer.status != 0) call.PutText(ioJson, ioSize);
    return call.Return({{"ioJson", ToRecord(ioJson, capacity)}});
}

EXPORT PluginIsEnabled(bool request, bool* outEnabled)
{
    const CodeScope inCore(false);
    (void)request;  // every caller passes true
    const Call call(__func__, json::object());
    if (call.answer.hasFlag) *outEnabled = call.answer.flag;
    return call.Return({{"enabled", *outEnabled}});
}

EXPORT ProcessPanelMessages(int value)
{
    const CodeScope inCore(false);
    (void)value;  // every caller passes 1
    return Call(__func__, json::object()).answer.status;
}

EXPORT RegisterPlugPlug(SDKPlugPlug* plugPlug)
{
    const CodeScope inCore(false);
    Call call(__func__, json::object());
    if (plugPlug == nullptr && call.answer.status == 0) call.answer.status = kNullPointer;
    return call.Return();
}

EXPORT TerminatePluginCoreInterface()
{
    const CodeScope inCore(false);
    return Call(__func__, json::object()).Return();
}

EXPORT UpdateDocumentFontUsage(const char* documentId, const char* fontUsageJson)
{
    const CodeScope inCore(false);
    return Call(__func__,
                {{"documentId", ToRecord(documentId)}, {"fontUsageJson", ToRecord(fontUsageJson)}})
        .Return();
}

EXPORT SetRebuildWorkgroupsMenuCallback(RebuildWorkgroupsMenuFunction callback)
{
    const CodeScope inCore(false);
    sRebuild = callback;
    return Call(__func__, json::object()).Return();
}

// The plug-in must not call these four, and the host counts whether it does.
EXPORT InvokeRestrictedFontsDialog() { return Call(__func__, json::object()).Return(); }
EXPORT SetPathForDocument() { return Call(__func__, json::object()).Return(); }
EXPORT ShowNotLoggedInMessageBox() { return Call(__func__, json::object()).Return(); }
EXPORT ShouldShowLogin() { return Call(__func__, json::object()).Return(); }
