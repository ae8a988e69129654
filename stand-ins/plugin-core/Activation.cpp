#include "Activation.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ProcessIdentity.h"

namespace plugincore {
namespace {

bool IsReadable(const std::string& file) { return std::ifstream(file, std::ios::binary).is_open(); }

}  // namespace

Activation::Activation(Database& database, FontLibrary& library, ActivationFolder folder,
                       std::string holder)
    : mDatabase(database), mLibrary(library), mFolder(std::move(folder)), mHolder(std::move(holder))
{
}

std::string Activation::FindActiveFile(const std::string& name)
{
    Statement statement(mDatabase,
                        "SELECT file FROM active_face WHERE name = ? ORDER BY file LIMIT 1");
    return statement.Bind(name).Step() ? statement.GetText(0) : std::string();
}

std::string Activation::FindReadableFile(const std::string& name)
{
    const std::string file = mLibrary.Find(name).value_or("");
    return !file.empty() && IsReadable(file) ? file : std::string();
}

void Activation::AddHold(const std::string& document, const std::string& name,
                         const std::string& file)
{
    Statement statement(
        mDatabase, "INSERT OR REPLACE INTO hold(document, name, file, holder) VALUES(?, ?, ?, ?)");
    statement.Bind(document).Bind(name).Bind(file).Bind(mHolder).Run();
}

int64_t Activation::AddGroup()
{
    Statement statement(mDatabase, "INSERT INTO active_group DEFAULT VALUES RETURNING id");
    const int64_t group = statement.Step() ? statement.GetNumber(0) : 0;
    statement.Run();
    return group;
}

// False if the file is active already.
bool Activation::AddFile(const std::string& file, int64_t group, ActivationFolder::Links& links)
{
    const std::string link = ActivationFolder::MakeLinkName(links.size(), file);
    Statement addFile(mDatabase,
                      "INSERT OR IGNORE INTO active_file(path, link, group_id) VALUES(?, ?, ?)"
                      " RETURNING path");
    const bool isNew = addFile.Bind(file).Bind(link).Bind(group).Step();
    if (isNew) addFile.Run();
    Statement addFace(mDatabase, "INSERT OR IGNORE INTO active_face(name, file) VALUES(?, ?)");
    for (const std::string& name : mLibrary.GetNamesInFile(file))
        addFace.Bind(name).Bind(file).Run();
    if (isNew) links[link] = file;
    return isNew;
}

ActivationFolder::Links Activation::GetLinks(int64_t group)
{
    Statement statement(mDatabase, "SELECT link, path FROM active_file WHERE group_id = ?");
    statement.Bind(group);
    ActivationFolder::Links links;
    while (statement.Step()) links[statement.GetText(0)] = statement.GetText(1);
    return links;
}

std::vector<int64_t> Activation::GetGroups()
{
    Statement statement(mDatabase, "SELECT id FROM active_group ORDER BY id");
    std::vector<int64_t> groups;
    while (statement.Step()) groups.push_back(statement.GetNumber(0));
    return groups;
}

std::set<std::string> Activation::Hold(const std::string& document,
                                       const std::vector<std::string>& names)
{
    std::set<std::string> held;
    Transaction transaction(mDatabase);
    for (const std::string& name : names) {
        const std::string file = FindActiveFile(name);
        if (file.empty()) continue;
        AddHold(document, name, file);
        held.insert(name);
    }
    transaction.Commit();
    return held;
}

Activation::Outcome Activation::Activate(const std::string& document,
                                         const std::vector<std::string>& names)
{
    // A library folder may have changed since the index was made.
    const bool isIndexOld = std::any_of(names.begin(), names.end(), [this](const auto& name) {
        return FindActiveFile(name).empty() && FindReadableFile(name).empty();
    });
    if (isIndexOld) mLibrary.Refresh();

    Outcome outcome;
    ActivationFolder::Links links;
    std::set<std::string> newFiles;
    Transaction transaction(mDatabase);
    const int64_t group = AddGroup();
    for (const std::string& name : names) {
        std::string file = FindActiveFile(name);
        bool wasActive = !file.empty() && newFiles.count(file) == 0;
        if (file.empty()) {
            file = FindReadableFile(name);
            if (file.empty()) {
                outcome.failed.push_back(name);
                continue;
            }
            wasActive = !AddFile(file, group, links);
            if (!wasActive) newFiles.insert(file);
        }
        if (!wasActive) outcome.activated.push_back(name);
        if (!wasActive || !document.empty()) AddHold(document, name, file);
    }
    if (links.empty()) {
        Statement(mDatabase, "DELETE FROM active_group WHERE id = ?").Bind(group).Run();
        transaction.Commit();
        return outcome;
    }
    mFolder.Show(group, links);
    try {
        transaction.Commit();
    } catch (...) {
        mFolder.Hide(group);
        throw;
    }
    return outcome;
}

void Activation::Release(const std::string& document)
{
    Transaction transaction(mDatabase);
    Statement(mDatabase, "DELETE FROM hold WHERE document = ? AND holder = ?")
        .Bind(document)
        .Bind(mHolder)
        .Run();
    DeactivateWhatNobodyHolds();
    transaction.Commit();
}

void Activation::Release(const std::string& document, const std::vector<std::string>& names)
{
    if (names.empty()) return;
    Transaction transaction(mDatabase);
    Statement statement(mDatabase,
                        "DELETE FROM hold WHERE document = ? AND holder = ? AND name = ?");
    for (const std::string& name : names) statement.Bind(document).Bind(mHolder).Bind(name).Run();
    DeactivateWhatNobodyHolds();
    transaction.Commit();
}

std::set<std::string> Activation::GetHeld(const std::string& document)
{
    Statement statement(mDatabase, "SELECT name FROM hold WHERE document = ? AND holder = ?");
    statement.Bind(document).Bind(mHolder);
    std::set<std::string> names;
    while (statement.Step()) names.insert(statement.GetText(0));
    return names;
}

std::vector<std::string> Activation::GetHolders()
{
    Statement statement(mDatabase,
                        "SELECT DISTINCT document FROM hold WHERE holder = ? ORDER BY document");
    statement.Bind(mHolder);
    std::vector<std::string> documents;
    while (statement.Step()) documents.push_back(statement.GetText(0));
    return documents;
}

std::set<std::string> Activation::GetActive()
{
    Statement statement(mDatabase, "SELECT DISTINCT name FROM active_face");
    std::set<std::string> names;
    while (statement.Step()) names.insert(statement.GetText(0));
    return names;
}

void Activation::ReleaseAll()
{
    Transaction transaction(mDatabase);
    Statement(mDatabase, "DELETE FROM hold WHERE holder = ?").Bind(mHolder).Run();
    DeactivateWhatNobodyHolds();
    transaction.Commit();
}

void Activation::Repair()
{
    Transaction transaction(mDatabase);
    DropHoldsOfDeadProcesses();
    DeactivateWhatNobodyHolds();
    MakeFolderEqual();
    transaction.Commit();
}

void Activation::DropHoldsOfDeadProcesses()
{
    std::vector<std::string> dead;
    Statement holders(mDatabase, "SELECT DISTINCT holder FROM hold");
    while (holders.Step())
        if (!IsProcessAlive(holders.GetText(0))) dead.push_back(holders.GetText(0));
    for (const std::string& holder : dead)
        Statement(mDatabase, "DELETE FROM hold WHERE holder = ?").Bind(holder).Run();
}

void Activation::DeactivateWhatNobodyHolds()
{
    std::vector<int64_t> touched;
    {
        Statement groups(mDatabase,
                         "SELECT DISTINCT group_id FROM active_file"
                         " WHERE path NOT IN (SELECT file FROM hold)");
        while (groups.Step()) touched.push_back(groups.GetNumber(0));
    }
    mDatabase.Execute("DELETE FROM active_file WHERE path NOT IN (SELECT file FROM hold)");
    for (const int64_t group : touched) {
        const ActivationFolder::Links kept = GetLinks(group);
        if (!kept.empty()) {
            mFolder.Reduce(group, kept);
            continue;
        }
        Statement(mDatabase, "DELETE FROM active_group WHERE id = ?").Bind(group).Run();
        mFolder.Hide(group);
    }
}

void Activation::MakeFolderEqual()
{
    mFolder.RemoveLeftovers();
    std::vector<int64_t> known = GetGroups();
    for (const int64_t group : mFolder.List())
        if (std::find(known.begin(), known.end(), group) == known.end()) mFolder.Hide(group);
    for (const int64_t group : known) {
        const ActivationFolder::Links links = GetLinks(group);
        if (mFolder.Holds(group, links)) continue;
        mFolder.Hide(group);
        mFolder.Show(group, links);
    }
}

}  // namespace plugincore
