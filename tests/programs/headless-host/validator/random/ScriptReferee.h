#pragma once

#include <set>
#include <string>
#include <vector>

// Plays a script to a host that exists only in this class and says which lines the host refuses.
// Whatever in a script depends on the plug-in can happen in two ways, and the referee takes one of
// them.
class ScriptReferee {
public:
    // nestedRuns    whether lines within a call are performed at once, or never
    // savesSucceed  whether a document with a file can be saved under another name
    ScriptReferee(bool nestedRuns, bool savesSucceed);

    // Returns "", or what is wrong with the line.
    std::string Play(const std::string& line);

    size_t CountDocuments() const { return mDocuments.size(); }

private:
    struct Document {
        size_t id;
        std::string name;
        bool hasFile;
        bool isNew;
    };
    using Words = std::vector<std::string>;

    std::string PlayWords(const Words& words, bool isNested);
    std::string PlayWorld(const Words& words);
    std::string PlayMenu(const std::string& label);
    std::string PlaySave(const Words& words);
    std::string PlayCore(const Words& words);
    std::string PlayFault(const Words& words);
    std::string PlayRestart();
    void Open(const std::string& path);
    void Add(const std::string& name, bool hasFile, bool isNew);
    Document& GetCurrent();
    size_t Find(const std::string& numberOrName, std::string& error) const;
    void Close(size_t index);
    void CheckLibraries();

    const bool mNestedRuns;
    const bool mSavesSucceed;
    std::set<std::string> mFiles;
    std::set<std::string> mReadable;
    std::vector<Document> mDocuments;
    std::vector<size_t> mUsed;  // ids, the current document's last
    size_t mNextId = 0;
    std::set<std::string> mChanged;  // functions of PluginCore
    std::set<std::string> mRebuilding;
    long mFaultIn = 0;  // calls that may still come before the fault
    bool mIsItemDisabled = false;
    bool mAreLibrariesLost = false;
};
