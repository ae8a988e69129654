#pragma once

#include <map>
#include <string>

#include "documents/OpenDocument.h"

// Writes small PDFs. Object 1 is the catalog, 2 the page tree, 3 the page, 4 its content, 5 its
// resources. The font /F1 is Alpha-Regular (object 10), /F2 Beta-Bold (11), /F3 the Type 0 font
// Gamma-Medium (12), /F4 a Type 3 font (14).
class PdfMaker {
public:
    PdfMaker();

    // Replaces an object. `text` is without "obj" and "endobj".
    PdfMaker& Set(int number, const std::string& text);
    PdfMaker& SetContent(const std::string& content);
    PdfMaker& SetStream(int number, const std::string& dictionary, const std::string& data);
    // Adds entries to the page's resources, such as "/XObject << /X 20 0 R >>".
    PdfMaker& AddResources(const std::string& entries);
    PdfMaker& AddPageEntries(const std::string& entries);
    PdfMaker& AddTrailerEntries(const std::string& entries);

    std::string Make() const;
    // Also expects the same answer from the PDF library, which reads files with faults, as from the
    // quick reader.
    documents::OpenResult Open(const documents::Limits& limits = {}) const;

private:
    std::map<int, std::string> mObjects;
    std::string mResources;
    std::string mPage;
    std::string mTrailer;
};

// Compresses `data` as zlib does, for /FlateDecode.
// `level` is zlib's.
std::string Deflate(const std::string& data, int level = 9);

// Makes the quick reader refuse a PDF, without another effect: its header isn't at its start.
std::string MakeIrregular(const std::string& pdf);

// Returns the whole answer as text, for comparisons.
std::string DescribeAnswer(const documents::OpenResult& result);

// Returns the runs of all frames, such as "Alpha-Regular:3 Beta-Bold:1 | Alpha-Regular:2".
std::string DescribeFrames(const documents::OpenResult& result);

// Does the same for a document of one page with this content.
std::string DescribeContent(const std::string& content);
