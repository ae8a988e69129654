#include "validator/report/CaseFiles.h"

#include <filesystem>

#include "base/DraftFile.h"
#include "base/JsonText.h"
#include "base/Strings.h"
#include "validator/report/CaseJson.h"

namespace headless {

namespace {

constexpr size_t kMostNameBytes = 100;
constexpr int kIndent = 2;
constexpr mode_t kFileMode = 0644;

}  // namespace

std::string WriteWholeFile(const std::string& path, const std::string& content)
{
    base::DraftFile draft(path + ".XXXXXX");
    std::error_code error = draft.Write(content, kFileMode);
    if (!error) error = draft.MoveTo(path);
    return error ? path + ": cannot be written: " + error.message() : std::string();
}

// A name for files, of which there is only one of each, without characters that shells or folders
// interpret.
std::string CaseFiles::MakeName(const ValidatorCase& which)
{
    std::string base = std::to_string(which.rule) + "-" + which.name.substr(0, kMostNameBytes);
    for (char& letter : base) {
        const bool isPlain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                             (letter >= '0' && letter <= '9') || letter == '.' || letter == '-';
        if (!isPlain) letter = '-';
    }
    std::string name = base;
    for (size_t number = 2; !mNames.insert(name).second; ++number) {
        name = base + "-" + std::to_string(number);
    }
    return name;
}

std::string CaseFiles::Write(const ValidatorCase& which, int level, const CaseOutcome& outcome)
{
    std::error_code error;
    std::filesystem::create_directories(mFolder, error);
    if (error) return mFolder + ": cannot be created: " + error.message();
    const std::string start = mFolder + "/" + MakeName(which);

    std::string script = "# rule " + std::to_string(which.rule) + ", " +
                         base::MakePrintable(which.name) + "\nsimulate\n" + which.script;
    if (script.back() != '\n') script += '\n';
    std::string journal;
    for (const std::string& line : outcome.journal) journal += line + "\n";
    const std::string description =
        base::PrintJson(DescribeCase(which, level, outcome), kIndent) + "\n";

    std::string problem = WriteWholeFile(start + ".session", script);
    if (problem.empty()) problem = WriteWholeFile(start + ".journal", journal);
    if (problem.empty()) problem = WriteWholeFile(start + ".json", description);
    return problem;
}

}  // namespace headless
