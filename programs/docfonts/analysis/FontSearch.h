#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "docfonts/report/DocumentReport.h"
#include "fonts/FaceNames.h"

namespace docfonts {

// Finds out which fonts are on this system: those that fontconfig provides, and those in the font
// manager's library as its database has them. Reads both when it is created and writes nothing.
// Answers are remembered, a bounded number of them. Not thread-safe.
class FontSearch {
public:
    FontSearch();
    ~FontSearch();
    FontSearch(const FontSearch&) = delete;
    FontSearch& operator=(const FontSearch&) = delete;

    // Why fonts of the system or of the library are unknown, a line for each; usually empty. No
    // database is no problem.
    const std::vector<std::string>& GetProblems() const { return mProblems; }

    // Sets family, style, state, otherStyle, file and faceIndex of all fonts of the report and of
    // the documents that it places.
    void Complete(DocumentReport& report);

private:
    class Library;
    struct Face {
        std::string file;
        int index = 0;
        std::optional<fonts::FaceNames> names;  // if the index of the library has them
    };

    void ReadInstalled();
    void ReadLibrary();
    UsedFont Find(const std::string& name);
    std::optional<Face> FindExactly(const std::string& name, UsedFont& font);
    std::optional<Face> FindOtherStyle(const std::string& name, UsedFont& font);

    std::map<std::string, Face> mInstalled;  // by PostScript name
    std::unique_ptr<Library> mLibrary;       // null if there is none
    // All names, by the family that their names tell.
    std::map<std::string, std::vector<std::string>> mFamilies;
    std::map<std::string, UsedFont> mAnswers;
    std::vector<std::string> mProblems;
};

// The part of a PostScript name that its family has in common, for comparing: "helvetica" for
// "Helvetica-Bold", "timesnewroman" for "TimesNewRomanPS-BoldMT" and "TimesNewRomanPSMT".
std::string GetFamilyKey(const std::string& postScriptName);

}  // namespace docfonts
