#pragma once

#include <string>

#include "ScratchFolder.h"
#include "documents/OpenDocument.h"

// Returns an empty text if the file cannot be read.
std::string ReadWholeFile(const std::string& path);

// Writes `bytes` to a file called `name` and opens it as a document.
documents::OpenResult OpenBytes(const std::string& bytes, const std::string& name = "document",
                                const documents::Limits& limits = {});
