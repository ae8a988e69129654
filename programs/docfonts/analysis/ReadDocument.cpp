#include "docfonts/analysis/ReadDocument.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <new>
#include <set>
#include <unordered_map>
#include <utility>

#include "docfonts/analysis/PlacedFiles.h"
#include "documents/OpenDocument.h"
#include "documents/model/DocumentFacts.h"

namespace docfonts {

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kNoMemory[] = "too large: not enough memory";

// Real documents place far fewer documents; the limit is for malicious ones.
constexpr size_t kMostPlacedDocuments = 1000;

// The part of the time after which no placed document is begun: the rest is for the answer.
constexpr double kShareForPlaced = 0.9;

Embedding Translate(documents::Embedding embedding)
{
    switch (embedding) {
        case documents::Embedding::kNo:
            return Embedding::kNo;
        case documents::Embedding::kSubset:
            return Embedding::kSubset;
        case documents::Embedding::kWhole:
            return Embedding::kWhole;
        case documents::Embedding::kUnknown:
            break;
    }
    return Embedding::kUnknown;
}

// Takes the names in comments as the text, and knows nothing of its use.
constexpr char kCommentsReader[] = "dsc";

class FontTable {
public:
    explicit FontTable(const documents::Document& document)
    {
        for (const documents::DocumentFont& font : documents::GetAllFonts(document)) {
            mPlaces.emplace(font.postScriptName, mFonts.size());
            mFonts.emplace_back();
            mFonts.back().postScriptName = font.postScriptName;
            mFonts.back().isListed = font.isListed;
        }
        if (document.reader != kCommentsReader) CountUse(document);
        for (const documents::PageFont& pageFont : document.pageFonts) {
            UsedFont* const font = Find(pageFont.postScriptName);
            if (font != nullptr) font->embedding = Translate(pageFont.embedding);
        }
        for (const auto& [name, words] : document.words) {
            if (UsedFont* const font = Find(name)) font->words = words;
        }
    }

    std::vector<UsedFont> Take() { return std::move(mFonts); }

private:
    void CountUse(const documents::Document& document)
    {
        for (const documents::Story& story : document.stories) {
            for (const documents::TextRun& run : story.runs) {
                if (UsedFont* const font = Find(run.postScriptName)) {
                    ++font->runs;
                    font->characters += run.length;
                }
            }
        }
        for (const documents::TextFrame& frame : document.frames) {
            std::set<UsedFont*> inFrame;
            for (const documents::TextRun& run : frame.runs) {
                inFrame.insert(Find(run.postScriptName));
            }
            inFrame.erase(nullptr);
            for (UsedFont* const font : inFrame) ++font->frames;
        }
    }

    UsedFont* Find(const std::string& name)
    {
        const auto place = mPlaces.find(name);
        return place == mPlaces.end() ? nullptr : &mFonts[place->second];
    }

    std::vector<UsedFont> mFonts;
    std::unordered_map<std::string, size_t> mPlaces;
};

DocumentReport ReadOne(const std::string& path, documents::Limits limits)
{
    limits.hasDetails = true;
    const documents::OpenResult result = documents::OpenDocument(path, limits);
    if (!result.ok && result.error == kNoMemory) throw std::bad_alloc();
    const documents::Document& document = result.document;
    DocumentReport report;
    report.path = path;
    report.format = documents::GetKindName(document.kind);
    report.error = result.error;
    documents::CopyFacts(document, report);
    report.fonts = FontTable(document).Take();
    std::set<std::string> seen;
    for (const std::string& file : document.linkedFiles) {
        if (seen.insert(file).second) report.placed.push_back(FindPlacedFile(path, file));
    }
    return report;
}

// The file, by whichever path it is reached.
using FileIdentity = std::pair<dev_t, ino_t>;

FileIdentity Identify(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? FileIdentity(status.st_dev, status.st_ino)
                                            : FileIdentity();
}

}  // namespace

DocumentReport ReadDocument(const std::string& path, const ReadingOptions& options)
{
    const auto start = Clock::now();
    documents::Limits limits;
    limits.seconds = options.seconds;
    limits.helperBytes = options.helperBytes;
    DocumentReport report = ReadOne(path, limits);
    if (!options.readsPlacedDocuments) return report;
    std::set<FileIdentity> visited = {Identify(path)};
    std::deque<std::string> todo;
    const auto note = [&](const DocumentReport& document) {
        for (const PlacedFile& file : document.placed) {
            if (file.state != PlacedState::kMissing) todo.push_back(file.foundAt);
        }
    };
    note(report);
    for (; !todo.empty(); todo.pop_front()) {
        const std::string& file = todo.front();
        if (!visited.insert(Identify(file)).second || !IsDocumentFile(file)) continue;
        if (report.placedDocuments.size() == kMostPlacedDocuments) {
            report.note += report.note.empty() ? "" : "; ";
            report.note += "too many placed documents; some were not read";
            break;
        }
        const double left = options.seconds * kShareForPlaced -
                            std::chrono::duration<double>(Clock::now() - start).count();
        DocumentReport placed;
        if (left > 0) {
            limits.seconds = left;
            limits.helperSeconds = std::min(limits.helperSeconds, left);
            placed = ReadOne(file, limits);
        } else {
            placed.path = file;
            placed.format = documents::GetKindName(documents::Kind::kUnknown);
            placed.error = "not read: the document that places it took all the time";
        }
        note(placed);
        report.placedDocuments.push_back(std::move(placed));
    }
    return report;
}

}  // namespace docfonts
