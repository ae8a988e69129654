#include "plugin-core/services/DocumentStore.h"

namespace plugincore {
namespace {

bool HasFolder(const std::string& path) { return path.find('/') != std::string::npos; }

}  // namespace

DocumentStore::DocumentStore(Database& database, std::string holder)
    : mDatabase(database), mHolder(std::move(holder))
{
}

void DocumentStore::Remember(const std::string& path)
{
    if (!HasFolder(path)) return;
    Statement statement(
        mDatabase,
        "INSERT OR IGNORE INTO document(id, path) VALUES(lower(hex(randomblob(16))), ?)");
    statement.Bind(path).Run();
}

std::string DocumentStore::GetColumn(const char* column, const std::string& path)
{
    Statement statement(mDatabase,
                        std::string("SELECT ") + column + " FROM document WHERE path = ?");
    return statement.Bind(path).Step() ? statement.GetText(0) : std::string();
}

std::string DocumentStore::GetId(const std::string& path) { return GetColumn("id", path); }

std::string DocumentStore::GetUsage(const std::string& path) { return GetColumn("usage", path); }

std::string DocumentStore::GetPath(const std::string& id)
{
    Statement statement(mDatabase, "SELECT path FROM document WHERE id = ?");
    return statement.Bind(id).Step() ? statement.GetText(0) : std::string();
}

std::string DocumentStore::AddBlank()
{
    Statement statement(mDatabase,
                        "INSERT INTO document(id, holder) VALUES(lower(hex(randomblob(16))), ?)"
                        " RETURNING id");
    statement.Bind(mHolder);
    std::string id = statement.Step() ? statement.GetText(0) : std::string();
    statement.Run();
    return id;
}

void DocumentStore::StoreUsage(const std::string& path, const std::string& usage)
{
    Remember(path);
    if (usage.empty()) return;
    Statement statement(mDatabase, "UPDATE document SET usage = ? WHERE path = ?");
    statement.Bind(usage).Bind(path).Run();
}

bool DocumentStore::StoreUsageOfId(const std::string& id, const std::string& usage)
{
    Statement known(mDatabase, "SELECT 1 FROM document WHERE id = ?");
    if (!known.Bind(id).Step()) return false;
    known.Reset();
    if (usage.empty()) return true;
    Statement(mDatabase, "UPDATE document SET usage = ? WHERE id = ?").Bind(usage).Bind(id).Run();
    return true;
}

void DocumentStore::ForgetBlanks()
{
    Statement(mDatabase, "DELETE FROM document WHERE path IS NULL AND holder = ?")
        .Bind(mHolder)
        .Run();
    Statement(mDatabase, "DELETE FROM open_document WHERE holder = ?").Bind(mHolder).Run();
}

void DocumentStore::SetOpen(const std::string& path, const std::set<std::string>& fonts)
{
    if (!HasFolder(path)) return;
    Transaction transaction(mDatabase);
    SetClosed(path);
    Statement statement(mDatabase, "INSERT INTO open_document(path, holder, name) VALUES(?, ?, ?)");
    for (const std::string& font : fonts.empty() ? std::set<std::string>{""} : fonts) {
        statement.Bind(path).Bind(mHolder).Bind(font).Run();
    }
    transaction.Commit();
}

void DocumentStore::SetClosed(const std::string& path)
{
    Statement statement(mDatabase, "DELETE FROM open_document WHERE path = ? AND holder = ?");
    statement.Bind(path).Bind(mHolder).Run();
}

}  // namespace plugincore
