#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "replay/JournalReader.h"

namespace headless {

// Compares recorded lines with those that arise. Handles are equal if they have the same type and
// stand for each other in all lines; numbers and times of lines don't matter.
class LineComparison {
public:
    // root   a prefix of the paths of this run, which recorded paths don't have
    explicit LineComparison(std::string root) : mRoot(std::move(root)) {}

    // Returns "" if the lines are equal, else the place of the first difference, as "args/name".
    std::string FindDifference(const RecordedLine& recorded, const RecordedLine& arisen);

    // What a recorded handle, as "art#5", is called in this run.
    std::string GetPresentName(const std::string& recorded) const;

    // How many handles are remembered by their names: those that stand for one of another name.
    // What a plug-in does the same way has the same names, and takes a bit each.
    size_t CountNames() const { return mPresent.size(); }

private:
    std::string CompareValues(const nlohmann::json& recorded, const nlohmann::json& arisen,
                              const std::string& place);
    bool AreEqual(const std::string& recorded, std::string arisen);
    bool Pair(const std::string& recorded, const std::string& arisen);
    bool IsSame(const std::string& name) const;

    const std::string mRoot;
    std::vector<bool> mSame;                       // by the handle's number: has the same name now
    std::map<std::string, std::string> mPresent;   // by the recorded name
    std::map<std::string, std::string> mRecorded;  // by the name in this run
};

// The line in one line of text, without number and time.
std::string DescribeLine(const RecordedLine& line);

}  // namespace headless
