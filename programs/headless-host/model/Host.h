#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "checks/HandleRegister.h"
#include "checks/RuleViolations.h"
#include "checks/SuiteLedger.h"
#include "documents/OpenDocument.h"
#include "model/HostFonts.h"
#include "model/HostObjects.h"
#include "model/Journal.h"

namespace headless {

// What an alert or a dialog said.
struct Alert {
    std::string message;
    std::string information;
};

// All state of the host. The suites are plain functions, so there is one host at a time, which they
// find through GetCurrent. Main thread only.
class Host {
public:
    using DocumentReader = std::function<documents::OpenResult(const std::string& path)>;

    // `fontSource` must outlive the host. A second host at the same time is a mistake of the
    // caller: std::logic_error.
    Host(FontSource& fontSource, DocumentReader reader);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Null while there is none.
    static Host* GetCurrent();

    // Makes a document with its art; it becomes the current one. A template, and a document without
    // a path, becomes an untitled one with a bare name and without a file.
    DocumentObject* AddDocument(documents::Document content, const std::string& path);

    // Ends the handle of the document and of all that belongs to it. If it was the current one, the
    // one that was current before it becomes so again.
    void RemoveDocument(DocumentObject* document);

    void MakeCurrent(DocumentObject* document);

    // A new frame with a story of its own that holds one run.
    void AddText(DocumentObject& document, const documents::AddedText& text);
    void AddLink(DocumentObject& document, const std::string& path);

    // Null while none is open.
    DocumentObject* GetCurrentDocument() const
    {
        return mRecent.empty() ? nullptr : mRecent.back();
    }
    const std::vector<std::shared_ptr<DocumentObject>>& GetDocuments() const { return mDocuments; }

    RuleViolations violations;
    Journal journal;
    HandleRegister handles{violations};
    SuiteLedger suites{violations};
    HostFonts fonts;
    DocumentReader reader;

    void* plugin = nullptr;       // the guest, as it is called in messages
    void* globalsWord = nullptr;  // what the guest wants to have back with every message

    // What the guest has registered, in the order of registration.
    std::vector<void*> notifiers;
    std::vector<void*> fileFormats;
    std::vector<void*> timers;
    std::vector<void*> menuItems;
    std::vector<void*> menuGroups;
    size_t menuChanges = 0;  // how often an item or a group came or went

    std::vector<Alert> alerts;
    std::function<void(const Alert&)> alertSink;  // may be empty

private:
    void AddArt(DocumentObject& document, int16_t type, size_t index);

    std::vector<std::shared_ptr<DocumentObject>> mDocuments;
    std::vector<DocumentObject*> mRecent;  // the current one last
    int mUntitledCount = 0;
};

}  // namespace headless
