#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "HostSuites.h"
#include "IllustratorUtilities.h"
#include "RecordingTrace.h"
#include "ScriptedHost.h"

// The host's numbers of the scripts that the plug-in asks for, in order.
inline const std::vector<AIFaceScript> kScripts = {-2, -1, 0,  1,  2,  3,  4,  5,  6,  7,  9,  10,
                                                   11, 12, 13, 14, 15, 16, 17, 25, 29, 32, 81, 85};

// A host whose suites are acquired, with the same default font for each script. Use it in a new
// process, since the list of default fonts is made once per process.
class DefaultFontsHost : public ScriptedHost {
public:
    explicit DefaultFontsHost(const std::string& name)
    {
        for (const AIFaceScript script : kScripts) defaultFonts[script] = name;
        if (AcquireSuites(Basic()) != kHostSuccess) throw std::runtime_error("no suites");
        ClearCalls();
        ClearTraces();
    }
};

// Returns whether the plug-in treats the font as a default font.
inline bool IsDefault(const std::string& name)
{
    json fonts = json::array({{{"PostScriptName", name}}});
    return RemoveIllustratorDefaultFonts(fonts);
}

// The names added to the list so far, in order.
inline std::vector<std::string> AddedNames()
{
    const std::string before = "Adding '";
    const std::string after = "' to list of Illustrator default fonts.";
    std::vector<std::string> names;
    for (const std::string& text : TraceTexts()) {
        if (text.compare(0, before.size(), before) != 0) continue;
        if (text.size() < before.size() + after.size()) continue;
        const std::size_t end = text.size() - after.size();
        if (text.compare(end, after.size(), after) != 0) continue;
        names.push_back(text.substr(before.size(), end - before.size()));
    }
    return names;
}
