#pragma once

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "VexcorScene.h"

// Vexcor and two hosts that work on one home folder. The hosts open and close documents with fonts
// in common, so that fonts are activated, shared and deactivated all the time. Tests kill any of
// the three.
class KillScene : public VexcorScene {
protected:
    static constexpr size_t kHosts = 2;

    // Prepares the home folder. All random numbers derive from the seed.
    void Begin(unsigned seed);

    // Starts each of the three that doesn't run, because it was killed or its script has ended.
    void StartAll();

    // From `first` to `last`, both included.
    int Random(int first, int last);

    // Kills one of the three at a random moment and returns its name. In two of three cases it is
    // one that is writing to the database, if there is any within half a second.
    std::string KillOne();

    // Ends all three with SIGTERM and expects that they end in order.
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

    // Waits up to half a second for one of the three that has held the write lock for `sinceLock`.
    // Returns null if there is none.
    std::unique_ptr<ChildProcess>* WaitForWriter(std::chrono::microseconds sinceLock);
    std::unique_ptr<ChildProcess> StartHost(size_t number);

    // Each returns the first disagreement, "" for none.
    std::string CompareTables();
    std::string CompareFolder();
    std::string CompareFontconfig();

    std::mt19937 mRandom;
    int mLocks = -1;  // never closed: that would drop this process's locks
    std::unique_ptr<ChildProcess> mDaemon;
    std::array<std::unique_ptr<ChildProcess>, kHosts> mHosts;
};
