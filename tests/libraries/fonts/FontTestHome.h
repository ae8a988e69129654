#pragma once
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "ScratchFolder.h"

// A home folder for one test, with a fontconfig of its own that knows the user's fonts alone, so
// that no font of the machine is active. Removed at the end; the environment is put back.
class FontTestHome {
public:
    FontTestHome();
    ~FontTestHome();
    FontTestHome(const FontTestHome&) = delete;
    FontTestHome& operator=(const FontTestHome&) = delete;

    const std::filesystem::path& GetPath() const { return mPath; }
    std::filesystem::path GetData() const { return mPath / "data"; }
    std::filesystem::path GetUserFonts() const { return mPath / "data/fonts"; }
    std::filesystem::path GetLibrary() const { return mPath / "library"; }

    // Copies a DejaVu font, as "DejaVuSans-Bold", into a folder, which is made; returns the file.
    static std::filesystem::path CopyFont(const std::string& name,
                                          const std::filesystem::path& folder);
    static void WriteFile(const std::filesystem::path& file, const std::string& bytes);

    // The PostScript names that another process's fc-list sees.
    static std::set<std::string> ListOfOtherProcess();

private:
    void SetVariable(const std::string& name, const std::string& value);

    ScratchFolder mFolder;
    std::filesystem::path mPath = mFolder.Path();
    std::vector<std::pair<std::string, std::string>> mBefore;
};

// The bytes of a collection of two font files.
std::string MakeCollection(const std::filesystem::path& first, const std::filesystem::path& second);

// The bytes of the font with an axis and one named instance for each of the styles.
std::string MakeVariableFont(const std::filesystem::path& file,
                             const std::vector<std::string>& styles);
