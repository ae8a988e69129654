#pragma once

#include <string>
#include <vector>

namespace headless {

// What a random script knows about the host that plays it, so that it only contains lines that the
// host accepts. The model is cautious: what it calls open, there or enabled is so for certain.
class HostModel {
public:
    // --- Files

    void AddFile(const std::string& path, bool isReadable);
    void RemoveFile(const std::string& path);

    // The files that are there; those that the host can read as documents.
    const std::vector<std::string>& GetFiles() const { return mFiles; }
    const std::vector<std::string>& GetReadableFiles() const { return mReadableFiles; }

    // --- Documents: their indices are those of the host's list, from 0

    // The number of documents that are open for certain, and that may be open.
    size_t CountOpen() const { return mDocuments.size(); }
    size_t CountMost() const { return mDocuments.size() + mMaybeOpen; }

    void Open(const std::string& path);
    void New();

    // A nested line opens a document, before or after other documents. Until the next restart the
    // model doesn't know which document is which.
    void OpenNested() { ++mMaybeOpen; }

    void MakeCurrent(size_t index);
    void Close(size_t index);
    void CloseCurrent();

    // Whether the current document can be saved without a path.
    bool HasCurrentFile() const;

    // The current document is saved under a path that no document has had.
    void SaveCurrentAs(const std::string& path);

    // The name by which scripts can refer to the document; empty if there is none.
    std::string GetName(size_t index) const;

    // --- PluginCore and faults

    void ChangeCore(const std::string& function);
    void ResetCore(const std::string& function);
    const std::vector<std::string>& GetChangedCore() const { return mChangedCore; }
    bool IsCoreChanged(const std::string& function) const;

    // `function` may rebuild the library menu from now on, until it is reset.
    void AllowRebuild(const std::string& function);
    // GetMenus has a tree with a disabled item.
    void DisableItems() { mAreItemsEnabled = false; }

    // One of the next `calls` calls of suites or PluginCore fails.
    void AddFault(size_t calls);
    bool IsFaultPending() const { return mCallsToFault > 0; }
    // The plug-in calls suites and PluginCore at least `calls` times each.
    void CountCalls(size_t calls);

    // --- Menus

    bool AreItemsEnabled() const { return mAreItemsEnabled; }
    bool AreLibrariesThere() const { return mAreItemsEnabled && mAreLibrariesThere; }

    // The plug-in is started again, in a new host. Files and PluginCore remain.
    void Restart();

private:
    struct Document {
        std::string name;  // empty for a document without a file
        bool isNameKnown = false;
        bool hasFile = false;
        bool isCopy = false;  // of a template
    };

    void Add(Document document);
    void UpdateLibraries();

    std::vector<std::string> mFiles;
    std::vector<std::string> mReadableFiles;
    std::vector<Document> mDocuments;
    std::vector<size_t> mRecent;  // indices in the order of use; the current document is the last
    size_t mMaybeOpen = 0;
    std::vector<std::string> mChangedCore;
    std::vector<std::string> mRebuilding;
    size_t mCallsToFault = 0;
    bool mAreItemsEnabled = true;
    bool mAreLibrariesThere = true;
};

}  // namespace headless
