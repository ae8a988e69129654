#pragma once

#include <set>
#include <string>
#include <vector>

#include "plugin-core/activation/ActivationFolder.h"
#include "plugin-core/activation/Programs.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/storage/Database.h"

namespace plugincore {

// Which fonts of the library are active for the user, and which document in which process needs
// them. The tables are the truth and the folder is derived from them.
//
// A font stays active as long as any document of any live process holds it. What is active without
// PluginCore is neither held nor touched. A whole file comes and goes with each name in it: holding
// one name of a collection keeps all.
//
// Several processes may work at once, and each may be killed at any moment. What changes tables and
// folder does so under the database's write lock, and first puts right what a killed process left.
class Activation {
public:
    // `holder` is the identity of this process, which is in the list of programs whenever something
    // is changed. The references have to outlive this object.
    Activation(Database& database, FontLibrary& library, Programs& programs,
               ActivationFolder folder, std::string holder);

    struct Outcome {
        std::vector<std::string> activated;  // names asked for that weren't visible before
        std::vector<std::string> failed;     // names that no readable file has
    };

    // One document's need for a name.
    struct HoldOfDocument {
        std::string document;
        std::string file;
        std::string holder;  // identity of the process
    };

    // What a repair found, as texts for the user.
    struct Repairs {
        std::vector<std::string> gonePrograms;
        std::vector<std::string> droppedHolds;
        std::vector<std::string> deactivatedFiles;
        std::vector<std::string> folderChanges;
        bool IsEmpty() const
        {
            return gonePrograms.empty() && deactivatedFiles.empty() && folderChanges.empty();
        }
    };

    // What a killed process left: drops the holds of processes that are gone, deactivates what
    // nobody holds and makes the folder equal to the tables.
    Repairs Repair();

    // The same if a process was killed since the last look, or a change of this one failed half
    // way. Takes no lock if there is nothing to do.
    Repairs RepairIfNeeded();

    // Makes the document hold those of the names that PluginCore activated; returns them.
    std::set<std::string> Hold(const std::string& document, const std::vector<std::string>& names);

    // Activates the names as one group and makes the document hold them. The empty document, one
    // that never had a file and is closed by nobody, only holds what wasn't active yet.
    Outcome Activate(const std::string& document, const std::vector<std::string>& names);

    // Drops this process's holds of the document, and deactivates what nobody holds any more.
    void Release(const std::string& document);

    // The same for single names. What the document doesn't hold is passed over.
    void Release(const std::string& document, const std::vector<std::string>& names);

    // The names that a document of this process holds.
    std::set<std::string> GetHeld(const std::string& document);

    // The documents of this process that hold something.
    std::vector<std::string> GetHolders();

    // All names that are active through the folder, whoever holds them.
    std::set<std::string> GetActive();

    // The file that makes the name active through the folder, empty if none does.
    std::string FindActiveFile(const std::string& name);

    // Who holds the name, by document.
    std::vector<HoldOfDocument> ListHolds(const std::string& name);

    // The same for all documents of this process.
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
    void DropHoldsOfGonePrograms(Repairs& repairs);
    std::vector<std::string> DeactivateWhatNobodyHolds();
    void MakeFolderEqual(Repairs& repairs);
    Outcome ActivateInTransaction(const std::string& document,
                                  const std::vector<std::string>& names);

    Database& mDatabase;
    FontLibrary& mLibrary;
    Programs& mPrograms;
    ActivationFolder mFolder;
    std::string mHolder;
    bool mMayDiffer = false;  // the folder was changed and the tables weren't
};

}  // namespace plugincore
