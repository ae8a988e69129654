#pragma once

#include <string>
#include <vector>

// What FinishEps adds to an EPS.
struct EpsFacts {
    std::vector<std::string> fonts;        // PostScript names
    std::vector<std::string> placedFiles;  // one entry per placed object
};

// Returns the EPS with structuring comments that list its fonts and placed files. Equal arguments
// give equal bytes. Throws std::runtime_error if `eps` has no %%EndComments or %%Trailer.
std::string FinishEps(const std::string& eps, const EpsFacts& facts);
