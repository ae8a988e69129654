#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "checks/BrokenRule.h"

namespace headless {

// The rules of the host that the plug-in has broken, one line each. Not thread-safe.
class RuleViolations {
public:
    using Sink = std::function<void(const std::string& line)>;

    // `sink` is called with each line as soon as it is recorded, so that a crash right after the
    // violation doesn't hide it.
    void SetSink(Sink sink) { mSink = std::move(sink); }

    // Records a violation. After kMostLines lines, violations are only counted.
    void Add(BrokenRule rule, const std::string& line);

    // Whether null, unknown, expired and wrong handles break no rule for now, because the host
    // itself has given them to the plug-in.
    void AllowBadHandles(bool isAllowed) { mAllowsBadHandles = isAllowed; }

    // In the order of Add.
    const std::vector<std::string>& Lines() const { return mLines; }

    // The rule of each line.
    const std::vector<BrokenRule>& Rules() const { return mRules; }

    // All violations, stored or not.
    size_t Count() const { return mCount; }

    static constexpr size_t kMostLines = 200;

private:
    Sink mSink;
    std::vector<std::string> mLines;
    std::vector<BrokenRule> mRules;
    size_t mCount = 0;
    bool mAllowsBadHandles = false;
};

}  // namespace headless
