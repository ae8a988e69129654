#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "checks/HandleRegister.h"
#include "checks/RuleViolations.h"
#include "checks/SuiteLedger.h"
#include "documents/OpenDocument.h"
#include "model/CallFaults.h"
#include "model/HostFonts.h"
#include "model/HostObjects.h"
#include "model/Journal.h"
#include "model/RecordedFonts.h"
#include "model/TextWalkLimit.h"

namespace headless {

// The texts of an alert.
struct Alert {
    std::string message;
    std::string information;
};

// All state of the host: its documents, what the plug-in has registered, and the checks on the
// plug-in. Suite operations are plain functions, which find the host with GetCurrent, so only one
// host can exist at a time. Main thread only.
class Host {
public:
    using DocumentReader = std::function<documents::OpenResult(const std::string& path)>;

    // fontSource   must outlive the host
    // reader       reads the documents that the host opens; may throw
    // Throws std::logic_error if there is a host already.
    Host(FontSource& fontSource, DocumentReader reader);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Null while there is no host.
    static Host* GetCurrent();

    // Adds a document with its art and makes it the current one. The host owns the result.
    //
    // path   absolute; empty for a new document. A new document, and a copy of a template, has no
    //        file and is called "Untitled-1", "Untitled-2" …
    DocumentObject* AddDocument(documents::Document content, const std::string& path);

    // Deletes a document; its handle and all that it owns expire. If it was the current one, the
    // document that was current before becomes current.
    void RemoveDocument(DocumentObject* document);

    void MakeCurrent(DocumentObject* document);

    // Adds a text frame, with a story of its own of one run.
    void AddText(DocumentObject& document, const documents::AddedText& text);

    // Adds a placed file.
    void AddLink(DocumentObject& document, const std::string& path);

    // Marks a document as changed by the user since it was saved, or as saved under a path.
    void MarkChanged(DocumentObject& document);
    void MarkSaved(DocumentObject& document, const std::string& path);

    // Returns a handle of a file's path, which the host owns until RemovePath.
    void* AddPath(const std::string& path);
    void RemovePath(void* handle);

    // Null while no document is open.
    DocumentObject* GetCurrentDocument() const
    {
        return mRecent.empty() ? nullptr : mRecent.back();
    }

    // In the order in which they were added.
    const std::vector<std::shared_ptr<DocumentObject>>& GetDocuments() const { return mDocuments; }

    RuleViolations violations;
    Journal journal;
    HandleRegister handles{violations};
    SuiteLedger suites{violations};
    RecordedFonts recordedFonts;  // what `fonts` asks, in place of the source itself
    HostFonts fonts;
    TextWalkLimit walkLimit;
    DocumentReader reader;

    void* plugin = nullptr;       // the plug-in's handle, part of every message
    AIErr lastAnswer = 0;         // what the plug-in returned for the last message
    void* globalsWord = nullptr;  // the plug-in's globals pointer, passed back in every message

    // Handles of what the plug-in has registered, in the order of registration.
    std::vector<void*> notifiers;
    std::vector<void*> fileFormats;
    std::vector<void*> timers;
    std::vector<void*> menuItems;
    std::vector<void*> menuGroups;
    size_t menuChanges = 0;  // number of items and groups added or removed so far

    // Operations of suites, by their names, whose next call does nothing and returns this status.
    std::map<std::string, AIErr> failures;

    // The same by number, for the suites and for PluginCore.
    CallFaults suiteFaults;
    CallFaults coreFaults;

    // Suites that the host doesn't have.
    std::set<std::string> lackingSuites;

    // The versions of suites that the host offers in another version than usual.
    std::map<std::string, int> suiteVersions;

    // Whether this call of a suite shall fail, which `failures` and `suiteFaults` say. Counts it.
    //
    // call                    the operation as CallFaults has it
    // status, exceptionType   out: what it shall return, and throw; the second is empty for nothing
    bool TakeFailure(const char* operation, const char* call, AIErr& status,
                     std::string& exceptionType);

    // What happens inside of the next call of an operation or function of PluginCore, by its name.
    std::multimap<std::string, std::function<void()>> duringCalls;

    // Does what belongs to the beginning of a call: runs what happens inside of it.
    void BeginCall(const char* name);

    // Called by BeginCall with its argument; may be empty.
    std::function<void(const std::string& operation)> beforeCall;

    // Saves a document in place of the host's own writers; may be empty. Returns "", or one line
    // about what is wrong.
    std::function<std::string(DocumentObject& document, const std::string& path)> writer;

    std::vector<Alert> alerts;
    std::function<void(const Alert&)> alertSink;  // called for each alert; may be empty

private:
    void AddArt(DocumentObject& document, int16_t type, size_t index);
    void Record(const char* change, const void* handle, nlohmann::json args);

    std::vector<std::shared_ptr<DocumentObject>> mDocuments;
    std::vector<DocumentObject*> mRecent;  // in the order of use; the current document is the last
    int mUntitledCount = 0;
};

}  // namespace headless
