#pragma once

#include <string>
#include <vector>

struct EpsFacts {
    std::vector<std::string> fonts;        // PostScript names
    std::vector<std::string> placedFiles;  // one entry per placed object
};

// Gives the EPS with structuring comments that list its fonts and placed files, the same bytes at
// every run. Throws std::runtime_error if `eps` hasn't the comments that it must have.
std::string FinishEps(const std::string& eps, const EpsFacts& facts);
