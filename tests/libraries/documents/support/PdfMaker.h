#pragma once

#include <map>
#include <string>

#include "documents/OpenDocument.h"

// Writes small PDFs by hand. Object 1 is the catalog, 2 the page tree, 3 the page, 4 its content,
// 5 the resources. /F1 is Alpha-Regular (object 10), /F2 Beta-Bold (11), /F3 the Type 0 font
// Gamma-Medium (12), /F4 a Type 3 font (14).
class PdfMaker {
public:
    PdfMaker();

    // The text of an object, without "obj" and "endobj".
    PdfMaker& Set(int number, const std::string& text);
    PdfMaker& SetContent(const std::string& content);
    PdfMaker& SetStream(int number, const std::string& dictionary, const std::string& data);
    // Further entries of the page's resources, as "/XObject << /X 20 0 R >>".
    PdfMaker& AddResources(const std::string& entries);
    PdfMaker& AddPageEntries(const std::string& entries);
    PdfMaker& AddTrailerEntries(const std::string& entries);

    std::string Make() const;
    documents::OpenResult Open(const documents::Limits& limits = {}) const;

private:
    std::map<int, std::string> mObjects;
    std::string mResources;
    std::string mPage;
    std::string mTrailer;
};

// zlib's format, as /FlateDecode has it.
std::string Deflate(const std::string& data);

// "Alpha-Regular:3 Beta-Bold:1 | Alpha-Regular:2": the runs of all frames.
std::string DescribeFrames(const documents::OpenResult& result);

// The same for one page with this content.
std::string DescribeContent(const std::string& content);
