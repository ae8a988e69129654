#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CoreTestHome.h"

// The framework, started with DejaVuSans, DejaVuSerif and DejaVuSansMono in its library, and called
// as the plug-in calls it. The destructor stops it.
class CoreSession {
public:
    CoreSession();
    ~CoreSession();
    CoreSession(const CoreSession&) = delete;
    CoreSession& operator=(const CoreSession&) = delete;

    void Restart() const;
    std::string GetId(const std::string& path) const;
    std::string GetMenus(const std::string& path) const;

    // Chooses a menu item for a document with these fonts, or without a document if `path` is "".
    // Returns what was written to standard error.
    std::string Choose(const std::string& key, const std::string& path = "",
                       const std::vector<std::string>& fonts = {}) const;

    // The usage report in the database.
    std::string GetStoredUsage(const std::string& path) const;

    FontTestHome home;
    Framework core;
};

// A usage report in the form of the interface.
std::string MakeUsage(const std::vector<std::string>& fonts,
                      const std::vector<std::string>& linked = {});

// Writes an .eps file that names the fonts and places the files.
void WriteEps(const std::filesystem::path& file, const std::vector<std::string>& fonts,
              const std::vector<std::string>& placed = {});

// Writes a document of the illustration program with text in `font` that lists these fonts.
void WriteNative(const std::filesystem::path& file, const std::string& font,
                 const std::vector<std::string>& listed);

std::string CaptureErrors(const std::function<void()>& work);
