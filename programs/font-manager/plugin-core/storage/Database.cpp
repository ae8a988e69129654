#include "plugin-core/storage/Database.h"

#include <sqlite3.h>

namespace plugincore {
namespace {

constexpr int kSchemaVersion = 6;
constexpr int kBusyMilliseconds = 10000;

// font_file, font_face: the index of the libraries. A file without faces has a problem instead.
// document: ids and usage reports. A blank document has no path and is deleted with its holder.
// active_group: one folder of links each. active_file, active_face: what these links activate.
// hold: a document that is open in the process `holder` needs the font `name`, which `file` has.
constexpr const char* kSchema = R"(
CREATE TABLE font_file(id INTEGER PRIMARY KEY, library TEXT NOT NULL, path TEXT NOT NULL,
    modified INTEGER NOT NULL, size INTEGER NOT NULL, problem TEXT NOT NULL DEFAULT '',
    UNIQUE(library, path));
CREATE TABLE font_face(file INTEGER NOT NULL REFERENCES font_file(id) ON DELETE CASCADE,
    name TEXT NOT NULL, face_index INTEGER NOT NULL, is_type1 INTEGER NOT NULL);
CREATE INDEX font_face_name ON font_face(name);
CREATE INDEX font_face_file ON font_face(file);
CREATE TABLE document(id TEXT PRIMARY KEY, path TEXT UNIQUE, usage TEXT NOT NULL DEFAULT '',
    holder TEXT NOT NULL DEFAULT '');
CREATE TABLE active_group(id INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE TABLE active_file(path TEXT PRIMARY KEY, link TEXT NOT NULL,
    group_id INTEGER NOT NULL REFERENCES active_group(id));
CREATE TABLE active_face(name TEXT NOT NULL,
    file TEXT NOT NULL REFERENCES active_file(path) ON DELETE CASCADE, PRIMARY KEY(name, file));
CREATE TABLE hold(document TEXT NOT NULL, name TEXT NOT NULL, file TEXT NOT NULL,
    holder TEXT NOT NULL, PRIMARY KEY(document, name, holder));
CREATE INDEX hold_file ON hold(file);
)";

// Added by version 2.
// added_folder: font folders that the user added to the root folders of the library.
// choice: choices that aren't settings, such as the selected library.
constexpr const char* kSchemaOfVersion2 = R"(
CREATE TABLE added_folder(path TEXT PRIMARY KEY);
CREATE TABLE choice(name TEXT PRIMARY KEY, value TEXT NOT NULL);
PRAGMA user_version = 2;
)";

// Added by version 3.
// program: the processes that use the database and the activation folder now.
constexpr const char* kSchemaOfVersion3 = R"(
CREATE TABLE program(identity TEXT PRIMARY KEY, name TEXT NOT NULL);
PRAGMA user_version = 3;
)";

// Added by version 4.
// Without these, each font that is activated or deactivated costs a search of the whole table: by
// the file's path, for the faces deleted with their file, and for the files of a group.
constexpr const char* kSchemaOfVersion4 = R"(
CREATE INDEX font_file_path ON font_file(path);
CREATE INDEX active_face_file ON active_face(file);
CREATE INDEX active_file_group ON active_file(group_id);
PRAGMA user_version = 4;
)";

// Added by version 5.
// open_document: the fonts of each document that the process `holder` has open, present or not. A
// document without fonts has the name ''.
constexpr const char* kSchemaOfVersion5 = R"(
CREATE TABLE open_document(path TEXT NOT NULL, holder TEXT NOT NULL, name TEXT NOT NULL,
    PRIMARY KEY(path, holder, name));
PRAGMA user_version = 5;
)";

// Added by version 6.
// family, style, weight, format: as FontFaces.h has them, so that lists needn't open font files.
// The size marks all files as changed: the next refresh of the index reads them again, and until
// then every name is found as before. The trigger does the same to what a running program of an
// older version adds.
constexpr const char* kSchemaOfVersion6 = R"(
ALTER TABLE font_face ADD COLUMN family TEXT;
ALTER TABLE font_face ADD COLUMN style TEXT;
ALTER TABLE font_face ADD COLUMN weight INTEGER NOT NULL DEFAULT 0;
ALTER TABLE font_face ADD COLUMN format TEXT NOT NULL DEFAULT '';
UPDATE font_file SET size = -1;
CREATE TRIGGER font_face_without_family AFTER INSERT ON font_face WHEN NEW.family IS NULL
BEGIN
    UPDATE font_file SET size = -1 WHERE id = NEW.file;
END;
PRAGMA user_version = 6;
)";

void UpdateSchema(Database& database, const std::string& file)
{
    if (database.GetVersion() == kSchemaVersion) return;
    Transaction transaction(database);
    const int64_t version = database.GetVersion();
    if (version > kSchemaVersion) {
        throw Failure(StatusCodes::kDatabaseError,
                      file + ": was written by a newer version of this program");
    }
    if (version < 1) database.Execute(kSchema);
    if (version < 2) database.Execute(kSchemaOfVersion2);
    if (version < 3) database.Execute(kSchemaOfVersion3);
    if (version < 4) database.Execute(kSchemaOfVersion4);
    if (version < 5) database.Execute(kSchemaOfVersion5);
    if (version < 6) database.Execute(kSchemaOfVersion6);
    transaction.Commit();
}

}  // namespace

void Database::Closer::operator()(sqlite3* connection) const
{
    (void)sqlite3_close(connection);  // fails only if statements are left
}

