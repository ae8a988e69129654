#pragma once

#include <set>
#include <string>

#include "validator/Case.h"

namespace headless {

// The folder of --output-dir: three files for each case that failed, whose names begin with the
// rule's number and the case's name: .session, a script that plays the case again, .journal, the
// last lines of the journal, and .json, the outcome.
class CaseFiles {
public:
    // folder   is created with the first file; files of an earlier run are replaced
    explicit CaseFiles(std::string folder) : mFolder(std::move(folder)) {}

    // Writes the files of a case; each is complete or absent.
    //
    // level   of the case's rule
    // Returns one line that names the file and the reason if something cannot be written; else "".
    std::string Write(const ValidatorCase& which, int level, const CaseOutcome& outcome);

private:
    std::string MakeName(const ValidatorCase& which);

    std::string mFolder;
    std::set<std::string> mNames;
};

// Writes a file in one step. Returns one line that names the file and the reason if it cannot be
// written; else "".
std::string WriteWholeFile(const std::string& path, const std::string& content);

}  // namespace headless
