#pragma once

#include <map>
#include <string>

#include "model/Journal.h"

namespace headless {

// What a plug-in can read at the beginning of files: it opens documents itself, to look at the
// comments in their first lines, and at the time of their last change. Main thread only.
class FileHeads {
public:
    // Writes the beginning of the file to the journal, or null if it cannot be read, unless the
    // journal has this already.
    void Record(Journal& journal, const std::string& path);

    static constexpr size_t kMostBytes = 8192;
    static constexpr size_t kMostLines = 25;

private:
    std::map<std::string, nlohmann::json> mWritten;  // by path
};

}  // namespace headless
