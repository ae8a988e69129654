#include "vexcor/commands/DatabaseRescue.h"

#include "plugin-core/storage/Database.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/system/System.h"

namespace fs = std::filesystem;
using plugincore::Failure;
using plugincore::StatusCodes;

namespace vexcor {

std::string FindDamage(const fs::path& database)
{
    std::error_code error;
    if (!fs::exists(database, error)) return {};
    try {
        return plugincore::Database(database).FindDamage();
    } catch (const plugincore::DamagedDatabase& damage) {
        return damage.what();
    }
}

fs::path Quarantine(const fs::path& database)
{
    // A program that has it open would continue to use the renamed file.
    std::string users;
    for (const int process : ListProcessesWithOpenFile(database)) {
        users += (users.empty() ? "" : ", ") + std::to_string(process);
    }
    if (!users.empty()) {
        throw Failure(StatusCodes::kDatabaseError, database.string() +
                                                       ": is damaged and in use by process " +
                                                       users + ", which must end first");
    }
    std::error_code error;
    fs::path renamed;
    for (int number = 1; renamed.empty() || fs::exists(renamed, error); ++number) {
        renamed = database.string() + ".damaged-" + std::to_string(number);
    }
    // The write-ahead log and the journal hold changes that aren't in the database yet. They are
    // renamed before it, because SQLite would apply them to a new database of the old name.
    for (const char* const suffix : {"-wal", "-journal", "-shm", ""}) {
        const fs::path file = database.string() + suffix;
        if (!fs::exists(file, error)) continue;
        fs::rename(file, renamed.string() + suffix, error);
        if (error) {
            throw Failure(StatusCodes::kDatabaseError,
                          file.string() + ": cannot be renamed: " + error.message());
        }
    }
    return renamed;
}

}  // namespace vexcor
