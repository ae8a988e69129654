#include "plugin-core/Exports.h"

#include <string>
#include <type_traits>
#include <vector>

#include "plugin-core/Buffers.h"
#include "plugin-core/CallRecord.h"
#include "plugin-core/Core.h"
#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/documents/Dialogs.h"
#include "plugin-core/documents/FontJson.h"
#include "plugin-core/menus/MenuJson.h"
#include "plugin-core/menus/MenuModel.h"
#include "plugin-core/panel/PanelBudget.h"
#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/storage/Database.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"
#include "plugin-core/storage/Locations.h"

using plugincore::ActivationMode;
using plugincore::CallRecord;
using plugincore::Core;
using plugincore::DocumentFonts;
using plugincore::Failure;
using plugincore::GetCore;
using plugincore::LogError;
using plugincore::ReadBuffer;
using plugincore::StatusCodes;
using plugincore::ToRecord;
using plugincore::WriteBuffer;

namespace {

// Each export must have the type by which the plug-in calls it. Those that the plug-in never calls
// have no declared type.
template <class Declared, class Defined>
constexpr bool HasDeclaredType()
{
    return std::is_same_v<Declared, Defined> || std::is_same_v<Declared, void*>;
}
#define CHECK_TYPE(name) \
    static_assert(HasDeclaredType<name##Function, decltype(&(name))>(), #name " differs");
PLUGIN_CORE_FUNCTIONS(CHECK_TYPE)
#undef CHECK_TYPE

template <class... Pointer>
bool IsAnyNull(Pointer... pointers)
{
    return ((pointers == nullptr) || ...);
}

// Turns exceptions into statuses: the callers may be written in C.
template <class Work>
unsigned int Guard(const char* name, Work work) noexcept
{
    try {
        return work();
    } catch (const plugincore::DamagedDatabase& damage) {
        LogError(std::string(name) + ": " + damage.what() + "; " + plugincore::kHintForDamage);
        return damage.GetStatus();
    } catch (const Failure& failure) {
        LogError(std::string(name) + ": " + failure.what());
        return failure.GetStatus();
    } catch (const std::exception& failure) {
        LogError(std::string(name) + ": " + failure.what());
        return StatusCodes::kUnknownError;
    } catch (...) {
        LogError(std::string(name) + ": unknown failure");
        return StatusCodes::kUnknownError;
    }
}

// Settings, and with them the mode, are read from where the environment says now.
ActivationMode GetMode()
{
    return plugincore::GetActivationMode(GetCore().GetSettings(),
                                         plugincore::GetLocations().settings);
}

// Reads the text in an in-out buffer and empties the buffer, which a failure then leaves empty.
std::string TakeBuffer(char* buffer, size_t size)
{
    std::string text = ReadBuffer(buffer, size);
    if (size != 0) buffer[0] = '\0';
    return text;
}

}  // namespace

unsigned int ActivateChosenFonts(const char* documentPath, const char* fontsJson, int* outValue)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object(
            {{"documentPath", ToRecord(documentPath)}, {"fontsJson", ToRecord(fontsJson)}});
    });
    if (IsAnyNull(documentPath, fontsJson, outValue)) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        DocumentFonts& documents = GetCore().GetRunning().documents;
        *outValue =
            DocumentFonts::CanActivate(documentPath, GetMode())
                ? documents.Activate(documentPath, plugincore::ReadFontNamesBeforeCut(fontsJson))
                : 0;
        return StatusCodes::kSuccess;
    }));
}

unsigned int CreateMenusFromJSONBuffer(const char* menusJson, AddIllustratorMenuFunction callback,
                                       MenuItemHelp* help)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"menusJson", ToRecord(menusJson)}});
    });
    if (IsAnyNull(menusJson, help) || !callback) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        plugincore::AddMenus(menusJson, callback, help);
        return StatusCodes::kSuccess;
    }));
}

unsigned int GetAPIVersion(int* outVersion, int requiredVersion)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"requiredVersion", requiredVersion}});
    });
    if (IsAnyNull(outVersion)) return StatusCodes::kNullPointer;
    *outVersion = kPluginCoreAPIVersion;
    return call.Return(requiredVersion == kPluginCoreAPIVersion ? StatusCodes::kSuccess
                                                                : StatusCodes::kVersionMismatch);
}

unsigned int GetIDForDocument(const char* documentPath, char* idBuffer, size_t* ioSize)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"documentPath", ToRecord(documentPath)}});
    });
    if (IsAnyNull(documentPath, idBuffer) || !ioSize) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        Core::Running& running = GetCore().GetRunning();
        WriteBuffer(running.services.documentStore.GetId(documentPath), idBuffer, *ioSize);
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"id", ToRecord(idBuffer)}});
    });
}

