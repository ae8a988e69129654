#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/documents/Dialogs.h"
#include "plugin-core/services/Services.h"

namespace plugincore {

// What happens to fonts as documents are opened, saved and closed. Failures are thrown as Failure.
//
// The fonts of a document are those of its text and those in the files that it places. A document
// holds them from its opening to its close. One that was saved under a path that wasn't opened, as
// a new one or one saved under another name, is never told to be closed. It is one of those that
// were open at that moment, so it lets go when all of them are closed; and when there were new ones
// too, whose close nobody tells, it holds its fonts until the host ends.
class DocumentFonts {
public:
    // The services have to outlive this object.
    explicit DocumentFonts(Services& services) : mServices(services) {}

    // `fontsJson` is the document's fonts, or empty to have them read from the file. Returns those
    // that aren't active and are in the library, as JSON, those of the text first, each in the
    // document's order, or the empty text. Of the fonts that PluginCore activated already, the
    // document becomes a holder. Nothing is returned when activation is off.
    std::string Open(const std::string& path, const std::string& fontsJson, ActivationMode mode);

    // Those of the fonts that the user wants, as JSON, or the empty text.
    std::string Resolve(const std::string& fontsJson, ActivationMode mode);

    // Activates the fonts for the document; returns how many weren't visible before. Throws Failure
    // if one couldn't be activated; the others are then active all the same. For the empty path,
    // where nobody was asked, only what is in the library counts, and only if fonts are activated
    // without asking.
    int Activate(const std::string& path, const std::string& fontsJson, ActivationMode mode);

    // Keeps the usage and moves the document's holds: fonts that are new in it are activated as at
    // its opening, those that are gone from it are let go. An empty usage changes nothing. The same
    // report again, as it comes at the close, finds nothing to do.
    void Save(const std::string& path, const std::string& usage, ActivationMode mode);

    // Drops the document's holds in this process. A usage is kept, but not for a template: the one
    // that comes at its close is that of a document made from it.
    void Close(const std::string& path, const std::string& usage);

    // A blank document was made; returns its id.
    std::string AddBlank();

    // Keeps the present usage of a document that has an id.
    void Update(const std::string& id, const std::string& usage);

    struct Result {
        std::vector<std::string> activated;
        std::vector<std::string> missing;  // not active and not to be had
    };

    // Activates all fonts of the document that can be had, whatever the setting says.
    // `fontsJson` is a font list or the empty text.
    Result ActivateAll(const std::string& path, const std::string& fontsJson);

    // Lets go of what this process's documents hold and don't use; returns what was deactivated.
    std::vector<std::string> ReleaseUnused();

    // All fonts of the document as far as they are known: those in the list, if it isn't empty,
    // else those of the usage kept, and those in placed files.
    std::vector<std::string> GetFonts(const std::string& path, const std::string& fontsJson);

    // Whether the user said no to the font for this document.
    bool IsRefused(const std::string& path, const std::string& name) const
    {
        return mRefusals.HasFor(path, name);
    }

private:
    std::vector<std::string> Choose(const std::vector<std::string>& names, ActivationMode mode);
    std::vector<std::string> AddLinked(const std::string& path, std::vector<std::string> names,
                                       const std::vector<std::string>& placed);
    int ActivateInactive(const std::string& path, const std::vector<std::string>& wanted);
    void ActivateNew(const std::string& path, const std::vector<std::string>& names,
                     ActivationMode mode);
    void SetUsed(const std::string& path, const std::vector<std::string>& names);

    void Release(const std::string& path);

    Services& mServices;
    Refusals mRefusals;
    bool mHasBlanks = false;
    std::set<std::string> mOpen;  // opened and not closed
    // What is known to be used by each document that holds fonts in this process.
    std::map<std::string, std::set<std::string>> mUsed;
    // For a document that was saved and not opened, those that it may be.
    std::map<std::string, std::set<std::string>> mSavedAmong;
};

}  // namespace plugincore
