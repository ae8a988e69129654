#include "docfonts/analysis/PlacedFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "documents/model/FileKind.h"

namespace docfonts {

namespace {

namespace fs = std::filesystem;

bool IsFile(const fs::path& path)
{
    std::error_code ignored;  // what cannot be examined is not there
    return fs::is_regular_file(path, ignored);
}

// The last component of a path of this system, of Windows, or of the old system of the Mac.
std::string GetLastName(const std::string& path)
{
    for (const char separator : {'/', '\\', ':'}) {
        const size_t place = path.rfind(separator);
        if (place != std::string::npos) return path.substr(place + 1);
    }
    return path;
}

}  // namespace

PlacedFile FindPlacedFile(const std::string& document, const std::string& path)
{
    PlacedFile file;
    file.path = path;
    const std::string name = GetLastName(path);
    if (name.empty() || path.find('\0') != std::string::npos) return file;
    const fs::path folder = fs::path(document).parent_path();
    const fs::path said = folder / path;  // `path` alone if it is absolute
    const fs::path beside = folder / name;
    if (IsFile(said)) {
        file.state = PlacedState::kFound;
        file.foundAt = said.string();
    } else if (IsFile(beside)) {
        file.state = PlacedState::kMoved;
        file.foundAt = beside.string();
    }
    return file;
}

bool IsDocumentFile(const std::string& path)
{
    if (!IsFile(path)) return false;
    constexpr std::streamsize kHeadBytes = 1024;
    std::string head(kHeadBytes, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), kHeadBytes);
    head.resize(static_cast<size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return documents::GetContainer(head) != documents::Container::kNone;
}

}  // namespace docfonts
