#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <utility>

namespace headless {

// The lines of the host's journal, so that a script can ask which messages and calls there were.
// Lines that differ only in number and time are stored once and counted each time. Main thread.
class JournalLines {
public:
    void Add(const std::string& operation, const nlohmann::json& arguments,
             const nlohmann::json& result);

    // The number of lines with exactly this operation.
    size_t Count(const std::string& operation) const;

    // Whether there is a line whose operation contains `operation` and whose arguments or result,
    // as JSON, contain `text` or the escaped form of `text`.
    bool Has(const std::string& operation, const std::string& text) const;

    // False if there were too many different lines to store all. Has may then miss some; Count is
    // still exact.
    bool IsComplete() const { return mLines.size() < kMostLines; }

private:
    static constexpr size_t kMostLines = 100000;

    std::map<std::string, size_t> mCounts;
    std::set<std::pair<std::string, std::string>> mLines;  // operation; arguments and result
};

}  // namespace headless
