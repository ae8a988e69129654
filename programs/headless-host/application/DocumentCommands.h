#pragma once

#include <string>

#include "application/MessagePump.h"
#include "application/OpenReport.h"
#include "model/FileHeads.h"
#include "model/Host.h"

namespace headless {

// What a user does with open documents. Each command changes the host's documents and sends the
// plug-in the notifiers that belong to it, in the order of a real host. Main thread only.
class DocumentCommands {
public:
    // Both must outlive this object.
    DocumentCommands(Host& host, MessagePump& pump) : mHost(host), mPump(pump) {}

    // Makes a new document without a file the current one. The host owns it.
    DocumentObject* New();

    // Change the current document, which must exist: add a text frame, place a file, or only mark
    // the document as changed.
    //
    // path   absolute; not read
    void AddText(const std::string& postScriptName, const std::string& words);
    void Place(const std::string& path);
    void Change();

    // Saves the current document, which must exist, under its own path or under `path`, which is
    // its own from then on.
    //
    // path   absolute
    // Returns "", or one line without the path that says what is wrong; then the document and all
    // files are unchanged and no notifier is sent.
    std::string Save();
    std::string SaveAs(const std::string& path);

    // Closes a document, the current one or another. The plug-in is notified before the document is
    // removed and again after it. Deletes `document`.
    void Close(DocumentObject* document);

    // Writes to the journal what a plug-in can read in a file at present; see FileHeads.
    void RecordFile(const std::string& path) { mFiles.Record(mHost.journal, path); }

    // The state of a font of `document` by the host's list of active fonts, which is not refreshed.
    FontState GetFontState(const DocumentObject& document, const std::string& postScriptName);

private:
    void NotifySaved(const char* type);

    FileHeads mFiles;
    Host& mHost;
    MessagePump& mPump;
};

}  // namespace headless
