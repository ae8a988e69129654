#include "GetPathToRunningProcess.h"

#include <cstring>
#include <fstream>

#include "CoreErrorCodes.h"
#include "GFileSystemSpec.h"
#include "GScopedManagedMemory.h"

unsigned int GetPathToRunningProcessExe(const std::string& exeName, std::string& outDirectory)
{
    const GScopedManagedMemory managedMemory;
    for (const std::string& path : OSGetRunningExecutables()) {
        GFileSystemSpec executable(path.c_str());
        if (executable.GetLastPathComponent() != exeName) continue;
        outDirectory = executable.RemoveLastPathComponent().GetFullPath() + "/";
        return CoreErrorCodes::kSuccess;
    }
    return CoreErrorCodes::kUnknownError;
}

unsigned int GetConfiguredPath(const std::string& vendorFolder, const std::string& fileName,
                               const std::string& key, std::string& outValue)
{
    const GScopedManagedMemory managedMemory;
    std::string path;
    GetUsersAppDataDirectory(path);
    path += "/" + vendorFolder + "/" + fileName;
    if (!OSPathExists(path)) return CoreErrorCodes::kUnknownError;

    std::ifstream file(path);
    std::string line;
    while (file.good()) {
        std::getline(file, line);
        if (line.find(key) == std::string::npos) continue;
        if (GetValueAtEndOfThisLine(line.c_str(), &outValue)) return CoreErrorCodes::kSuccess;
    }
    return CoreErrorCodes::kUnknownError;
}

bool GetValueAtEndOfThisLine(char const* line, std::string* outValue)
{
    const char* const equals = std::strchr(line, '=');
    if (equals == nullptr) return false;
    const char* end = std::strchr(line, '\r');
    if (end == nullptr) end = std::strchr(line, '\n');
    if (end == nullptr) end = line + std::strlen(line);
    if (end <= equals) return false;
    outValue->assign(equals + 1, end);
    return true;
}
