#include "plugin-core/panel/PanelFontFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "base/FileDescriptor.h"
#include "plugin-core/panel/PanelLimits.h"

namespace plugincore {
namespace {

enum FontStatus { kMissing = 404, kTooLarge = 413, kNotForBrowsers = 415 };

PanelFontPiece Refuse(int status)
{
    PanelFontPiece piece;
    piece.status = status;
    return piece;
}

struct FontId {
    int64_t file = 0;
    int64_t faceIndex = 0;
    int64_t modified = 0;
};

// Reads decimal numbers with hyphens between them and nothing else.
bool ReadFontId(const std::string& text, FontId& id)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int64_t* number : {&id.file, &id.faceIndex, &id.modified}) {
        if (number != &id.file) {
            if (at == end || *at != '-') return false;
            ++at;
        }
        const std::from_chars_result result = std::from_chars(at, end, *number);
        if (result.ec != std::errc() || *number < 0) return false;
        at = result.ptr;
    }
    return at == end;
}

// Returns the path of the file; "" if the library doesn't have this version of it.
std::string FindFontFile(Services& services, const FontId& id)
{
    Statement statement(services.database,
                        "SELECT path, library FROM font_file JOIN font_face ON file = id"
                        " WHERE id = ? AND face_index = ? AND modified = ?");
    statement.Bind(id.file).Bind(id.faceIndex).Bind(id.modified);
    if (!statement.Step()) return {};
    const std::vector<std::string> folders = services.folders.GetFolders();
    const bool isInLibrary =
        std::find(folders.begin(), folders.end(), statement.GetText(1)) != folders.end();
    return isInLibrary ? statement.GetText(0) : std::string();
}

// By the first bytes, as browsers decide. Returns "" for a format that browsers don't show.
std::string GetFontType(int file)
{
    std::array<char, 4> start = {};
    if (pread(file, start.data(), start.size(), 0) != static_cast<ssize_t>(start.size())) return {};
    const std::string_view tag(start.data(), start.size());
    if (tag == std::string_view("\0\1\0\0", 4) || tag == "true") return "font/ttf";
    if (tag == "OTTO") return "font/otf";
    if (tag == "ttcf") return "font/collection";
    return tag == "wOFF" ? "font/woff" : "";
}

}  // namespace

std::string MakePanelFontId(int64_t file, int64_t faceIndex, int64_t modified)
{
    return std::to_string(file) + "-" + std::to_string(faceIndex) + "-" + std::to_string(modified);
}

PanelFontPiece ReadPanelFontPiece(Services& services, const std::string& id, uint64_t offset)
{
    FontId parts;
    if (!ReadFontId(id, parts)) return Refuse(kMissing);
    const std::string path = FindFontFile(services, parts);
    if (path.empty()) return Refuse(kMissing);
    // Doesn't block if the path has become a FIFO.
    const base::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.IsValid() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return Refuse(kMissing);
    }
    PanelFontPiece piece;
    piece.type = GetFontType(file.Get());
    if (piece.type.empty()) return Refuse(kNotForBrowsers);
    piece.size = static_cast<uint64_t>(status.st_size);
    if (piece.size > PanelLimits::kFontFile) return Refuse(kTooLarge);
    piece.faceIndex = parts.faceIndex;
    if (offset >= piece.size) return Refuse(kMissing);  // it has become shorter
    piece.bytes.resize(std::min<uint64_t>(PanelLimits::kFontPiece, piece.size - offset));
    const ssize_t count =
        pread(file.Get(), piece.bytes.data(), piece.bytes.size(), static_cast<off_t>(offset));
    if (count <= 0) return Refuse(kMissing);
    piece.bytes.resize(static_cast<size_t>(count));
    return piece;
}

}  // namespace plugincore
