#pragma once

#include <set>
#include <string>
#include <vector>

#include "ActivationFolder.h"
#include "Database.h"
#include "FontLibrary.h"

namespace plugincore {

// Which fonts of the library are active for the user, and which document in which process needs
// them. The tables are the truth and the folder is derived from them.
//
// A font stays active as long as any document of any live process holds it. What is active without
// PluginCore is neither held nor touched. A whole file comes and goes with each name in it: holding
// one name of a collection keeps all.
class Activation {
public:
    // `holder` is the identity of this process. The references have to outlive this object.
    Activation(Database& database, FontLibrary& library, ActivationFolder folder,
               std::string holder);

    struct Outcome {
        std::vector<std::string> activated;  // names asked for that weren't visible before
        std::vector<std::string> failed;     // names that no readable file has
    };

    // What a killed process left: drops the holds of processes that are gone and makes the folder
    // equal to the tables.
    void Repair();

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

    // The same for all documents of this process.
    void ReleaseAll();

    const ActivationFolder& GetFolder() const { return mFolder; }

private:
    std::string FindActiveFile(const std::string& name);
    std::string FindReadableFile(const std::string& name);
    void AddHold(const std::string& document, const std::string& name, const std::string& file);
    int64_t AddGroup();
    bool AddFile(const std::string& file, int64_t group, ActivationFolder::Links& links);
    ActivationFolder::Links GetLinks(int64_t group);
    std::vector<int64_t> GetGroups();
    void DropHoldsOfDeadProcesses();
    void DeactivateWhatNobodyHolds();
    void MakeFolderEqual();

    Database& mDatabase;
    FontLibrary& mLibrary;
    ActivationFolder mFolder;
    std::string mHolder;
};

}  // namespace plugincore
