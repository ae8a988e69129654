#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "plugin-core/storage/Failure.h"

struct sqlite3;
struct sqlite3_stmt;

// Scoped objects for SQLite. Errors are thrown as Failure with kDatabaseError and the message
// "DATABASE FILE: SQLite's reason". Not thread-safe.
namespace plugincore {

// The file isn't a database, or parts of it are unreadable.
class DamagedDatabase : public Failure {
public:
    explicit DamagedDatabase(const std::string& message)
        : Failure(StatusCodes::kDatabaseError, message)
    {
    }
};

// What the user can do about that. For the line that reports it.
constexpr const char* kHintForDamage =
    "'Vexcor repair' keeps it under another name and creates a new one";

// A connection to the font database, which several processes may use at the same time. A statement
// waits up to 10 seconds for the locks of other processes.
class Database {
public:
    // Opens the file, or creates it with the folders above it, and updates tables of an older
    // version. A file of a newer version is an error.
    explicit Database(const std::filesystem::path& file);

    enum class Access { kReadOnly };

    // Opens an existing file for reading. Changes nothing; a statement that would change it fails.
    Database(const std::filesystem::path& file, Access access);

    void Execute(const std::string& sql);

    // The version of the tables. Only a file that was opened for reading can have an older one.
    int64_t GetVersion();

    // The first version that knows the families of fonts.
    static constexpr int64_t kVersionWithFamilies = 6;

    // Reads the whole file and returns the first damage, or "" if there is none.
    std::string FindDamage();

    // A text that differs from the last one if any process has changed the database since then.
    // Doesn't read the tables.
    std::string GetChangeMark();
    sqlite3* GetConnection() const { return mConnection.get(); }

    // Throws the last error of the connection.
    [[noreturn]] void ThrowFailure() const;

private:
    friend class Statement;

    struct Closer {
        void operator()(sqlite3* connection) const;
    };
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Prepared = std::unique_ptr<sqlite3_stmt, Finalizer>;

    // Compiles the text, unless a statement of this text was given back. Compiling takes much
    // longer than looking a row up.
    Prepared Prepare(const std::string& sql);

    // Keeps a statement that has ended for the next Prepare of its text.
    void GiveBack(Prepared statement) noexcept;

    std::string mFile;
    std::unique_ptr<sqlite3, Closer> mConnection;
    std::unordered_multimap<std::string, Prepared> mKept;  // by their text
};

// A prepared statement. The database has to outlive it.
class Statement {
public:
    Statement(Database& database, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Binds the next parameter, beginning with the first one.
    Statement& Bind(const std::string& text);
    Statement& Bind(int64_t number);

    // Fetches the next row. Returns false after the last one.
    bool Step();

    // Executes the statement to its end and resets it.
    void Run();

    // Ends the execution. The statement can then be bound and executed again.
    void Reset();

    std::string GetText(int column) const;
    int64_t GetNumber(int column) const;

private:
    Database& mDatabase;
    Database::Prepared mStatement;
    int mBound = 0;
};

// A transaction that takes the write lock when it begins, so that changes of folders inside of it
// are made by one process at a time. The destructor rolls back what wasn't committed.
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

// While it exists, statements see one state of the database, whatever other processes change, and
// take no locks of their own. For many queries in a row; changes nothing.
class Snapshot {
public:
    explicit Snapshot(Database& database);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

private:
    Database& mDatabase;
};

}  // namespace plugincore
