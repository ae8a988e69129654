#pragma once

#include <string>

#include "HostTypes.h"

// What the plug-in knows of each open document: one record per document handle. The record of the
// null handle holds the path of the file that is being checked, as long as there is no document for
// it.
//
// A getter creates an empty record for an unknown handle, so there is no way to ask whether a
// document is known. All strings are UTF-8. Main thread; nothing fails but for want of memory.

struct DocumentData {
    std::string filePath;      // the bare name as long as the document has no file
    long timestamp = 0;        // the file's modification time at the open; 0 without a file
    std::string fontUsage;     // the latest usage report
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

// Returns the lowest handle of a document that was made from this template, or null. Compares paths
// byte by byte and case-insensitively. Creates no record.
_t_AIDocument* GetDocumentHandleForTemplatePath(const std::string& path);

// Erases the document's record, if there is one.
void ForgetAboutDocumentHandle(_t_AIDocument* document);
