#include "OpenBytes.h"

#include <fstream>
#include <iterator>

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
