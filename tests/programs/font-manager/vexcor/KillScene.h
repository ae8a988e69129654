#pragma once

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "VexcorScene.h"

// Vexcor and two hosts at work on one home. The hosts open and close documents whose fonts overlap,
// so that fonts come, are shared, and go all the time; each of the three may be killed.
class KillScene : public VexcorScene {
protected:
    static constexpr size_t kHosts = 2;

    // Everything random comes from the seed.
    void Begin(unsigned seed);

    // Starts what doesn't run: what was killed, and a host whose session is at its end.
    void StartAll();

    int Random(int first, int last);

    // Kills one of the three at a random moment; returns its name. Two times of three it is one in
    // the middle of a change.
    std::string KillOne();

    // Ends all three as a user would, and expects that they end well.
    void EndAll();

    // What isn't as it has to be, seen while nobody may change anything; empty if all is well. A
    // damaged database is a failure at any moment.
    std::string FindDisagreement();

    // What Vexcor put right by now; the hosts, which do the same, keep no log of it.
    std::map<std::string, int> CountRepairs() const;

    // How many groups of fonts were activated by now.
    int64_t CountActivations();

private:
    pid_t FindWriter();
    std::unique_ptr<ChildProcess>* WaitForWriter(std::chrono::microseconds sinceLock);
    std::unique_ptr<ChildProcess> StartHost(size_t number);
    std::string CompareTables();
    std::string CompareFolder();
    std::string CompareFontconfig();

    std::mt19937 mRandom;
    int mLocks = -1;  // stays open to the end of the process
    std::unique_ptr<ChildProcess> mDaemon;
    std::array<std::unique_ptr<ChildProcess>, kHosts> mHosts;
};
