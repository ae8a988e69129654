#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "CurrentDocument.h"
#include "HostInterface.h"

using nlohmann::json;

// The plug-in registers as a file format of its own, so that the host asks it about every file
// before the file is opened. Main thread.

// Registers the format. Returns 0 even if that failed.
AIErr AddFileFormat(SPInterfaceMessage* message);

// Returns the full path, in UTF-8, of the file that the message asks about. Throws ai::Error if the
// host fails.
std::string GetDocumentPathFromFileFormatMessage(AIFileFormatMessage* message);

// Lets PluginCore find the fonts of the file at `path`, offer them to the user and activate those
// that the user chose. Afterwards suppresses the host's missing-fonts dialog for a few seconds,
// unless the user chose nothing or a step failed.
//
// fontUsage  the document's fonts, or JSON null while only the path is known
// Does nothing if the plug-in is disabled. Throws the JSON library's exceptions.
void HandleCheckFileFormat(const std::string& path, const json& fontUsage);

// Returns whether one of the file's first 25 lines names version 8 of the host as its creator.
// Returns false for a file that can't be read.
bool IsEPSVersion8(const std::string& path);
