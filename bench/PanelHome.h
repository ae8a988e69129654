#pragma once

#include <filesystem>
#include <string>
#include <vector>

// A home folder for panel-bench with a font library of its own. The environment names it from the
// constructor on; the destructor removes it.
class PanelHome {
public:
    // Makes `fonts` fonts out of DejaVuSansMono-BoldOblique, whose file is `source`. Throws
    // std::runtime_error.
    PanelHome(const std::filesystem::path& source, int fonts);
    ~PanelHome();
    PanelHome(const PanelHome&) = delete;
    PanelHome& operator=(const PanelHome&) = delete;

    // The PostScript names of the library.
    const std::vector<std::string>& GetNames() const { return mNames; }

    // The message with the token of the panel. Throws std::runtime_error.
    std::string MakeTokenMessage() const;

private:
    std::filesystem::path mFolder;
    std::vector<std::string> mNames;
};
