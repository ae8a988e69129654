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

// The database and the objects that work on it. They exist while PluginCore is started.
// [main-thread]
struct Services {
    // Opens the database. `places` are the locations for the whole lifetime. Throws Failure.
    explicit Services(const Locations& places);
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    // Enters this process in the list of programs, repairs what a killed process left and indexes
    // the library. Returns the repairs. Throws Failure.
    Activation::Repairs Start(const std::string& programName = GetNameOfThisProgram());

    // Releases all holds of this process, deactivates fonts that no process holds and removes this
    // process from the list of programs. Throws Failure.
    void Stop();

    struct ActiveNames {
        std::set<std::string> ours;    // in the activation folder
        std::set<std::string> others;  // anywhere else
    };

    // The PostScript names that fontconfig lists now. A name can be in both sets.
    ActiveNames ListActive() const;

    struct ActiveFile {
        std::string file;  // the path that fontconfig reports
        bool isOurs = false;
    };

    // The same with the files of each name.
    std::multimap<std::string, ActiveFile> ListActiveFiles() const;

    // Returns the names that the library has, in their order. Updates the index first if it lacks
    // one of them.
    std::vector<std::string> SelectFromLibrary(const std::vector<std::string>& names);

    // Returns the names under which a document's fonts exist (FontName.h: ChooseFontName), without
    // repeats if one differs.
    std::vector<std::string> MatchFontNames(const std::vector<std::string>& names);

    // Reads the user's choice of folders and of a library, which another process may have changed.
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

// The names separated by ", ".
std::string JoinNames(const std::vector<std::string>& names);

}  // namespace plugincore
