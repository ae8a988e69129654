#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "plugin-core/storage/Failure.h"

struct sqlite3;
struct sqlite3_stmt;

// SQLite behind scoped objects. Failures are thrown as Failure with kDatabaseError; the line names
// the database file and SQLite's reason.
namespace plugincore {

// The file is no database, or parts of it are unreadable.
class DamagedDatabase : public Failure {
public:
    explicit DamagedDatabase(const std::string& line) : Failure(StatusCodes::kDatabaseError, line)
    {
    }
};

// The one connection of this process. Several processes may share the file.
class Database {
public:
    // Opens the file, made with its folders if it isn't there, and brings its tables up to date.
    explicit Database(const std::filesystem::path& file);

    void Execute(const std::string& sql);

    // Reads all of the file. What is wrong with it, or the empty text.
    std::string FindDamage();

    // Differs whenever this or another process has changed something. Cheap.
    std::string GetChangeMark();
    sqlite3* GetConnection() const { return mConnection.get(); }
    [[noreturn]] void ThrowFailure() const;

private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };
    std::string mFile;
    std::unique_ptr<sqlite3, Closer> mConnection;
};

// One prepared statement. Parameters are bound in order; it can run again after Reset.
class Statement {
public:
    Statement(Database& database, const std::string& sql);

    Statement& Bind(const std::string& text);
    Statement& Bind(int64_t number);

    bool Step();  // true if there is a row
    void Run();   // to its end, then reset
    void Reset();

    std::string GetText(int column) const;
    int64_t GetNumber(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    Database& mDatabase;
    std::unique_ptr<sqlite3_stmt, Finalizer> mStatement;
    int mBound = 0;
};

// A transaction that takes the write lock at once, so that what is done to folders inside it is
// done by one process at a time. Rolled back unless committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Database& mDatabase;
    bool mOpen = true;
};

}  // namespace plugincore