unsigned int GetMenus(const char* documentPath, char* buffer, size_t* ioSize)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"documentPath", ToRecord(documentPath)}});
    });
    if (IsAnyNull(documentPath) || !ioSize || (!buffer && *ioSize != 0)) {
        return StatusCodes::kNullPointer;
    }
    const unsigned int status = Guard(__func__, [&] {
        Core::Running* const running = GetCore().FindRunning();
        plugincore::MenuState state = plugincore::GetMenuState(
            GetCore().GetSettings(), running ? &running->services : nullptr);
        state.hasDocument = documentPath[0] != '\0';
        if (running && !state.hasDocument) running->documents.ReleaseSaved();
        const std::string menus = plugincore::MakeMenus(state);
        if (!buffer || *ioSize <= menus.size()) {
            if (buffer && *ioSize != 0) buffer[0] = '\0';
            *ioSize = menus.size() + 1;
            return StatusCodes::kIndexOutOfRange;
        }
        WriteBuffer(menus, buffer, *ioSize);
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"menus", ToRecord(buffer)}});
    });
}

unsigned int GetSettings(char* buffer, size_t* ioSize)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    if (IsAnyNull(buffer) || !ioSize) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        const std::string settings =
            GetCore().GetSettings().GetAsJson(plugincore::GetLocations().settings);
        WriteBuffer(settings, buffer, *ioSize);
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"settings", ToRecord(buffer)}});
    });
}

unsigned int GetSocketPort(int* outPort)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    if (IsAnyNull(outPort)) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        *outPort = GetCore().GetRunning().GetPanelPort();
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] { return nlohmann::json::object({{"port", *outPort}}); });
}

unsigned int HandleCloseDocument(const char* path, const char* fontUsageJson)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object(
            {{"path", ToRecord(path)}, {"fontUsageJson", ToRecord(fontUsageJson)}});
    });
    if (IsAnyNull(path, fontUsageJson)) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        GetCore().GetRunning().documents.Close(path, fontUsageJson);
        return StatusCodes::kSuccess;
    }));
}

unsigned int HandleCreateNewDocument(char* idBuffer, size_t* ioSize)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    if (IsAnyNull(idBuffer) || !ioSize) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        WriteBuffer(GetCore().GetRunning().documents.AddBlank(), idBuffer, *ioSize);
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"id", ToRecord(idBuffer)}});
    });
}

unsigned int HandleMenuSelection(const char* documentId, const char* lastKnownMenuState,
                                 const char* menuKey, const char* fontUsageJson)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"documentId", ToRecord(documentId)},
                                       {"menuKey", ToRecord(menuKey)},
                                       {"fontUsageJson", ToRecord(fontUsageJson)}});
    });
    if (IsAnyNull(documentId, lastKnownMenuState, menuKey, fontUsageJson)) {
        return StatusCodes::kNullPointer;
    }
    return call.Return(Guard(__func__, [&] {
        GetCore().GetRunning().commands.Select(menuKey, documentId, fontUsageJson);
        return StatusCodes::kSuccess;
    }));
}

unsigned int HandleOpenExistingDocument(const char* path, char* ioJson, size_t* ioSize,
                                        int* outValue)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"path", ToRecord(path)}, {"ioJson", ToRecord(ioJson)}});
    });
    if (IsAnyNull(path, ioJson) || !ioSize || !outValue) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        const std::string text = TakeBuffer(ioJson, *ioSize);
        DocumentFonts& documents = GetCore().GetRunning().documents;
        const ActivationMode mode = GetMode();
        const plugincore::Usage usage =
            text.empty() ? plugincore::Usage() : plugincore::ReadUsageWithFontsBeforeCut(text);
        std::vector<std::string> names = documents.Open(path, usage, mode);
        WriteBuffer(plugincore::WriteFontNamesWithin(names, *ioSize), ioJson, *ioSize);
        *outValue = static_cast<int>(names.size());
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"ioJson", ToRecord(ioJson)}});
    });
}

unsigned int HandleSaveDocument(const char* path, const char* fontUsageJson)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object(
            {{"path", ToRecord(path)}, {"fontUsageJson", ToRecord(fontUsageJson)}});
    });
    if (IsAnyNull(path, fontUsageJson)) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        DocumentFonts& documents = GetCore().GetRunning().documents;
        documents.Save(path, fontUsageJson, GetMode());
        return StatusCodes::kSuccess;
    }));
}

