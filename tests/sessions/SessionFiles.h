#pragma once

#include <chrono>

#include "EndToEnd.h"

// The files that the scripts use, in the scratch folder.
class SessionFiles : public EndToEnd {
protected:
    SessionFiles()
    {
        namespace fs = std::filesystem;
        // A year ago, so that a save changes the file's time.
        const auto yearAgo = fs::file_time_type::clock::now() - std::chrono::hours(24 * 365);
        for (const char* name : {"leaflet.eps", "letterhead.ait", "missing-font.pdf"}) {
            fs::last_write_time(scratch / Sample(name), yearAgo);
        }
        WriteFile(scratch / "version8.eps",
                  "%!PS-Adobe-3.0 EPSF-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n"
                  "%%BoundingBox: 0 0 100 100\n%%DocumentFonts: DejaVuSans\n%%EndComments\n"
                  "showpage\n%%EOF\n");
        fs::last_write_time(scratch / "version8.eps", yearAgo);
        fs::create_directory(scratch / "library/First");
    }

    // Copies a script to the file "session", and prepares the settings, PluginCore and event bus
    // that it needs.
    void CopySession(const std::string& name)
    {
        if (name == "disabled") {
            WriteFile(home / ".config/Corvanta/settings.json", R"({"PluginEnabled":"0"})");
        }
        if (name == "bad-menus") pluginCore = MENUS_OF_FILE_FOLDER;
        if (name == "listener-fails-once") {
            frameworks = std::filesystem::path(SCRIPTED_PLUG_PLUG_FOLDER) / name;
        }
        std::filesystem::copy(std::filesystem::path(SESSIONS_FOLDER) / (name + ".session"),
                              scratch / "session");
    }
};
