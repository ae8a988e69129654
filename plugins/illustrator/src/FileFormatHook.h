#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "HostInterface.h"

using nlohmann::json;

// The plug-in registers as a file format of its own, so that the host asks it about every file that
// is about to be opened. Main thread.

// Registers the format; 0 also if that failed.
AIErr AddFileFormat(SPInterfaceMessage* message);

// The full path of the file in question, in UTF-8. Throws ai::Error if the host fails.
std::string GetDocumentPathFromFileFormatMessage(AIFileFormatMessage* message);

// Has PluginCore find, offer and activate the fonts of the file at `path`. `fontUsage` holds the
// document's fonts, or null as long as nothing but the path is known. When all went well, the
// host's missing-fonts dialog is held back for a few seconds. May throw the JSON library's errors.
void HandleCheckFileFormat(const std::string& path, const json& fontUsage);

// Whether one of the file's first 25 lines names version 8 of the host as its creator.
bool IsEPSVersion8(const std::string& path);

// Replaces `out` by the path, or by its last component. 0 if `out` isn't empty then, else -1.
// Throws ai::Error if the host fails.
AIErr GetAIPathAsUTF8String(const ai::FilePath& filePath, std::string& out, bool fileNameOnly);

// The current document's handle, or null.
_t_AIDocument* GetCurrentDocument();

// The current document's path, or its bare name if it has no file. The host's status; with a status
// other than 0 `out` stays as it was, and with 0 it can still be empty.
AIErr GetDocumentFileSpec(std::string* out, bool fileNameOnly);
