#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CoreTestHome.h"

// The started framework with DejaVuSans, DejaVuSerif and DejaVuSansMono in its library, and the
// calls as the plug-in makes them. Stopped at the end.
class CoreSession {
public:
    CoreSession();
    ~CoreSession();
    CoreSession(const CoreSession&) = delete;
    CoreSession& operator=(const CoreSession&) = delete;

    void Restart() const;
    std::string GetId(const std::string& path) const;
    std::string GetMenus(const std::string& path) const;

    // Chooses the item as for a document with these fonts in its text; returns what was said on
    // standard error. No path: no document.
    std::string Choose(const std::string& key, const std::string& path = "",
                       const std::vector<std::string>& fonts = {}) const;

    // The usage that the database has for a document.
    std::string GetKeptUsage(const std::string& path) const;

    FontTestHome home;
    Framework core;
};

// A usage as it crosses.
std::string MakeUsage(const std::vector<std::string>& fonts,
                      const std::vector<std::string>& linked = {});

// An .eps file that names the fonts and places the files.
void WriteEps(const std::filesystem::path& file, const std::vector<std::string>& fonts,
              const std::vector<std::string>& placed = {});

std::string CaptureErrors(const std::function<void()>& work);