Database::Database(const std::filesystem::path& file) : mFile(file)
{
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (error) {
        throw Failure(StatusCodes::kDatabaseError,
                      file.parent_path().string() + ": cannot be created: " + error.message());
    }
    sqlite3* connection = nullptr;
    const int result = sqlite3_open(mFile.c_str(), &connection);
    mConnection.reset(connection);
    if (result != SQLITE_OK) ThrowFailure();
    sqlite3_busy_timeout(connection, kBusyMilliseconds);
    // Fails at once, in spite of the timeout, if another process is opening the file. That is no
    // error: the old journal mode works too, and the next start tries again.
    (void)sqlite3_exec(connection, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
    Execute("PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;");
    UpdateSchema(*this, mFile);
}

Database::Database(const std::filesystem::path& file, Access) : mFile(file)
{
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(mFile.c_str(), &connection, SQLITE_OPEN_READONLY, nullptr);
    mConnection.reset(connection);
    if (result != SQLITE_OK) ThrowFailure();
    sqlite3_busy_timeout(connection, kBusyMilliseconds);
    if (GetVersion() > kSchemaVersion) {
        throw Failure(StatusCodes::kDatabaseError,
                      mFile + ": was written by a newer version of this program");
    }
}

void Database::Execute(const std::string& sql)
{
    if (sqlite3_exec(GetConnection(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        ThrowFailure();
    }
}

int64_t Database::GetVersion()
{
    Statement statement(*this, "PRAGMA user_version");
    return statement.Step() ? statement.GetNumber(0) : 0;
}

std::string Database::GetChangeMark()
{
    Statement others(*this, "PRAGMA data_version");
    const int64_t version = others.Step() ? others.GetNumber(0) : 0;
    return std::to_string(version) + ":" + std::to_string(sqlite3_total_changes(GetConnection()));
}

std::string Database::FindDamage()
{
    Statement check(*this, "PRAGMA integrity_check(1)");
    const std::string found = check.Step() ? check.GetText(0) : std::string("no answer");
    return found == "ok" ? std::string() : found;
}

void Database::ThrowFailure() const
{
    const std::string line = mFile + ": " + sqlite3_errmsg(GetConnection());
    const int code = sqlite3_errcode(GetConnection());
    if (code == SQLITE_NOTADB || code == SQLITE_CORRUPT) throw DamagedDatabase(line);
    throw Failure(StatusCodes::kDatabaseError, line);
}

void Database::Finalizer::operator()(sqlite3_stmt* statement) const
{
    (void)sqlite3_finalize(statement);  // repeats the error of the last step, already thrown
}

Database::Prepared Database::Prepare(const std::string& sql)
{
    if (const auto kept = mKept.find(sql); kept != mKept.end()) {
        Prepared statement = std::move(kept->second);
        mKept.erase(kept);
        return statement;
    }
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(GetConnection(), sql.c_str(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) {
        ThrowFailure();
    }
    return Prepared(statement);
}

void Database::GiveBack(Prepared statement) noexcept
{
    // The program has fewer texts; those with a list of folders in them differ by its length.
    constexpr size_t kMostKept = 100;
    if (!statement || mKept.size() >= kMostKept) return;
    (void)sqlite3_reset(statement.get());           // repeats the error of the last step
    (void)sqlite3_clear_bindings(statement.get());  // never fails
    try {
        std::string text = sqlite3_sql(statement.get());
        mKept.emplace(std::move(text), std::move(statement));
    } catch (const std::bad_alloc&) {
        // It is compiled again when it is needed again.
    }
}

Statement::Statement(Database& database, const std::string& sql)
    : mDatabase(database), mStatement(database.Prepare(sql))
{
}

Statement::~Statement() { mDatabase.GiveBack(std::move(mStatement)); }

Statement& Statement::Bind(const std::string& text)
{
    if (sqlite3_bind_text(mStatement.get(), ++mBound, text.data(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT) != SQLITE_OK) {
        mDatabase.ThrowFailure();
    }
    return *this;
}

Statement& Statement::Bind(int64_t number)
{
    if (sqlite3_bind_int64(mStatement.get(), ++mBound, number) != SQLITE_OK) {
        mDatabase.ThrowFailure();
    }
    return *this;
}

bool Statement::Step()
{
    const int result = sqlite3_step(mStatement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) mDatabase.ThrowFailure();
    return result == SQLITE_ROW;
}

void Statement::Run()
{
    while (Step()) {
    }
    Reset();
}

void Statement::Reset()
{
    (void)sqlite3_reset(mStatement.get());  // repeats the error of the last step, already thrown
    mBound = 0;
}

std::string Statement::GetText(int column) const
{
    const unsigned char* text = sqlite3_column_text(mStatement.get(), column);
    if (!text) return {};
    return {reinterpret_cast<const char*>(text),
            static_cast<size_t>(sqlite3_column_bytes(mStatement.get(), column))};
}

int64_t Statement::GetNumber(int column) const
{
    return sqlite3_column_int64(mStatement.get(), column);
}

Transaction::Transaction(Database& database) : mDatabase(database)
{
    database.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (mOpen) {
        (void)sqlite3_exec(mDatabase.GetConnection(), "ROLLBACK", nullptr, nullptr,
                           nullptr);  // fails if SQLite has rolled back by itself
    }
}

void Transaction::Commit()
{
    mDatabase.Execute("COMMIT");
    mOpen = false;
}

Snapshot::Snapshot(Database& database) : mDatabase(database) { database.Execute("BEGIN"); }

Snapshot::~Snapshot()
{
    (void)sqlite3_exec(mDatabase.GetConnection(), "COMMIT", nullptr, nullptr,
                       nullptr);  // nothing was changed
}

}  // namespace plugincore
