// Checks at compile time every layout that crosses a boundary, since the host, PluginCore and the
// plug-in are compiled separately.

#include <cstddef>

#include "HostInterface.h"
#include "PCILoader.h"
#include "PluginGlobals.h"
#include "SDKPlugPlug.h"

namespace {

constexpr size_t kWord = sizeof(void*);

#define PIN_OFFSET(type, member, offset) \
    static_assert(offsetof(type, member) == (offset), #type "::" #member " has moved")
#define PIN_SIZE(type, size) static_assert(sizeof(type) == (size), #type " has changed its size")

PIN_OFFSET(SPBasicSuite, AcquireSuite, 0);
PIN_OFFSET(SPBasicSuite, ReleaseSuite, kWord);
PIN_OFFSET(SPBasicSuite, IsEqual, 2 * kWord);
PIN_SIZE(SPBasicSuite, 3 * kWord);

PIN_OFFSET(SPMessageData, checkWord, 0);
PIN_OFFSET(SPMessageData, self, kWord);
PIN_OFFSET(SPMessageData, globals, 2 * kWord);
PIN_OFFSET(SPMessageData, basic, 3 * kWord);
PIN_SIZE(SPMessageData, 4 * kWord);

PIN_OFFSET(SPInterfaceMessage, d, 0);
PIN_SIZE(SPInterfaceMessage, 4 * kWord);

PIN_OFFSET(AINotifierMessage, d, 0);
PIN_OFFSET(AINotifierMessage, notifier, 4 * kWord);
PIN_OFFSET(AINotifierMessage, type, 5 * kWord);
PIN_OFFSET(AINotifierMessage, notifyData, 6 * kWord);
PIN_SIZE(AINotifierMessage, 7 * kWord);

PIN_OFFSET(AIMenuMessage, d, 0);
PIN_OFFSET(AIMenuMessage, menuItem, 4 * kWord);
PIN_SIZE(AIMenuMessage, 5 * kWord);

PIN_OFFSET(AITimerMessage, d, 0);
PIN_SIZE(AITimerMessage, 4 * kWord);

PIN_OFFSET(AIFileFormatMessage, d, 0);
PIN_OFFSET(AIFileFormatMessage, filePath, 4 * kWord);
PIN_SIZE(AIFileFormatMessage, 5 * kWord);

PIN_SIZE(ai::UnicodeString, kWord);
PIN_SIZE(ai::FilePath, kWord);
PIN_SIZE(ai::UnicodeString::Buffer, 2 * kWord);

PIN_OFFSET(AIMatchingArtSpec, type, 0);
PIN_OFFSET(AIMatchingArtSpec, whichAttr, 4);
PIN_OFFSET(AIMatchingArtSpec, attr, 8);
PIN_SIZE(AIMatchingArtSpec, 12);
PIN_OFFSET(AIArtSpec, type, 0);
PIN_OFFSET(AIArtSpec, whichAttr, 4);
PIN_OFFSET(AIArtSpec, attr, 8);
PIN_SIZE(AIArtSpec, 12);

PIN_OFFSET(PlatformAddFileFormatExData, numTypes, 0);
PIN_OFFSET(PlatformAddFileFormatExData, typeList, kWord);
PIN_OFFSET(PlatformAddFileFormatExData, title, 2 * kWord);
PIN_OFFSET(PlatformAddFileFormatExData, titleOrder, 3 * kWord);
PIN_OFFSET(PlatformAddFileFormatExData, extensions, 4 * kWord);
PIN_SIZE(PlatformAddFileFormatExData, 5 * kWord);

PIN_OFFSET(AIPlatformAddMenuItemDataUS, groupName, 0);
PIN_OFFSET(AIPlatformAddMenuItemDataUS, itemText, kWord);
PIN_SIZE(AIPlatformAddMenuItemDataUS, 2 * kWord);

PIN_OFFSET(SGlobals, globalsVersion, 0);
PIN_OFFSET(SGlobals, globalsString, kWord);
PIN_OFFSET(SGlobals, reserved, 2 * kWord);
PIN_OFFSET(SGlobals, pluginRef, 5 * kWord);
PIN_OFFSET(SGlobals, documentChangedNotifier, 6 * kWord);
PIN_OFFSET(SGlobals, documentOpenedNotifier, 7 * kWord);
PIN_OFFSET(SGlobals, documentAboutToCloseNotifier, 8 * kWord);
PIN_OFFSET(SGlobals, documentClosedNotifier, 9 * kWord);
PIN_OFFSET(SGlobals, documentNewNotifier, 10 * kWord);
PIN_OFFSET(SGlobals, startupNotifier, 11 * kWord);
PIN_OFFSET(SGlobals, shutdownNotifier, 12 * kWord);
PIN_OFFSET(SGlobals, menuChangedNotifier, 13 * kWord);
PIN_OFFSET(SGlobals, afterSaveNotifier, 14 * kWord);
PIN_OFFSET(SGlobals, afterSaveAsNotifier, 15 * kWord);
PIN_OFFSET(SGlobals, diskWritingCompleteNotifier, 16 * kWord);
PIN_OFFSET(SGlobals, fontListChangedNotifier, 17 * kWord);
PIN_OFFSET(SGlobals, timerHandle, 18 * kWord);
PIN_OFFSET(SGlobals, fileFormatHandle, 19 * kWord);
PIN_SIZE(SGlobals, 20 * kWord);

PIN_OFFSET(SDKPlugPlug, bundle, 0);
PIN_OFFSET(SDKPlugPlug, PlugPlugLoadExtension, kWord);
PIN_OFFSET(SDKPlugPlug, PlugPlugUnloadExtension, 2 * kWord);
PIN_OFFSET(SDKPlugPlug, PlugPlugAddEventListener, 3 * kWord);
PIN_OFFSET(SDKPlugPlug, PlugPlugRemoveEventListener, 4 * kWord);
PIN_OFFSET(SDKPlugPlug, PlugPlugDispatchEvent, 5 * kWord);
PIN_SIZE(SDKPlugPlug, 6 * kWord);

PIN_OFFSET(csxs::event::Event, type, 0);
PIN_OFFSET(csxs::event::Event, scope, kWord);
PIN_OFFSET(csxs::event::Event, appId, 2 * kWord);
PIN_OFFSET(csxs::event::Event, extensionId, 3 * kWord);
PIN_OFFSET(csxs::event::Event, data, 4 * kWord);
PIN_SIZE(csxs::event::Event, 5 * kWord);

// The loader has a virtual destructor, so its members follow a pointer to the virtual table.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
enum PluginCoreSlot {
#define COUNT_SLOT(name) kSlotOf##name,
    PLUGIN_CORE_FUNCTIONS(COUNT_SLOT)
#undef COUNT_SLOT
        kSlotCount
};
static_assert(kSlotCount == 26, "the table of PluginCore has 26 slots");
#define PIN_SLOT(name) PIN_OFFSET(PCILoader, pf##name, (1 + kSlotOf##name) * kWord);
PLUGIN_CORE_FUNCTIONS(PIN_SLOT)
#undef PIN_SLOT
static_assert(kSlotOfActivateChosenFonts == 0 && kSlotOfGetAPIVersion == 2 &&
                  kSlotOfHandleOpenExistingDocument == 10 &&
                  kSlotOfInvokeRestrictedFontsDialog == 16 &&
                  kSlotOfTerminatePluginCoreInterface == 21 && kSlotOfShouldShowLogin == 25,
              "the order of the table of PluginCore has changed");
PIN_OFFSET(PCILoader, frameworkPath, 27 * kWord);
#pragma GCC diagnostic pop

}  // namespace