unsigned int IdleEvent()
{
    return Guard(__func__, [] {
        GetCore().Idle();
        return StatusCodes::kSuccess;
    });
}

unsigned int InitializePluginCoreInterface(const char* bundleIdentifier, const char* hostVersion)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"bundleIdentifier", ToRecord(bundleIdentifier)},
                                       {"hostVersion", ToRecord(hostVersion)}});
    });
    if (IsAnyNull(bundleIdentifier, hostVersion)) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [] {
        GetCore().Start();
        return StatusCodes::kSuccess;
    }));
}

unsigned int InvokeCommandDialog(const char* documentPath, char* buffer, bool* outFlag)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"documentPath", ToRecord(documentPath)}});
    });
    if (IsAnyNull(documentPath, buffer) || !outFlag) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        plugincore::ShowAlert("Corvanta Fonts",
                              plugincore::MakeAboutText(GetCore().GetRunning().services));
        *outFlag = true;
        return StatusCodes::kSuccess;
    }));
}

unsigned int InvokeResolveDialog(char* ioJson, size_t* ioSize)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object({{"ioJson", ToRecord(ioJson)}});
    });
    if (IsAnyNull(ioJson) || !ioSize) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        const std::string text = TakeBuffer(ioJson, *ioSize);
        DocumentFonts& documents = GetCore().GetRunning().documents;
        const ActivationMode mode = GetMode();
        const std::vector<std::string> names = plugincore::ReadFontNamesBeforeCut(text);
        // If all are wanted, the text goes back unchanged, with members that we don't know.
        const std::string chosen = mode == ActivationMode::kAutomatic
                                       ? text
                                       : plugincore::WriteFontNames(documents.Choose(names, mode));
        WriteBuffer(chosen, ioJson, *ioSize);
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] {
        return nlohmann::json::object({{"ioJson", ToRecord(ioJson)}});
    });
}

unsigned int PluginIsEnabled(bool request, bool* outEnabled)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    (void)request;  // every caller passes true
    if (!outEnabled) return StatusCodes::kNullPointer;
    const unsigned int status = Guard(__func__, [&] {
        const std::string setting = GetCore().GetSettings().Get(plugincore::GetLocations().settings,
                                                                plugincore::kEnabledSetting);
        *outEnabled = setting != "0";
        return StatusCodes::kSuccess;
    });
    return call.Return(status, [&] { return nlohmann::json::object({{"enabled", *outEnabled}}); });
}

unsigned int ProcessPanelMessages(int value)
{
    (void)value;  // every caller passes 1
    return Guard(__func__, [] {
        Core::Running* const running = GetCore().FindRunning();
        if (running && running->panel) {
            running->panel->Serve(
                plugincore::PanelBudget(plugincore::PanelLimits::kTickMicroseconds));
        }
        return StatusCodes::kSuccess;
    });
}

unsigned int RegisterPlugPlug(SDKPlugPlug* plugPlug)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    return call.Return(plugPlug ? StatusCodes::kSuccess : StatusCodes::kNullPointer);
}

unsigned int TerminatePluginCoreInterface()
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    return call.Return(Guard(__func__, [] {
        GetCore().Stop();
        return StatusCodes::kSuccess;
    }));
}

unsigned int UpdateDocumentFontUsage(const char* documentId, const char* fontUsageJson)
{
    const CallRecord call(__func__, [&] {
        return nlohmann::json::object(
            {{"documentId", ToRecord(documentId)}, {"fontUsageJson", ToRecord(fontUsageJson)}});
    });
    if (IsAnyNull(documentId, fontUsageJson)) return StatusCodes::kNullPointer;
    return call.Return(Guard(__func__, [&] {
        GetCore().GetRunning().documents.Update(documentId, fontUsageJson);
        return StatusCodes::kSuccess;
    }));
}

unsigned int SetRebuildWorkgroupsMenuCallback(RebuildWorkgroupsMenuFunction callback)
{
    const CallRecord call(__func__, [] { return nlohmann::json::object(); });
    if (!callback) return call.Return(StatusCodes::kNullPointer);
    GetCore().SetRebuildCallback(callback);
    return call.Return(StatusCodes::kSuccess);
}

unsigned int InvokeRestrictedFontsDialog() { return StatusCodes::kSuccess; }
unsigned int SetPathForDocument() { return StatusCodes::kSuccess; }
unsigned int ShowNotLoggedInMessageBox() { return StatusCodes::kSuccess; }
unsigned int ShouldShowLogin() { return StatusCodes::kSuccess; }
