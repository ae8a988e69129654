#pragma once

#include <string>

#include "HostInterface.h"

// Questions about the host's current document, and whether the plug-in is enabled. Main thread.

// Returns the handle of the current document, or null if there is none.
_t_AIDocument* GetCurrentDocument();

// Writes the full path of the current document to `out` as UTF-8, or only its last component if
// `fileNameOnly` is true. A document without a file has just a name. Returns the host's status: if
// it isn't 0, `out` is unchanged; if it is 0, `out` can still be empty. Throws ai::Error if the
// host can't convert the path.
AIErr GetDocumentFileSpec(std::string* out, bool fileNameOnly);

// Replaces `out` by the path as UTF-8, or by its last component if `fileNameOnly` is true. Returns
// -1 if `out` is then empty, else 0. Throws ai::Error if the host fails.
AIErr GetAIPathAsUTF8String(const ai::FilePath& filePath, std::string& out, bool fileNameOnly);

// If `path` is a bare name, asks the host for the path of the current document. If that is a path
// with a folder, writes it to `path` and stores it for `document` in the registry. An empty `path`
// and one with a folder are left as they are.
void ReplaceBareName(_t_AIDocument* document, std::string& path);

// Asks PluginCore, which must be loaded, whether to follow documents.
bool IsPluginEnabled();
