#pragma once

#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace plugincore {

// A font of the library, by the file that would be activated for its name.
struct PanelFont {
    std::string postScriptName;
    std::string id;  // as PanelFontFile.h has it; "" if browsers can't show the font
    std::string family;
    std::string style;
    std::string nameInLowerCase;
    std::string familyInLowerCase;  // with the style
};

// Whether each of the words is a part of the font's name, or of its family and style. The words are
// in lower case.
bool Matches(const PanelFont& font, const std::vector<std::string>& words);

// The fonts of the library as the panel lists them, from the index. Remembers the list until the
// database changes. Errors of the database are thrown as Failure. [the thread of the services]
class PanelFontList {
public:
    // The services have to outlive this object.
    explicit PanelFontList(Services& services) : mServices(services) {}

    // Returns the fonts of a folder and the folders below it, or of the whole library for "", by
    // name. The reference is valid until the next call.
    const std::vector<PanelFont>& List(const std::string& folder);

private:
    Services& mServices;
    std::string mKey;  // what mFonts was read for
    std::vector<PanelFont> mFonts;
};

}  // namespace plugincore
