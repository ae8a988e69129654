#include "vexcor/commands/LaunchInformation.h"

#include <vector>

#include "plugin-core/storage/Locations.h"

namespace vexcor {
namespace {

constexpr const char* kKey = "vexcor.path";

// Splits the text after each `end`. The last part may be without one.
std::vector<std::string> Split(const std::string& text, char end)
{
    std::vector<std::string> parts;
    for (size_t start = 0; start < text.size();) {
        const size_t found = text.find(end, start);
        const size_t next = found == std::string::npos ? text.size() : found + 1;
        parts.push_back(text.substr(start, next - start));
        start = next;
    }
    return parts;
}

bool SetsPath(const std::string& line) { return line.rfind(std::string(kKey) + "=", 0) == 0; }

// Removes the parts of the line, separated by carriage returns, that set a path: some readers take
// a carriage return for the end of a line.
std::string DropPaths(const std::string& line)
{
    std::string kept;
    for (const std::string& part : Split(line, '\r')) {
        if (!SetsPath(part)) kept += part;
    }
    if (kept == line) return line;
    if (kept == "\n") return {};
    if (!kept.empty() && kept.back() != '\n' && line.back() == '\n') kept += '\n';
    return kept;
}

}  // namespace

std::filesystem::path GetLaunchInformationFile()
{
    return plugincore::GetLocations().launchInformation;
}

std::string SetVexcorPath(const std::string& text, const std::string& program)
{
    std::string before;
    std::string after;
    bool isKeySeen = false;
    for (const std::string& line : Split(text, '\n')) {
        isKeySeen = isKeySeen || line.find(kKey) != std::string::npos;
        (isKeySeen ? after : before) += DropPaths(line);
    }
    if (!before.empty() && before.back() != '\n') before += '\n';
    return before + kKey + "=" + program + "\n" + after;
}

}  // namespace vexcor
