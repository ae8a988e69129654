#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace plugincore {

// The content of a document's file.
struct DocumentContent {
    std::vector<std::string> fonts;        // of the text
    std::vector<std::string> listedFonts;  // others that the program misses at the opening
    std::vector<std::string> linkedFiles;
};

// Finds the fonts in files that documents place: in .ai, .ait, .pdf and .eps files, and in the
// files that these place, to any depth. A relative path starts at the folder of the document that
// places the file; it is ignored if that document has no path yet. Results are cached until the
// file changes. [main-thread]
//
// A placed document that is missing, unreadable or placed inside itself is ignored and logged, once
// per document and process. There is a limit for the number of files, and reading all files of a
// document for the first time may take `seconds` together until it is closed: beyond these limits,
// an error is logged and the fonts found so far are returned.
class LinkedDocuments {
public:
    explicit LinkedDocuments(double seconds = 30) : mSeconds(seconds) {}

    // Reads a document's own file. Returns nothing if it can't be read.
    std::optional<DocumentContent> Read(const std::string& path);

    // Returns the fonts in the files `placed` of the document at path `document`, those of the text
    // and the listed ones, each once, in the order of the files.
    std::vector<std::string> GetFonts(const std::string& document,
                                      const std::vector<std::string>& placed);

    // Ends the time that was measured for a document: it is closed.
    void Forget(const std::string& document) { mSecondsSpent.erase(document); }

private:
    struct Entry {
        std::string state;  // of the file when it was read
        DocumentContent content;
        std::string error;
    };
    struct Walk;

    const Entry* FindFresh(const std::string& path) const;
    const Entry& Load(const std::string& path, double seconds);
    void Visit(const std::string& file, Walk& walk);
    void ReportOnce(const std::string& document, const std::string& file, const std::string& what);

    double mSeconds;
    std::map<std::string, double> mSecondsSpent;  // on files that each document places
    std::map<std::string, Entry> mEntries;
    std::set<std::pair<std::string, std::string>> mReported;
};

}  // namespace plugincore
