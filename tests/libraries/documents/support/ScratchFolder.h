#pragma once

#include <string>

#include "documents/OpenDocument.h"

// A folder of a test's own, removed with all that is in it.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& GetPath() const { return mPath; }

    // Gives the path of the new file.
    std::string Write(const std::string& name, const std::string& bytes) const;

private:
    std::string mPath;
};

std::string ReadWholeFile(const std::string& path);

// Opens the bytes as a file with that name.
documents::OpenResult OpenBytes(const std::string& bytes, const std::string& name = "document",
                                const documents::Limits& limits = {});
