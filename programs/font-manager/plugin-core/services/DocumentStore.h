#pragma once

#include <string>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// What is kept of documents: an id that lasts for each path that was opened or saved, and the last
// font usage. A blank document has an id and no path, and is forgotten with its process.
class DocumentStore {
public:
    // `holder` is the identity of this process. The database has to outlive this object.
    DocumentStore(Database& database, std::string holder);

    // From now on the path has an id. A known path keeps its own. A bare name, without a folder, is
    // that of a document without a file and gets none.
    void Remember(const std::string& path);

    // The id of a path, empty for one that isn't known.
    std::string GetId(const std::string& path);

    // A fresh id.
    std::string AddBlank();

    // Keeps the usage; an empty one leaves what was kept. The path is remembered.
    void StoreUsage(const std::string& path, const std::string& usage);

    // The same for a document that has an id; false if none has it.
    bool StoreUsageOfId(const std::string& id, const std::string& usage);

    // The usage kept for a path, empty if there is none.
    std::string GetUsage(const std::string& path);

    // The path that has this id, empty if none has.
    std::string GetPath(const std::string& id);

    // Forgets the blank documents of this process.
    void ForgetBlanks();

private:
    std::string GetColumn(const char* column, const std::string& path);

    Database& mDatabase;
    std::string mHolder;
};

}  // namespace plugincore
