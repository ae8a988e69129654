#pragma once

#include <memory>
#include <string>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// Writes one page of HTML about any number of documents: a summary, what is missing with the
// documents that need it, and each document with its fonts, drawn in the very font, and its placed
// files. The page needs no other file and no network; without JavaScript only its search is
// missing.
//
// The documents are kept in temporary files without a name, in the folder of the page, so that
// memory depends on the number of different fonts and not on that of the documents. The same
// documents in the same order give the same bytes as long as the font files are the same.
//
//     HtmlReport report("REPORT.html");
//     if (!report.GetError().empty()) ...        // cannot be written: known before any document
//     for (...) report.Add(document);
//     if (!report.Finish()) ...                  // GetError() says why
//
// Not thread-safe.
class HtmlReport {
public:
    // path   the page. An existing regular file is replaced by Finish, and only by it.
    // note   a line for the head of the page, such as date and machine; "" for none
    explicit HtmlReport(const std::string& path, const std::string& note = {});

    // Without Finish, leaves nothing and changes nothing.
    ~HtmlReport();

    HtmlReport(const HtmlReport&) = delete;
    HtmlReport& operator=(const HtmlReport&) = delete;

    // Adds a document behind the earlier ones. After an error it does nothing.
    void Add(const DocumentReport& document);

    // Writes the page and moves it into place. To be called once. Returns false after any error;
    // the file that was there is unchanged then.
    bool Finish();

    // "" or the first error: "PATH: cannot be written: No space left on device".
    const std::string& GetError() const;

private:
    class Parts;
    std::unique_ptr<Parts> mParts;
};

}  // namespace docfonts
