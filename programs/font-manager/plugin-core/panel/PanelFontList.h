#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "fonts/FaceNames.h"
#include "plugin-core/services/Services.h"

namespace plugincore {

// A font of the library, by the file that would be activated for its name.
struct PanelFont {
    std::string postScriptName;
    std::string path;
    std::string id;  // as PanelFontFile.h has it; "" if browsers can't show the font
    int64_t file = 0;
    int64_t faceIndex = 0;
    int64_t modified = 0;
};

// The fonts of the library as the panel lists them. Remembers the list until the database changes,
// and the families until the files do: reading 10,000 files takes a second or more. Errors of the
// database are thrown as Failure. [the thread of the services]
class PanelFontList {
public:
    // The services have to outlive this object.
    explicit PanelFontList(Services& services) : mServices(services) {}

    // Returns the fonts of a folder and the folders below it, or of the whole library for "", by
    // name. The reference is valid until the next call.
    const std::vector<PanelFont>& List(const std::string& folder);

    // Reads the font's family unless it is known. The reference is valid until the next call.
    const fonts::FaceNames& GetFamily(const PanelFont& font);

    // Whether each of the words is a part of the font's name, or of its family and style. The words
    // are in lower case.
    bool Matches(const PanelFont& font, const std::vector<std::string>& words);

private:
    struct Names {
        fonts::FaceNames family;
        std::string inLowerCase;
    };
    const Names& GetNames(const PanelFont& font);

    Services& mServices;
    std::string mKey;  // what mFonts was read for
    std::vector<PanelFont> mFonts;
    // By file, modification time and face.
    std::map<std::tuple<int64_t, int64_t, int64_t>, Names> mNames;
};

}  // namespace plugincore
