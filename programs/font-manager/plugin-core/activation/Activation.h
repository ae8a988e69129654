#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/activation/ActivationFolder.h"
#include "plugin-core/activation/Programs.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/storage/Database.h"

namespace plugincore {

// Activates fonts of the library for the user, and records which document in which process holds
// them. The database's tables are authoritative; the activation folder is derived from them.
//
// A font remains active as long as a document of a running process holds it and its file can be
// read. If the file is gone, the font is deactivated and its holds are deleted: when the next
// program starts, when a document asks for the font, or by RepairIfNeeded. Fonts that are active
// without PluginCore are neither held nor changed. Fonts are activated by file: holding one name of
// a collection keeps all of its names active.
//
// Several processes may use the tables and the folder at the same time, and each can be killed at
// any moment. Every change is made under the database's write lock and repairs first what a killed
// process left. Errors are thrown as Failure; tables and folder are unchanged then. [main-thread]
class Activation {
public:
    // `holder` is the identity of this process. It must be in the list of programs before anything
    // is changed. The references have to outlive this object.
    Activation(Database& database, FontLibrary& library, Programs& programs,
               ActivationFolder folder, std::string holder);

    struct Outcome {
        std::vector<std::string> activated;  // requested names that weren't active before
        std::vector<std::string> failed;     // requested names that no readable file has
    };

    // A document that holds a name.
    struct HoldOfDocument {
        std::string document;
        std::string file;
        std::string holder;  // identity of the process that has the document open
    };

    // What Repair changed, in words for the user.
    struct Repairs {
        std::vector<std::string> gonePrograms;
        std::vector<std::string> droppedHolds;
        std::vector<std::string> deactivatedFiles;
        std::vector<std::string> goneFiles;  // were active, and can't be read any more
        std::vector<std::string> folderChanges;
        bool IsEmpty() const
        {
            return gonePrograms.empty() && deactivatedFiles.empty() && goneFiles.empty() &&
                   folderChanges.empty();
        }
    };

    // Repairs what a killed process left: deletes the holds of processes that no longer run,
    // deactivates fonts that no document holds and makes the folder match the tables.
    Repairs Repair();

    // The same, but only if a listed process no longer runs, a change by this process failed
    // halfway or a file is gone: each call looks at the next few active files. Otherwise takes no
    // lock.
    Repairs RepairIfNeeded();

    // Makes the document hold those of the names that PluginCore has activated. Returns them.
    std::set<std::string> Hold(const std::string& document, const std::vector<std::string>& names);

    // Activates the names as one group and makes the document hold them. The document "" has no
    // path, so no close event releases it: it only holds names that weren't active before.
    Outcome Activate(const std::string& document, const std::vector<std::string>& names);

    // Deletes the holds that the document has in this process and deactivates fonts that no
    // document holds now.
    void Release(const std::string& document);

    // The same for some names. Names that the document doesn't hold are ignored.
    void Release(const std::string& document, const std::vector<std::string>& names);

    // The names that the document holds in this process.
    std::set<std::string> GetHeld(const std::string& document);

    // The documents that hold names in this process.
    std::vector<std::string> GetHolders();

    // All names that are active through the folder, for any process.
    std::set<std::string> GetActive();

    // The file through which the name is active in the folder; "" if it isn't.
    std::string FindActiveFile(const std::string& name);

    // The same for all names that are active.
    std::map<std::string, std::string> ListActiveFiles();

    // The file by which the name was active until this object found that the file is gone; "" if
    // there is none.
    std::string FindGoneFile(const std::string& name) const;

    // All holds of the name, sorted by document.
    std::vector<HoldOfDocument> ListHolds(const std::string& name);

    // Releases all documents of this process.
    void ReleaseAll();

    const ActivationFolder& GetFolder() const { return mFolder; }

private:
    template <class Work>
    auto RunInTransaction(Work work);
    template <class Work>
    auto Change(Work work);
    void RestoreFolder() noexcept;
    std::string FindReadableFile(const std::string& name);
    void AddHold(const std::string& document, const std::string& name, const std::string& file);
    int64_t AddGroup();
    bool AddFile(const std::string& file, int64_t group, ActivationFolder::Links& links);
    ActivationFolder::Links GetLinks(int64_t group);
    std::vector<int64_t> GetGroups();
    void RepairInTransaction(Repairs& repairs);
    void DeleteHoldsOfGonePrograms(Repairs& repairs);
    std::vector<std::string> DeactivateUnheld();
    bool IsNextFileGone();
    std::vector<std::string> DeactivateGone();
    void MakeFolderMatch(Repairs& repairs);
    Outcome ActivateInTransaction(const std::string& document,
                                  const std::vector<std::string>& names);

    Database& mDatabase;
    FontLibrary& mLibrary;
    Programs& mPrograms;
    ActivationFolder mFolder;
    std::string mHolder;
    std::map<std::string, std::string> mGoneFiles;  // by name
    std::string mLastLookedAt;  // the last active file of which RepairIfNeeded knows that it exists
    bool mMayDiffer = false;    // the folder was changed and the tables may not have been
};

}  // namespace plugincore
