#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/documents/Dialogs.h"
#include "plugin-core/documents/FontJson.h"
#include "plugin-core/services/Services.h"

namespace plugincore {

// Activates and releases fonts as documents are opened, saved and closed. Errors are thrown as
// Failure. [main-thread]
//
// The fonts of a document are those of its own text, those that its file lists without using them
// (see documents::GetAllFonts), and those in the files that it places. A document holds them from
// its opening to its close. A name that ends in -Identity-H or -Identity-V and is unknown stands
// for the font without that end, if there is one; stored usage reports keep the document's own
// name.
//
// No close event names a document that was first saved in this session: a new one, a copy of a
// template, or one saved under another name. Such a document is released as soon as one of these
// shows that it is closed:
//
//  - The host answers whether a path is open (see HostDocuments.h). It is asked at each idle time
//    and before each opening and saving. Only paths that were saved without having been opened are
//    asked for: a template's path isn't open itself while a copy of it is.
//  - All documents that were open when it was saved are closed: it is one of them. If one of them
//    was a blank document, whose close isn't reported either, this shows nothing.
//  - The host asks for the menus without a document: none is open.
//
// Until then it holds its fonts, at the longest until the host ends.
class DocumentFonts {
public:
    // The services have to outlive this object.
    explicit DocumentFonts(Services& services) : mServices(services) {}

    // Called before the user is asked. The document holds those of its fonts that PluginCore has
    // activated already.
    //
    // usage    its fonts; without fonts, they are read from the file at `path`
    // Returns the fonts that aren't active and are in the library, those of the text first, in the
    // document's order; none if `mode` is kOff.
    std::vector<std::string> Open(const std::string& path, Usage usage, ActivationMode mode);

    // Returns those of the names that are to be activated for the document of the last Open: all,
    // none or those that the user chooses, as `mode` says. Names that the user refuses are
    // remembered until the document is closed or opened again.
    std::vector<std::string> Choose(const std::vector<std::string>& names, ActivationMode mode);

    // Whether a request to activate fonts is followed: with no document ("") no user was asked, so
    // only if fonts are activated without asking.
    static bool CanActivate(const std::string& path, ActivationMode mode);

    // Activates the fonts for the document; for "", only those in the library. Returns the number
    // of fonts that weren't visible before. Throws Failure if some couldn't be activated; the
    // others are active even then.
    int Activate(const std::string& path, const std::vector<std::string>& names);

    // Stores the usage report, a JSON text, and makes the document hold exactly its fonts: new ones
    // are activated as at the opening, others are released. Reports don't name listed fonts: those
    // of the opening remain. Without a report, only the path gets an id. Idempotent: the report
    // that the close repeats changes nothing.
    void Save(const std::string& path, const std::string& usage, ActivationMode mode);

    // Releases the document in this process and stores the usage report, unless it is "" or the
    // document is a template: the report at its close is that of a document made from it.
    void Close(const std::string& path, const std::string& usage);

    // Releases the documents that were saved without having been opened and that the host doesn't
    // have open any more. Does nothing if the host doesn't say what is open.
    void ReleaseClosed();

    // The same when the host has shown that no document is open, also if it doesn't say what is
    // open.
    void ReleaseSaved();

    // Registers a new document without a path. Returns its id.
    std::string AddBlank();

    // Stores the present usage report of the document with this id. Throws Failure with kNotFound
    // for an unknown id.
    void Update(const std::string& id, const std::string& usage);

    struct Result {
        std::vector<std::string> activated;
        std::vector<std::string> missing;  // neither active nor readable in the library
    };

    // Activates all fonts of the document that the library has, regardless of the mode. `usage` as
    // for GetFonts.
    Result ActivateAll(const std::string& path, const std::string& usage);

    // Releases fonts that documents of this process hold and don't use. Returns the fonts that are
    // inactive now.
    std::vector<std::string> ReleaseUnused();

    // The known fonts of the document: those of the usage report `usage`, or of the stored one if
    // `usage` is "", the listed ones if it is open, and those in placed files.
    std::vector<std::string> GetFonts(const std::string& path, const std::string& usage);

    // Whether the user refused the font for this document.
    bool IsRefused(const std::string& path, const std::string& name) const
    {
        return mRefusals.HasFor(path, name);
    }

private:
    std::vector<std::string> GetAll(const std::string& path, const Usage& usage);
    int ActivateInactive(const std::string& path, const std::vector<std::string>& wanted);
    void ActivateNew(const std::string& path, const std::vector<std::string>& names,
                     ActivationMode mode);
    void SetUsed(const std::string& path, const std::vector<std::string>& names);
    void Release(const std::string& path);

    Services& mServices;
    Refusals mRefusals;
    bool mHasBlanks = false;
    std::set<std::string> mOpen;   // opened and not closed
    std::set<std::string> mSaved;  // saved without having been opened, and not released
    // The last known fonts of each document that holds fonts in this process.
    std::map<std::string, std::set<std::string>> mUsed;
    // The listed fonts of each open document, as of its last reading.
    std::map<std::string, std::vector<std::string>> mListed;
    // For each document in mSaved that was no blank one: the documents open at that time that
    // aren't closed yet. It is one of them.
    std::map<std::string, std::set<std::string>> mSavedAmong;
};

}  // namespace plugincore
