#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

namespace headless {

// The lines of the journal since it began, for questions about them. Lines that only differ in
// number and time count as often as they came and are kept once.
class JournalLines {
public:
    void Add(const std::string& operation, const nlohmann::json& arguments,
             const nlohmann::json& result);

    // How many lines had exactly this operation.
    size_t Count(const std::string& operation) const;

    // Whether a line had an operation with `operation` in it, and `text` in its arguments or result
    // as they stand in the journal, or as a text in them.
    bool Has(const std::string& operation, const std::string& text) const;

    // False once there have been so many different lines that not all are kept.
    bool IsComplete() const { return mLines.size() < kKept; }

private:
    static constexpr size_t kKept = 100000;

    std::map<std::string, size_t> mCounts;
    std::set<std::pair<std::string, std::string>> mLines;  // operation, arguments and result
};

}  // namespace headless
