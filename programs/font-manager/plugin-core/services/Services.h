#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/activation/Activation.h"
#include "plugin-core/activation/ProcessIdentity.h"
#include "plugin-core/activation/Programs.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/library/LibraryFolders.h"
#include "plugin-core/services/DocumentStore.h"
#include "plugin-core/services/LinkedDocuments.h"
#include "plugin-core/storage/Database.h"
#include "plugin-core/storage/Locations.h"

namespace plugincore {

// What there is between a start and a stop: the database and all that stands on it. Main thread.
struct Services {
    // Opens the database. Throws Failure.
    explicit Services(const Locations& places);
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    // Lists this process among the programs under the name, repairs what a killed process left and
    // indexes the library. Returns what was repaired.
    Activation::Repairs Start(const std::string& programName = GetNameOfThisProgram());

    // Drops this process's holds, deactivates what nobody holds and leaves the list.
    void Stop();

    struct ActiveNames {
        std::set<std::string> ours;    // through our folder
        std::set<std::string> others;  // without us
    };

    // What fontconfig shows at this moment.
    ActiveNames ListActive() const;

    struct ActiveFile {
        std::string file;  // as fontconfig tells it
        bool isOurs = false;
    };

    // The same with the files, by name.
    std::multimap<std::string, ActiveFile> ListActiveFiles() const;

    // Those of the names that fonts can be taken from the library for. If one isn't known, the
    // index is brought up to date first.
    std::vector<std::string> SelectFromLibrary(const std::vector<std::string>& names);

    // Takes over the user's choice of folders and of a library.
    void ApplyLibraryChoice();

    Locations locations;
    Database database;
    LibraryFolders folders;
    FontLibrary library;
    Programs programs;
    Activation activation;
    DocumentStore documentStore;
    LinkedDocuments linkedDocuments;
};

// The names in one line.
std::string JoinNames(const std::vector<std::string>& names);

}  // namespace plugincore
