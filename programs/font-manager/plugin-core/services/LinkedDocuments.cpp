#include "plugin-core/services/LinkedDocuments.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <filesystem>

#include "base/Files.h"
#include "base/Utf8.h"
#include "documents/OpenDocument.h"
#include "plugin-core/storage/ErrorLog.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

using Clock = std::chrono::steady_clock;

// Real documents place far fewer files; the limit is for malicious ones.
constexpr size_t kMostFiles = 1000;
// Entries of the cache, which is cleared when it is full.
constexpr size_t kMostEntries = 4096;

bool IsDocumentByExtension(const fs::path& path)
{
    static const std::array<const char*, 4> kExtensions = {".ai", ".ait", ".pdf", ".eps"};
    return std::find(kExtensions.begin(), kExtensions.end(), base::GetLowerExtension(path)) !=
           kExtensions.end();
}

double GetSeconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

// Text that differs if the file may have changed; "" if the file doesn't exist.
std::string GetState(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error) return {};
    const auto modified = fs::last_write_time(file, error).time_since_epoch().count();
    return std::to_string(size) + ":" + std::to_string(modified);
}

// The same path for a file by whichever symbolic link it was reached.
std::string GetRealPath(const fs::path& path)
{
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    return error ? path.lexically_normal() : real;
}

}  // namespace

struct LinkedDocuments::Walk {
    std::string document;  // the path of the outermost document
    Clock::time_point end;
    std::vector<std::string> above;  // the files from the outermost to the present one
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

// The entry of a file that hasn't changed since it was read, or null.
const LinkedDocuments::Entry* LinkedDocuments::FindFresh(const std::string& path) const
{
    const auto found = mEntries.find(path);
    if (found == mEntries.end() || found->second.state.empty()) return nullptr;
    return found->second.state == GetState(path) ? &found->second : nullptr;
}

const LinkedDocuments::Entry& LinkedDocuments::Load(const std::string& path, double seconds)
{
    if (mEntries.size() > kMostEntries) mEntries.clear();
    if (const Entry* const fresh = FindFresh(path)) return *fresh;
    const std::string state = GetState(path);
    Entry& entry = mEntries[path];
    documents::Limits limits;
    const bool isCutShort = seconds < limits.seconds;
    limits.seconds = std::min(limits.seconds, seconds);
    limits.helperSeconds = std::min(limits.helperSeconds, seconds);
    documents::OpenResult result = documents::OpenDocument(path, limits);
    // Not cached: with more time the file may be readable.
    entry.state = isCutShort && !result.ok ? std::string() : state;
    entry.error = result.ok ? std::string() : result.error;
    entry.content = {};
    if (!result.ok) return entry;
    for (documents::DocumentFont& font : documents::GetAllFonts(result.document)) {
        (font.isListed ? entry.content.listedFonts : entry.content.fonts)
            .push_back(std::move(font.postScriptName));
    }
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
        ReportOnce(walk.document, {}, "too many placed documents; some were not read");
        return;
    }
    // What was read before takes no time, and its fonts must not be lost.
    const Entry* const known = FindFresh(real);
    double& spent = mSecondsSpent[walk.document];
    const auto before = mEntries.find(real);
    const bool isFirst = before == mEntries.end();
    // A file that the user changed is read even if the others have taken all the time.
    const bool isChanged = !isFirst && !before->second.state.empty();
    const double left = GetSeconds(walk.end - Clock::now());
    const double secondsLeft = isChanged ? left : std::min(left, mSeconds - spent);
    if (known == nullptr && secondsLeft <= 0) {
        ReportOnce(walk.document, {}, "its placed documents take too long; some were not read");
        return;
    }
    walk.visited.insert(real);
    const auto start = Clock::now();
    const Entry& entry = known != nullptr ? *known : Load(real, secondsLeft);
    const double seconds = GetSeconds(Clock::now() - start);
    if (known == nullptr && !isChanged && seconds >= secondsLeft) {
        spent = mSeconds;
    } else if (isFirst) {  // an unreadable file is tried at each call
        spent += seconds;
    }
    if (!entry.error.empty()) {
        ReportOnce(walk.document, real, "cannot be read: " + entry.error);
        return;
    }
    const DocumentContent content = entry.content;  // a copy: the visits below may clear the cache
    walk.Add(content.fonts);
    walk.Add(content.listedFonts);
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
    const std::string placed = file.empty() ? file : "the placed " + base::ToMessageText(file);
    LogError(base::ToMessageText(document) + ": " + placed + (placed.empty() ? "" : " ") + what);
}

}  // namespace plugincore
