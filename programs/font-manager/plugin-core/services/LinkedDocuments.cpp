#include "plugin-core/services/LinkedDocuments.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cmath>
#include <filesystem>

#include "documents/OpenDocument.h"
#include "documents/bytes/Utf8.h"
#include "plugin-core/storage/ErrorLog.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

using Clock = std::chrono::steady_clock;

// Placed files are few; this bounds what a document made to do harm can have read.
constexpr size_t kMostFiles = 1000;
// Each holds the names in one file.
constexpr size_t kMostEntries = 4096;

bool IsDocumentByExtension(const fs::path& path)
{
    static const std::array<const char*, 4> kExtensions = {".ai", ".ait", ".pdf", ".eps"};
    std::string extension = path.extension();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

// Differs whenever the file may have changed; empty if it isn't there.
std::string GetState(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error) return {};
    const auto modified = fs::last_write_time(file, error).time_since_epoch().count();
    return std::to_string(size) + ":" + std::to_string(modified);
}

// One name for a file, whatever links lead to it.
std::string GetRealPath(const fs::path& path)
{
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    return error ? path.lexically_normal() : real;
}

}  // namespace

struct LinkedDocuments::Walk {
    std::string document;  // at whose top the walk began
    Clock::time_point end;
    std::vector<std::string> above;  // the files that are being visited, outermost first
    std::set<std::string> visited;
    std::set<std::string> seen;
    std::vector<std::string> fonts;

    void Add(const std::vector<std::string>& names)
    {
        for (const std::string& name : names) {
            if (seen.insert(name).second) fonts.push_back(name);
        }
    }
};

const LinkedDocuments::Entry& LinkedDocuments::Load(const std::string& path, double seconds)
{
    const std::string state = GetState(path);
    if (mEntries.size() > kMostEntries) mEntries.clear();
    const auto [position, isNew] = mEntries.try_emplace(path);
    Entry& entry = position->second;
    if (!isNew && !state.empty() && entry.state == state) return entry;
    documents::Limits limits;
    const bool isCutShort = seconds < limits.seconds;
    limits.seconds = std::min(limits.seconds, seconds);
    limits.helperSeconds = std::min(limits.helperSeconds, seconds);
    documents::OpenResult result = documents::OpenDocument(path, limits);
    // With more time the answer may be another.
    entry.state = isCutShort && !result.ok ? std::string() : state;
    entry.error = result.ok ? std::string() : result.error;
    entry.content = {};
    if (!result.ok) return entry;
    entry.content.fonts = std::move(result.document.fonts);
    entry.content.linkedFiles = std::move(result.document.linkedFiles);
    return entry;
}

std::optional<DocumentContent> LinkedDocuments::Read(const std::string& path)
{
    const Entry& entry = Load(path, mSeconds);
    if (!entry.error.empty()) return std::nullopt;
    return entry.content;
}

std::vector<std::string> LinkedDocuments::GetFonts(const std::string& document,
                                                   const std::vector<std::string>& placed)
{
    Walk walk;
    walk.document = document;
    walk.end = Clock::now() + std::chrono::milliseconds(std::llround(mSeconds * 1000));
    walk.above.push_back(GetRealPath(document));
    const fs::path folder = fs::path(document).parent_path();
    for (const std::string& file : placed) {
        if (folder.is_absolute() || fs::path(file).is_absolute()) Visit(folder / file, walk);
    }
    return std::move(walk.fonts);
}

void LinkedDocuments::Visit(const std::string& file, Walk& walk)
{
    if (!IsDocumentByExtension(file)) return;
    const std::string real = GetRealPath(file);
    if (std::find(walk.above.begin(), walk.above.end(), real) != walk.above.end()) {
        ReportOnce(walk.document, real, "is placed inside itself");
        return;
    }
    if (walk.visited.count(real) != 0) return;
    if (walk.visited.size() == kMostFiles) {
        ReportOnce(walk.document, {}, "more placed documents than are looked into");
        return;
    }
    const double secondsLeft = std::chrono::duration<double>(walk.end - Clock::now()).count();
    if (secondsLeft <= 0) {
        ReportOnce(walk.document, {}, "its placed documents take too long to look into");
        return;
    }
    walk.visited.insert(real);
    const Entry& entry = Load(real, secondsLeft);
    if (!entry.error.empty()) {
        ReportOnce(walk.document, real, "can't be looked into: " + entry.error);
        return;
    }
    const DocumentContent content = entry.content;  // the visits below may move the entry
    walk.Add(content.fonts);
    walk.above.push_back(real);
    for (const std::string& inner : content.linkedFiles) {
        Visit(fs::path(real).parent_path() / inner, walk);
    }
    walk.above.pop_back();
}

void LinkedDocuments::ReportOnce(const std::string& document, const std::string& file,
                                 const std::string& what)
{
    if (!mReported.insert({document, file}).second) return;
    const std::string placed = file.empty() ? file : "the placed " + documents::ToMessageText(file);
    LogError(documents::ToMessageText(document) + ": " + placed + (placed.empty() ? "" : " ") +
             what);
}

}  // namespace plugincore
