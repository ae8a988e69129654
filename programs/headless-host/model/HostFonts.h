#pragma once

#include <map>
#include <set>
#include <string>

#include "HostTypes.h"
#include "checks/HandleRegister.h"
#include "documents/write/WriteText.h"

namespace headless {

// Where the host's fonts come from; tests put one of their own in its place.
class FontSource {
public:
    virtual ~FontSource() = default;
    virtual std::set<std::string> ListActiveNames() = 0;
    // The default font for a language tag as "ja", for the system if that is empty; empty if there
    // is none.
    virtual std::string GetDefaultName(const std::string& language) = 0;
    // The files of the active fonts, by name.
    virtual std::map<std::string, documents::FontFile> ListFiles() = 0;
};

// The source of the real host: fontconfig.
class SystemFonts : public FontSource {
public:
    std::set<std::string> ListActiveNames() override;
    std::string GetDefaultName(const std::string& language) override;
    std::map<std::string, documents::FontFile> ListFiles() override;
};

// The host's fonts: which are active, which are its own defaults, and a key for each name asked
// for.
class HostFonts {
public:
    HostFonts(FontSource& source, HandleRegister& handles) : mSource(source), mHandles(handles) {}

    // Lists anew; what came or went since is seen.
    const std::set<std::string>& RefreshActiveNames();
    const std::set<std::string>& GetActiveNames() const { return mActive; }

    // The host's default font for a script, or for the system if the script is unknown. Asked of
    // the source once per language, so it doesn't change while the host runs.
    const std::string& GetDefaultName(AIFaceScript script);

    // Whether the name is the default of one of the host's scripts.
    bool IsDefault(const std::string& postScriptName);

    std::map<std::string, documents::FontFile> ListFiles() { return mSource.ListFiles(); }

    // The same name gives the same key for the life of the host.
    AIFontKey GetKey(const std::string& postScriptName);

private:
    FontSource& mSource;
    HandleRegister& mHandles;
    std::set<std::string> mActive;
    std::map<std::string, std::string> mDefaults;  // by language tag
    std::map<std::string, AIFontKey> mKeys;
};

// A font as the host knows it behind a key.
struct FontKeyObject {
    static constexpr HandleType kHandleType = HandleType::kFontKey;
    std::string postScriptName;
};

}  // namespace headless
