#pragma once

#include <string>

#include "HostTypes.h"

// The plug-in's memory of documents between two messages: one record per document handle. The null
// handle is a record like any other; it holds the path of the file that is being checked, until the
// document for it exists.
//
// A getter on a handle that isn't known makes an empty record: there is no question whether a
// document is known. Paths and texts are UTF-8. Main thread; nothing here fails.

struct DocumentData {
    std::string filePath;      // the bare name as long as the document has no file
    long timestamp = 0;        // the file's modification time at the open; 0 without a file
    std::string fontUsage;     // the usage report that was stored last
    std::string templatePath;  // empty unless the document was made from a template
};

void SetFilePathForDocumentHandle(_t_AIDocument* document, const std::string& path);
std::string GetFilePathForDocumentHandle(_t_AIDocument* document);

void SetTimestampForDocumentHandle(_t_AIDocument* document, long time);
long GetTimestampForDocumentHandle(_t_AIDocument* document);

void SetFontUsageForDocumentHandle(_t_AIDocument* document, const std::string& usage);
std::string GetFontUsageForDocumentHandle(_t_AIDocument* document);

void SetTemplatePathForDocumentHandle(_t_AIDocument* document, const std::string& path);
std::string GetTemplatePathForDocumentHandle(_t_AIDocument* document);

// The document with the lowest handle that was made from this template, letters compared without
// case byte by byte; null if there is none. Makes no record.
_t_AIDocument* GetDocumentHandleForTemplatePath(const std::string& path);

// Erases the record, if there is one.
void ForgetAboutDocumentHandle(_t_AIDocument* document);
