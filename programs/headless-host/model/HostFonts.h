#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>

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
    // One line about what is wrong with the system's fonts in all; empty if nothing is.
    virtual std::string GetProblem() { return {}; }
};

// The fonts of the system, from fontconfig.
class SystemFonts : public FontSource {
public:
    std::set<std::string> ListActiveNames() override;
    std::string GetDefaultName(const std::string& language) override;
    std::map<std::string, documents::FontFile> ListFiles() override;
    // What fontconfig reported about its configuration so far, or that it lists no font.
    std::string GetProblem() override;
};

// The fonts that the host knows: the active ones, its default fonts, and a key for each name that
// was asked for. Main thread only.
class HostFonts {
public:
    // The script of the system; its default font replaces missing fonts.
    static constexpr AIFaceScript kSystemScript = -1;

    HostFonts(FontSource& source, HandleRegister& handles) : mSource(source), mHandles(handles) {}

    // Lists the active fonts again and returns their names.
    const std::set<std::string>& RefreshActiveNames();

    // As of the last refresh.
    const std::set<std::string>& GetActiveNames() const { return mActive; }

    // Returns the name of the active font that a document calls `name`, as of the last refresh
    // (documents::ChooseFontName); `name` if none is.
    std::string Match(const std::string& name) const;

    // The host's default font for a script, or that of the system if the script is unknown. The
    // source is asked once per language, so the result doesn't change while the host runs. Empty if
    // the system has no fonts.
    const std::string& GetDefaultName(AIFaceScript script);

    // The same for a language tag, as FontSource has it.
    const std::string& GetDefaultNameOf(const std::string& language);

    // Whether the font is the default of one of the host's scripts.
    bool IsDefault(const std::string& postScriptName);

    std::map<std::string, documents::FontFile> ListFiles() { return mSource.ListFiles(); }

    // Returns the same key for the same name as long as the host exists.
    AIFontKey GetKey(const std::string& postScriptName);

private:
    FontSource& mSource;
    HandleRegister& mHandles;
    std::set<std::string> mActive;
    std::map<std::string, std::string> mDefaults;  // by language tag
    std::unordered_map<std::string, AIFontKey> mKeys;
};

// The font of a key.
struct FontKeyObject {
    static constexpr HandleType kHandleType = HandleType::kFontKey;
    std::string postScriptName;
};

}  // namespace headless
