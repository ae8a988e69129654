#pragma once

#include <set>
#include <string>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// Stores for each document an id and its last usage report, by path. A path that was once opened or
// saved keeps its id forever. A blank document, which has no path yet, has an id as long as its
// process runs. Errors are thrown as Failure. [main-thread]
class DocumentStore {
public:
    // `holder` is the identity of this process. The database has to outlive this object.
    DocumentStore(Database& database, std::string holder);

    // Assigns an id to the path unless it has one. Ignores a name without a folder, which is the
    // title of a document without a file.
    void Remember(const std::string& path);

    // Returns the id of a path; "" for an unknown path.
    std::string GetId(const std::string& path);

    // Returns a new id for a blank document.
    std::string AddBlank();

    // Stores a usage report and assigns an id to the path. "" keeps the stored report.
    void StoreUsage(const std::string& path, const std::string& usage);

    // Stores a usage report for an id; "" keeps the stored report. Returns false for an unknown id.
    bool StoreUsageOfId(const std::string& id, const std::string& usage);

    // Returns the stored usage report of a path; "" if there is none.
    std::string GetUsage(const std::string& path);

    // Returns the path of an id; "" for a blank document or an unknown id.
    std::string GetPath(const std::string& id);

    // Stores the fonts of a document that this process has open, for other processes. Ignores a
    // name without a folder.
    void SetOpen(const std::string& path, const std::set<std::string>& fonts);

    // Reverses SetOpen.
    void SetClosed(const std::string& path);

    // Deletes the blank documents of this process, and what SetOpen has stored.
    void ForgetBlanks();

private:
    std::string GetColumn(const char* column, const std::string& path);

    Database& mDatabase;
    std::string mHolder;
};

}  // namespace plugincore
