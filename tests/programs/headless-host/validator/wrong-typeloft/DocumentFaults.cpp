#include <cstring>

#include "Fault.h"

// What PluginCore learns of documents.
namespace wrong {

namespace {

unsigned int StopCreatingAfterFailure(char* idBuffer, size_t* ioSize)
{
    static unsigned int sStatus = 0;
    if (sStatus == 0) sStatus = core::HandleCreateNewDocument(idBuffer, ioSize);
    return sStatus;
}

unsigned int StopSavingAfterException(const char* path, const char* fontUsageJson)
{
    static bool sHasThrown = false;
    if (sHasThrown) return 0;
    sHasThrown = true;
    const unsigned int status = core::HandleSaveDocument(path, fontUsageJson);
    sHasThrown = false;
    return status;
}

unsigned int BeEnabledAlways(bool request, bool* outEnabled)
{
    const unsigned int status = core::PluginIsEnabled(request, outEnabled);
    *outEnabled = true;
    return status;
}

unsigned int AskTwiceAfterStart(bool request, bool* outEnabled)
{
    static bool sIsStart = true;
    if (!sIsStart) (void)core::PluginIsEnabled(request, outEnabled);
    sIsStart = false;
    return core::PluginIsEnabled(request, outEnabled);
}

unsigned int AskAgainAfterFirstFile(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    static int sCalls = 0;
    if (++sCalls > 2) {
        std::string json = ioJson;
        json.resize(*ioSize);
        size_t size = json.size();
        int value = 0;
        (void)core::HandleOpenExistingDocument(path, json.data(), &size, &value);
    }
    return core::HandleOpenExistingDocument(path, ioJson, ioSize, outValue);
}

std::string sListToResolve;

unsigned int KeepListToResolve(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    const size_t capacity = *ioSize;
    const unsigned int status = core::HandleOpenExistingDocument(path, ioJson, ioSize, outValue);
    sListToResolve.assign(ioJson, strnlen(ioJson, capacity));
    return status;
}

unsigned int ActivateAll(const char* documentPath, const char*, int* outValue)
{
    return core::ActivateChosenFonts(documentPath, sListToResolve.c_str(), outValue);
}

unsigned int ResolveAll(char* ioJson, size_t* ioSize)
{
    // The buffer still has the capacity that the list fitted into.
    std::memcpy(ioJson, sListToResolve.c_str(), sListToResolve.size() + 1);
    return core::InvokeResolveDialog(ioJson, ioSize);
}

// A list that was cut behind a font becomes a list again.
unsigned int CloseCutList(const char* path, char* ioJson, size_t* ioSize, int* outValue)
{
    const size_t capacity = *ioSize;
    const unsigned int status = core::HandleOpenExistingDocument(path, ioJson, ioSize, outValue);
    const size_t length = strnlen(ioJson, capacity);
    if (length + 1 < capacity && length > 2 && ioJson[0] == '[' && ioJson[length - 1] == '}') {
        std::memcpy(ioJson + length, "]", 2);
    }
    return status;
}

unsigned int ReportEverySecondSave(const char* path, const char* fontUsageJson)
{
    static bool sIsSecond = true;
    sIsSecond = !sIsSecond;
    return sIsSecond ? core::HandleSaveDocument(path, fontUsageJson) : 0;
}

unsigned int ReportCloseTwice(const char* path, const char* fontUsageJson)
{
    (void)core::HandleCloseDocument(path, fontUsageJson);
    return core::HandleCloseDocument(path, fontUsageJson);
}

unsigned int ReportNewTwice(char* idBuffer, size_t* ioSize)
{
    size_t size = *ioSize;
    (void)core::HandleCreateNewDocument(idBuffer, &size);
    return core::HandleCreateNewDocument(idBuffer, ioSize);
}

unsigned int AnswerAboutWithSuccess(const char* documentPath, char* buffer, bool* outFlag)
{
    (void)core::InvokeCommandDialog(documentPath, buffer, outFlag);
    return 0;
}

unsigned int AskForLogin(const char* documentPath, char* buffer, bool* outFlag)
{
    (void)reinterpret_cast<unsigned int (*)()>(core::ShouldShowLogin)();
    return core::InvokeCommandDialog(documentPath, buffer, outFlag);
}

void ActivateUnchosen(PCILoader& loader)
{
    loader.pfHandleOpenExistingDocument = KeepListToResolve;
    loader.pfActivateChosenFonts = ActivateAll;
}

void ResolveDefaults(PCILoader& loader)
{
    loader.pfHandleOpenExistingDocument = KeepListToResolve;
    loader.pfInvokeResolveDialog = ResolveAll;
}

}  // namespace

const Fault kDocumentFaults[] = {
    {1106, nullptr, WRONG_CORE(HandleCreateNewDocument, StopCreatingAfterFailure)},
    {1107, nullptr, WRONG_CORE(HandleSaveDocument, StopSavingAfterException)},
    {1111, nullptr, WRONG_CORE(PluginIsEnabled, BeEnabledAlways)},
    {1112, nullptr, WRONG_CORE(PluginIsEnabled, AskTwiceAfterStart)},
    {1113, nullptr, WRONG_CORE(HandleOpenExistingDocument, AskAgainAfterFirstFile)},
    {1114, nullptr, ActivateUnchosen},
    {1115, nullptr, ResolveDefaults},
    {1116, nullptr, WRONG_CORE(HandleOpenExistingDocument, CloseCutList)},
    {1125, nullptr, WRONG_CORE(HandleSaveDocument, ReportEverySecondSave)},
    {1126, nullptr, WRONG_CORE(HandleCloseDocument, ReportCloseTwice)},
    {1127, nullptr, WRONG_CORE(HandleCreateNewDocument, ReportNewTwice)},
    {1128, nullptr, WRONG_CORE(InvokeCommandDialog, AnswerAboutWithSuccess)},
    {1130, nullptr, WRONG_CORE(InvokeCommandDialog, AskForLogin)},
    {0, nullptr, nullptr}};

}  // namespace wrong
