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
    // Who has it open would go on with the old one.
    std::string users;
    for (const int process : ListProcessesWithOpenFile(database)) {
        users += (users.empty() ? "" : ", ") + std::to_string(process);
    }
    if (!users.empty()) {
        throw Failure(
            StatusCodes::kDatabaseError,
            database.string() + ": is damaged, and open in process " + users + "; end that first");
    }
    std::error_code error;
    fs::path aside;
    for (int number = 1; aside.empty() || fs::exists(aside, error); ++number) {
        aside = database.string() + ".damaged-" + std::to_string(number);
    }
    // The rows that aren't in the database itself yet go with it, and before it: a new database
    // must never meet them.
    for (const char* const suffix : {"-wal", "-journal", "-shm", ""}) {
        const fs::path file = database.string() + suffix;
        if (!fs::exists(file, error)) continue;
        fs::rename(file, aside.string() + suffix, error);
        if (error) {
            throw Failure(StatusCodes::kDatabaseError,
                          file.string() + ": cannot be moved: " + error.message());
        }
    }
    return aside;
}

}  // namespace vexcor
