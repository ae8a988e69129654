#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace docfonts {

// What the command line asks for.
struct Options {
    std::vector<std::string> files;
    std::string listFile;  // has more files; "-" for standard input
    bool isRecursive = false;
    bool json = false;
    bool names = false;
    bool onlyMissing = false;
    bool placed = false;
    std::string html;     // the page to write; "" for none
    double timeout = 30;  // in seconds for each file
    size_t jobs = 0;      // 0: as many as there are cores
};

}  // namespace docfonts
