#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace plugincore {

// What the file of a document holds.
struct DocumentContent {
    std::vector<std::string> fonts;
    std::vector<std::string> linkedFiles;
};

// The fonts inside files that documents place. Looked into are .ai, .ait, .pdf and .eps files, to
// any depth; a relative path counts from the folder of the document that places it, and is
// passed over if that document has no file yet. What was read is kept for as long as the file stays
// as it is.
//
// A placed document that is missing or can't be read, and one that is placed inside itself, adds
// nothing and is told on standard error, once for each document in this process. So is it when
// there are too many, or when all of a document together take longer than `seconds`; the fonts that
// were found until then count.
class LinkedDocuments {
public:
    explicit LinkedDocuments(double seconds = 30) : mSeconds(seconds) {}

    // The content of a document's own file, or nothing if it can't be read.
    std::optional<DocumentContent> Read(const std::string& path);

    // The fonts in the files that `document` places, each once, in the order of the files.
    std::vector<std::string> GetFonts(const std::string& document,
                                      const std::vector<std::string>& placed);

private:
    struct Entry {
        std::string state;  // of the file when it was read
        DocumentContent content;
        std::string error;
    };
    struct Walk;

    const Entry& Load(const std::string& path, double seconds);
    void Visit(const std::string& file, Walk& walk);
    void ReportOnce(const std::string& document, const std::string& file, const std::string& what);

    double mSeconds;
    std::map<std::string, Entry> mEntries;
    std::set<std::pair<std::string, std::string>> mReported;
};

}  // namespace plugincore
