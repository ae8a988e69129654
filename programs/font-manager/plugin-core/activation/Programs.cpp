#include "plugin-core/activation/Programs.h"

#include <algorithm>

#include "plugin-core/activation/ProcessIdentity.h"

namespace plugincore {

void Programs::Enter(const std::string& name)
{
    Statement statement(mDatabase, "INSERT OR REPLACE INTO program(identity, name) VALUES(?, ?)");
    statement.Bind(mIdentity).Bind(name).Run();
}

std::optional<Programs::Program> Programs::EnterAlone(const std::string& name)
{
    Transaction transaction(mDatabase);
    for (const Program& program : List()) {
        if (program.name == name && program.identity != mIdentity &&
            IsProcessAlive(program.identity)) {
            return program;
        }
    }
    Enter(name);
    transaction.Commit();
    return std::nullopt;
}

void Programs::Leave()
{
    Statement(mDatabase, "DELETE FROM program WHERE identity = ?").Bind(mIdentity).Run();
}

std::vector<Programs::Program> Programs::List()
{
    Statement statement(mDatabase,
                        "SELECT identity, name FROM program UNION"
                        " SELECT holder, '' FROM hold"
                        " WHERE holder NOT IN (SELECT identity FROM program) UNION"
                        " SELECT holder, '' FROM document WHERE path IS NULL"
                        " AND holder NOT IN (SELECT identity FROM program)");
    std::vector<Program> programs;
    while (statement.Step()) programs.push_back({statement.GetText(0), statement.GetText(1)});
    return programs;
}

std::vector<Programs::Program> Programs::ListGone()
{
    std::vector<Program> programs = List();
    const auto isAlive = [this](const Program& program) {
        return program.identity == mIdentity || IsProcessAlive(program.identity);
    };
    programs.erase(std::remove_if(programs.begin(), programs.end(), isAlive), programs.end());
    return programs;
}

void Programs::Forget(const std::string& identity)
{
    for (const char* const sql : {"DELETE FROM hold WHERE holder = ?",
                                  "DELETE FROM document WHERE path IS NULL AND holder = ?",
                                  "DELETE FROM program WHERE identity = ?"}) {
        Statement(mDatabase, sql).Bind(identity).Run();
    }
}

std::string Programs::Describe(const std::string& identity)
{
    if (identity == kUserHolder) return "the user";
    Statement statement(mDatabase, "SELECT name FROM program WHERE identity = ?");
    const std::string name =
        statement.Bind(identity).Step() ? statement.GetText(0) : std::string("a program");
    return name + " (process " + identity.substr(0, identity.find(':')) + ")";
}

}  // namespace plugincore
