#include "GFileSystem.h"

#include "CppCoreMacros.h"
#include "GLogger.h"
#include "GPlatformString.h"
#include "GScopedManagedMemory.h"

namespace {

void LogInvalidUTF8()
{
    GLogger* const logger = GLogger::GetSharedInstance();
    if (logger == nullptr) return;
    logger->LogWarning("FileSystem",
                       "GFileSystem::OSExpandPath(), called with invalid UTF8 Path. Attempting "
                       "convserion with other encodings.");
}

void LogException(const GPlatformException& exception)
{
    GLogger* const logger = GLogger::GetSharedInstance();
    if (logger == nullptr) return;
    logger->LogError("FileSystem", "GFileSystem::OSExpandPath(), exception caught\n- %s",
                     exception.what());
}

}  // namespace

unsigned int GFileSystem::OSExpandPath(std::string& path)
{
    unsigned int err = CoreErrorCodes::kSuccess;
    if (path.empty()) return err;

    const GScopedManagedMemory managedMemory;
    try {
        auto text = GPlatformString::MakeFromUTF8(path.c_str());
        if (!text) {
            LogInvalidUTF8();
            text = GPlatformString::MakeFromMacRoman(path.c_str());
        }
        if (!text) {
            err = kInvalidCharacterForFileSystemRepresentation;
        } else {
            path = text->GetExpandedFileSystemRepresentation();
        }
    } catch (const GPlatformException& exception) {
        LogException(exception);
        err = kInvalidCharacterForFileSystemRepresentation;
    }
    CHECK_CORE_CALL("FileSystem", 1, err);
    return err;
}
