#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Host.h"
#include "simulation/CallCounts.h"
#include "simulation/SimulatedCore.h"

namespace headless {

// A system for the host to run in, without fonts, documents and a font manager of a real one: the
// script says what there is. Main thread only.
class SimulatedWorld : public FontSource {
public:
    // Makes `folder` the home and the working folder of this process, and installs the simulated
    // PluginCore in it. Throws std::runtime_error, with one line, if that fails.
    //
    // folder   an empty folder, absolute
    explicit SimulatedWorld(const std::string& folder);

    std::set<std::string> ListActiveNames() override { return mActive; }
    std::string GetDefaultName(const std::string&) override { return kDefaultFont; }
    std::map<std::string, documents::FontFile> ListFiles() override { return {}; }

    // The active fonts become these and the default font.
    void SetActive(const std::vector<std::string>& names);

    // Creates a small file at `path`, which the host reads as `result` from now on.
    //
    // path   absolute or relative to the folder
    // Returns "", or one line about why the file cannot be created.
    std::string SetDocument(const std::string& path, documents::OpenResult result);

    // What the host reads from a file.
    documents::OpenResult Read(const std::string& path) const;

    // Saves a document of `host`; see Host::writer. It may be saved over the file of another open
    // document, which the host's own writers refuse: other hosts permit it.
    std::string Write(Host& host, DocumentObject& document, const std::string& path);

    // Before the plug-in is started: PluginCore lacks a function, or doesn't exist. Return false if
    // the function isn't one of PluginCore, or if the file cannot be changed.
    bool LackFunction(const std::string& name);
    bool LackCore();

    // The absolute form of a path of a script.
    std::string GetPath(const std::string& path) const;

    // "", or one line that says why no file may be created or deleted at this path: a simulation
    // changes nothing outside of its folder.
    std::string CheckPath(const std::string& path) const;

    // The calls so far don't count, see GetCounts.
    void CountFrom(const Host& host);

    // The calls from now on don't count either.
    void CountUpTo(const Host& host) { mEnd = GetCounts(host); }

    // The calls since CountFrom, or all, up to CountUpTo.
    CallCounts GetCounts(const Host& host) const;

    static constexpr char kDefaultFont[] = "Default-Regular";

    SimulatedCore core;
    std::string language = "en";  // a tag of kHostLanguages
    std::set<std::string> lackingSuites;
    std::map<std::string, int> suiteVersions;  // see Host::suiteVersions
    bool isRefused = false;                    // the plug-in has refused to start
    bool isSilentAfterRefusal = false;  // `send` sends a refusing plug-in only what hosts send it
    bool mayRefuse = false;             // a plug-in that refuses to start breaks no rule

private:
    std::string mFolder;
    const std::string mModule;  // PluginCore's, in the folder
    CallCounts mStart;
    std::optional<CallCounts> mEnd;  // since mStart
    std::set<std::string> mActive = {kDefaultFont};
    std::map<std::string, documents::OpenResult> mDocuments;
};

}  // namespace headless
