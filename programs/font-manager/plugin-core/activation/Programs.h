#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// The programs that work with the database at the moment. A program is listed before it changes
// anything that others have to put right after it, and leaves the list when all is done: one that
// is listed and doesn't run any more was killed. A process that holds fonts or blank documents
// counts as listed.
class Programs {
public:
    struct Program {
        std::string identity;
        std::string name;  // of its executable; empty if it isn't known
    };

    // `identity` is that of this process. The database has to outlive this object.
    Programs(Database& database, std::string identity)
        : mDatabase(database), mIdentity(std::move(identity))
    {
    }

    // Lists this process under the name. Once more gives it another name.
    void Enter(const std::string& name);
    void Leave();

    // The same, unless another running program has that name: then it is returned, and this process
    // isn't listed.
    std::optional<Program> EnterAlone(const std::string& name);

    std::vector<Program> List();

    // Those of the list that don't run any more. Takes no lock, and little time: a system call or
    // two for each program.
    std::vector<Program> ListGone();

    // Takes a program off the list, with its holds and its blank documents.
    void Forget(const std::string& identity);

    // A program as a user is told of it: "headless-host (process 12)".
    std::string Describe(const std::string& identity);

private:
    Database& mDatabase;
    std::string mIdentity;
};

}  // namespace plugincore
