#include <cstring>

#include "DialogSuppression.h"
#include "Fault.h"
#include "HostPlatformTable_Linux.h"

// The period in which the missing-fonts dialog is dismissed.
namespace wrong {

namespace {

BeginModalSessionFunction sBegin = nullptr;  // the plug-in's own hook
bool sIsDisabled = false;
bool sBeginsLongPeriod = false;

// Lets the sound plug-in start and puts a function in front of its hook.
template <BeginModalSessionFunction Begin>
AIErr HookAtStart(Message& message)
{
    const AIErr result = message.Send();
    SHostPlatform* const platform = FindHostPlatform();
    if (message.Is("SP Interface", "Startup") && platform != nullptr && sBegin == nullptr) {
        sBegin = platform->beginModalSession;
        platform->beginModalSession = Begin;
    }
    return result;
}

ModalSession BeginNothing(ModalWindow*) { return nullptr; }

ModalSession KeepSession(ModalWindow* window)
{
    static int sOwnSession = 0;
    (void)sBegin(window);
    return &sOwnSession;
}

ModalSession ForgetJapanese(ModalWindow* window)
{
    const char* const fonts = "\xE3\x83\x95\xE3\x82\xA9\xE3\x83\xB3\xE3\x83\x88";
    if (window != nullptr && OSTitleContains(window->GetTitle(), fonts)) {
        SetSuppressionOfMissingFontsDialog(0);
    }
    return sBegin(window);
}

ModalSession EndPeriodAfterDialog(ModalWindow* window)
{
    const ModalSession session = sBegin(window);
    SetSuppressionOfMissingFontsDialog(0);
    return session;
}

// The text is not a list, which leads neither to a period nor to a dialog of PluginCore.
unsigned int ResolveSomethingAlways(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    const unsigned int status = core::HandleOpenExistingDocument(path, ioJson, ioSize, outValue);
    if (*ioJson == '\0') std::memcpy(ioJson, "-", 2);
    return status;
}

unsigned int TakeFailedActivation(const char* documentPath, const char* fontsJson, int* outValue)
{
    (void)core::ActivateChosenFonts(documentPath, fontsJson, outValue);
    return 0;
}

unsigned int FailActivation(const char* documentPath, const char* fontsJson, int* outValue)
{
    (void)core::ActivateChosenFonts(documentPath, fontsJson, outValue);
    return kCoreNotFound;
}

unsigned int NoteNothingToResolve(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    const unsigned int status = core::HandleOpenExistingDocument(path, ioJson, ioSize, outValue);
    sBeginsLongPeriod = *ioJson == '\0';
    return status;
}

AIErr BeginLongPeriod(Message& message)
{
    const AIErr result = message.Send();
    if (sBeginsLongPeriod) SetSuppressionOfMissingFontsDialog(60);
    sBeginsLongPeriod = false;
    return result;
}

unsigned int GetNoSettings(char* buffer, size_t* ioSize)
{
    (void)core::GetSettings(buffer, ioSize);
    return kCoreNotFound;
}

unsigned int NoteDisabled(bool request, bool* outEnabled)
{
    const unsigned int status = core::PluginIsEnabled(request, outEnabled);
    sIsDisabled = !*outEnabled;
    return status;
}

AIErr HookWhileDisabled(Message& message)
{
    const AIErr result = message.Send();
    if (message.Is("SP Interface", "Startup") && sIsDisabled) InitSuppressionHooks();
    return result;
}

}  // namespace

const Fault kPeriodFaults[] = {
    {1201, HookAtStart<BeginNothing>, nullptr},
    {1202, HookAtStart<KeepSession>, nullptr},
    {1203, nullptr, WRONG_CORE(HandleOpenExistingDocument, ResolveSomethingAlways)},
    {1204, HookAtStart<ForgetJapanese>, nullptr},
    {1205, nullptr, WRONG_CORE(ActivateChosenFonts, TakeFailedActivation)},
    {1206, BeginLongPeriod, WRONG_CORE(HandleOpenExistingDocument, NoteNothingToResolve)},
    {1207, HookAtStart<EndPeriodAfterDialog>, nullptr},
    {1210, nullptr, WRONG_CORE(GetSettings, GetNoSettings)},
    {1211, HookWhileDisabled, WRONG_CORE(PluginIsEnabled, NoteDisabled)},
    {1212, nullptr, WRONG_CORE(ActivateChosenFonts, FailActivation)},
    {0, nullptr, nullptr}};

}  // namespace wrong
