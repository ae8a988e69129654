#include "plugin-core/activation/Activation.h"

#include <algorithm>

#include "base/Files.h"
#include "base/Plural.h"
#include "plugin-core/storage/ErrorLog.h"

namespace plugincore {
namespace {

constexpr const char* kFindActiveFile =
    "SELECT file FROM active_face WHERE name = ? ORDER BY file LIMIT 1";

}  // namespace

Activation::Activation(Database& database, FontLibrary& library, Programs& programs,
                       ActivationFolder folder, std::string holder)
    : mDatabase(database),
      mLibrary(library),
      mPrograms(programs),
      mFolder(std::move(folder)),
      mHolder(std::move(holder))
{
}

// Does the work under the write lock. If it fails, tables and folder are as before.
template <class Work>
auto Activation::RunInTransaction(Work work)
{
    try {
        Transaction transaction(mDatabase);
        auto result = work();
        transaction.Commit();
        mMayDiffer = false;
        return result;
    } catch (...) {
        RestoreFolder();
        throw;
    }
}

// The same, after repairing tables and folder if that is needed.
template <class Work>
auto Activation::Change(Work work)
{
    return RunInTransaction([&] {
        Repairs repairs;
        if (mMayDiffer || !mPrograms.ListGone().empty()) RepairInTransaction(repairs);
        return work();
    });
}

void Activation::RestoreFolder() noexcept
{
    try {
        if (!mMayDiffer) return;
        Transaction transaction(mDatabase);
        Repairs repairs;
        MakeFolderMatch(repairs);
        transaction.Commit();
        mMayDiffer = false;
    } catch (const std::exception&) {
        // The caller throws the first error. mMayDiffer makes the next change try this again.
    }
}

std::string Activation::FindActiveFile(const std::string& name)
{
    Statement statement(mDatabase, kFindActiveFile);
    return statement.Bind(name).Step() ? statement.GetText(0) : std::string();
}

std::map<std::string, std::string> Activation::ListActiveFiles()
{
    Statement statement(mDatabase, "SELECT name, MIN(file) FROM active_face GROUP BY name");
    std::map<std::string, std::string> files;
    while (statement.Step()) files[statement.GetText(0)] = statement.GetText(1);
    return files;
}

std::string Activation::FindReadableFile(const std::string& name)
{
    const std::string file = mLibrary.Find(name).value_or("");
    return base::IsReadableFile(file) ? file : std::string();
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

// Adds a file to a group. Returns false if the file is active already.
bool Activation::AddFile(const std::string& file, int64_t group, ActivationFolder::Links& links)
{
    const std::string link = ActivationFolder::MakeLinkName(links.size(), file);
    Statement addFile(mDatabase,
                      "INSERT OR IGNORE INTO active_file(path, link, group_id) VALUES(?, ?, ?)"
                      " RETURNING path");
    const bool isNew = addFile.Bind(file).Bind(link).Bind(group).Step();
    if (isNew) addFile.Run();
    Statement addFace(mDatabase, "INSERT OR IGNORE INTO active_face(name, file) VALUES(?, ?)");
    for (const std::string& name : mLibrary.GetNamesInFile(file)) {
        addFace.Bind(name).Bind(file).Run();
    }
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
    return Change([&] {
        (void)DeactivateGone();  // reports the files
        std::set<std::string> held;
        Statement active(mDatabase, kFindActiveFile);
        for (const std::string& name : names) {
            if (active.Bind(name).Step()) {
                AddHold(document, name, active.GetText(0));
                held.insert(name);
            }
            active.Reset();
        }
        return held;
    });
}

Activation::Outcome Activation::Activate(const std::string& document,
                                         const std::vector<std::string>& names)
{
    // The index may be out of date. It is updated before the transaction, which would make other
    // processes wait for it.
    const bool isIndexOld = std::any_of(names.begin(), names.end(), [this](const auto& name) {
        return !base::IsReadableFile(FindActiveFile(name)) && FindReadableFile(name).empty();
    });
    if (isIndexOld) mLibrary.Refresh();
    return Change([&] {
        (void)DeactivateGone();  // reports the files
        return ActivateInTransaction(document, names);
    });
}

Activation::Outcome Activation::ActivateInTransaction(const std::string& document,
                                                      const std::vector<std::string>& names)
{
    Outcome outcome;
    ActivationFolder::Links links;
    std::set<std::string> newFiles;
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
        return outcome;
    }
    mMayDiffer = true;
    mFolder.Show(group, links);
    return outcome;
}

void Activation::Release(const std::string& document)
{
    (void)Change([&] {  // the list of files isn't needed here
        Statement(mDatabase, "DELETE FROM hold WHERE document = ? AND holder = ?")
            .Bind(document)
            .Bind(mHolder)
            .Run();
        return DeactivateUnheld();
    });
}

void Activation::Release(const std::string& document, const std::vector<std::string>& names)
{
    if (names.empty()) return;
    (void)Change([&] {  // the list of files isn't needed here
        Statement statement(mDatabase,
                            "DELETE FROM hold WHERE document = ? AND holder = ? AND name = ?");
        for (const std::string& name : names) {
            statement.Bind(document).Bind(mHolder).Bind(name).Run();
        }
        return DeactivateUnheld();
    });
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

std::vector<Activation::HoldOfDocument> Activation::ListHolds(const std::string& name)
{
    Statement statement(mDatabase,
                        "SELECT document, file, holder FROM hold WHERE name = ?"
                        " ORDER BY document, holder");
    statement.Bind(name);
    std::vector<HoldOfDocument> holds;
    while (statement.Step()) {
        holds.push_back({statement.GetText(0), statement.GetText(1), statement.GetText(2)});
    }
    return holds;
}

void Activation::ReleaseAll()
{
    (void)Change([&] {  // the list of files isn't needed here
        Statement(mDatabase, "DELETE FROM hold WHERE holder = ?").Bind(mHolder).Run();
        return DeactivateUnheld();
    });
}

Activation::Repairs Activation::Repair()
{
    return RunInTransaction([&] {
        Repairs repairs;
        RepairInTransaction(repairs);
        return repairs;
    });
}

Activation::Repairs Activation::RepairIfNeeded()
{
    if (!mMayDiffer && mPrograms.ListGone().empty() && !IsNextFileGone()) return {};
    return Repair();
}

void Activation::RepairInTransaction(Repairs& repairs)
{
    DeleteHoldsOfGonePrograms(repairs);
    repairs.goneFiles = DeactivateGone();
    repairs.deactivatedFiles = DeactivateUnheld();
    MakeFolderMatch(repairs);
    if (!repairs.gonePrograms.empty()) mFolder.Touch();
}

void Activation::DeleteHoldsOfGonePrograms(Repairs& repairs)
{
    for (const Programs::Program& program : mPrograms.ListGone()) {
        repairs.gonePrograms.push_back(mPrograms.Describe(program.identity));
        Statement holds(mDatabase, "SELECT name, document FROM hold WHERE holder = ?");
        holds.Bind(program.identity);
        while (holds.Step()) {
            repairs.droppedHolds.push_back(holds.GetText(0) + " for " + holds.GetText(1));
        }
        mPrograms.Forget(program.identity);
    }
}

std::vector<std::string> Activation::DeactivateUnheld()
{
    std::set<int64_t> touched;
    std::vector<std::string> files;
    {
        Statement unheld(mDatabase,
                         "SELECT path, group_id FROM active_file"
                         " WHERE path NOT IN (SELECT file FROM hold)");
        for (; unheld.Step(); touched.insert(unheld.GetNumber(1))) {
            files.push_back(unheld.GetText(0));
        }
    }
    if (files.empty()) return files;
    mDatabase.Execute("DELETE FROM active_file WHERE path NOT IN (SELECT file FROM hold)");
    mMayDiffer = true;
    for (const int64_t group : touched) {
        const ActivationFolder::Links kept = GetLinks(group);
        if (!kept.empty()) {
            mFolder.KeepOnly(group, kept);
            continue;
        }
        Statement(mDatabase, "DELETE FROM active_group WHERE id = ?").Bind(group).Run();
        mFolder.Hide(group);
    }
    return files;
}

// Looks at a few files only: this is called in the host's idle time.
bool Activation::IsNextFileGone()
{
    constexpr int64_t kFiles = 32;
    Statement statement(mDatabase,
                        "SELECT path FROM active_file WHERE path > ? ORDER BY path LIMIT ?");
    statement.Bind(mLastLookedAt).Bind(kFiles);
    int64_t count = 0;
    for (; statement.Step(); ++count) {
        const std::string file = statement.GetText(0);
        if (!base::IsReadableFile(file)) return true;
        mLastLookedAt = file;
    }
    if (count < kFiles) mLastLookedAt.clear();
    return false;
}

// Deactivates the fonts of files that can't be read, although documents hold them. Reports each.
std::vector<std::string> Activation::DeactivateGone()
{
    std::vector<std::string> gone;
    {
        Statement files(mDatabase, "SELECT path FROM active_file ORDER BY path");
        while (files.Step()) {
            if (!base::IsReadableFile(files.GetText(0))) gone.push_back(files.GetText(0));
        }
    }
    for (const std::string& file : gone) {
        Statement faces(mDatabase, "SELECT name FROM active_face WHERE file = ? ORDER BY name");
        faces.Bind(file);
        std::string names;
        for (; faces.Step(); mGoneFiles[faces.GetText(0)] = file) {
            if (!names.empty()) names += ", ";
            names += faces.GetText(0);
        }
        LogError(
            std::string(file).append(": the font file is gone; no longer active: ").append(names));
        Statement(mDatabase, "DELETE FROM hold WHERE file = ?").Bind(file).Run();
    }
    if (!gone.empty()) (void)DeactivateUnheld();  // the caller reports the files as gone
    return gone;
}

std::string Activation::FindGoneFile(const std::string& name) const
{
    const auto found = mGoneFiles.find(name);
    return found == mGoneFiles.end() ? std::string() : found->second;
}

void Activation::MakeFolderMatch(Repairs& repairs)
{
    mMayDiffer = true;
    if (const size_t count = mFolder.RemoveLeftovers(); count != 0) {
        repairs.folderChanges.push_back("removed " + base::Count(count, "unfinished folder"));
    }
    const std::vector<int64_t> known = GetGroups();
    for (const int64_t group : mFolder.List()) {
        if (std::find(known.begin(), known.end(), group) != known.end()) continue;
        mFolder.Hide(group);
        repairs.folderChanges.push_back("removed group " + std::to_string(group) +
                                        ", which isn't in the database");
    }
    for (const int64_t group : known) {
        const ActivationFolder::Links links = GetLinks(group);
        if (mFolder.Holds(group, links)) continue;
        mFolder.Hide(group);
        mFolder.Show(group, links);
        repairs.folderChanges.push_back("restored group " + std::to_string(group) + ", " +
                                        base::Count(links.size(), "file"));
    }
}

}  // namespace plugincore
