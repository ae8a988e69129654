#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// The list of the programs that use the database now. A program enters the list before it changes
// anything that would need a repair, and leaves it at its regular end: a program that is listed and
// doesn't run was killed. A process that holds fonts or blank documents is listed too. Errors are
// thrown as Failure.
class Programs {
public:
    struct Program {
        std::string identity;
        std::string name;  // of its executable; "" if unknown
    };

    // `identity` is the identity of this process. The database has to outlive this object.
    Programs(Database& database, std::string identity)
        : mDatabase(database), mIdentity(std::move(identity))
    {
    }

    // Enters this process with a name, or changes its name.
    void Enter(const std::string& name);

    // Removes this process.
    void Leave();

    // Enters this process unless another running program has the name. Returns that program then.
    std::optional<Program> EnterAlone(const std::string& name);

    std::vector<Program> List();

    // The listed programs that don't run. Takes no lock and few system calls for each program.
    std::vector<Program> ListGone();

    // Removes a program, its holds, its open and its blank documents.
    void Forget(const std::string& identity);

    // Returns the program in words for the user: "headless-host (process 12)".
    std::string Describe(const std::string& identity);

private:
    Database& mDatabase;
    std::string mIdentity;
};

}  // namespace plugincore
