#include "ScratchFolder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

ScratchFolder::ScratchFolder() : mPath(testing::TempDir() + "documents-XXXXXX")
{
    if (mkdtemp(mPath.data()) == nullptr) throw std::runtime_error("no scratch folder");
}

ScratchFolder::~ScratchFolder()
{
    std::error_code error;
    std::filesystem::remove_all(mPath, error);
}

std::string ScratchFolder::Write(const std::string& name, const std::string& bytes) const
{
    std::string path = mPath + "/" + name;
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    return path;
}

std::string ReadWholeFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

documents::OpenResult OpenBytes(const std::string& bytes, const std::string& name,
                                const documents::Limits& limits)
{
    const ScratchFolder folder;
    return documents::OpenDocument(folder.Write(name, bytes), limits);
}
