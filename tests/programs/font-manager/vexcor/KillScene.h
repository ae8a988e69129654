#pragma once

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "VexcorScene.h"

// Vexcor and four hosts that work on one home folder. Two hosts open and close documents with fonts
// in common, so that fonts are activated, shared and deactivated all the time; the other two, the
// savers, save documents of their own again and again. Tests kill any of the five.
class KillScene : public VexcorScene {
protected:
    static constexpr size_t kHosts = 4;
    static constexpr size_t kFirstSaver = 2;

    // Prepares the home folder. All random numbers derive from the seed.
    void Begin(unsigned seed);

    // Starts each of the five that doesn't run, because it was killed or its script has ended.
    void StartAll();

    // From `first` to `last`, both included.
    int Random(int first, int last);

    // Kills one to three of the five, each at a random moment, and returns their names. In two of
    // three cases it is one that is writing to the database, if there is any within a tenth of a
    // second. At most `most` are killed.
    std::vector<std::string> KillSome(unsigned most);

    // The first thing that is wrong with the savers' files, "" for nothing: a document that isn't
    // whole, or, after a saver that was killed has started again, what it had begun to write.
    std::string FindBrokenSave(bool isAfterStart) const;

    // Starts a host that opens and closes one document. Sets `output`, and returns its exit status.
    int PlayShortScript();

    // Ends all five with SIGTERM and expects that they end in order.
    void EndAll();

    // Compares tables, activation folder and fontconfig within a transaction, so that no program
    // changes them. Returns the first disagreement, "" for none. A damaged database fails the test.
    std::string FindDisagreement();

    // Counts the repairs in Vexcor's log by kind. The hosts repair as well, but write no log.
    std::map<std::string, int> CountRepairs() const;

    // Returns how many groups of fonts were activated so far.
    int64_t CountActivations();

private:
    // Returns the process that holds SQLite's write lock; 0 if there is none.
    pid_t FindWriter();

    // Waits up to a tenth of a second for one that has held the write lock for `sinceLock`.
    // Returns null if there is none.
    std::unique_ptr<ChildProcess>* WaitForWriter(std::chrono::microseconds sinceLock);
    std::unique_ptr<ChildProcess> StartHost(size_t number);
    std::unique_ptr<ChildProcess> Play(const std::string& name, const std::string& session);
    std::string WriteHostScript();
    std::string WriteSaverScript(size_t number) const;
    std::filesystem::path GetSaved(size_t number) const;
    std::vector<std::unique_ptr<ChildProcess>*> ListRunning();
    std::string GetName(const std::unique_ptr<ChildProcess>* process) const;
    std::string KillOne();

    // Each returns the first disagreement, "" for none.
    std::string CompareTables();
    std::string CompareFolder();
    std::string CompareFontconfig();

    std::mt19937 mRandom;
    int mLocks = -1;  // never closed: that would drop this process's locks
    std::unique_ptr<ChildProcess> mDaemon;
    std::array<std::unique_ptr<ChildProcess>, kHosts> mHosts;
};
