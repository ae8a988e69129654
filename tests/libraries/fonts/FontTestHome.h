#pragma once
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "ScratchFolder.h"

// A home folder for one test, with a fontconfig configuration that has the user's fonts only, so
// that no font of the machine is active. The destructor removes it and restores the environment.
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

    // Copies a DejaVu font, such as "DejaVuSans-Bold", into a folder, which is created if it
    // doesn't exist. Returns the file.
    static std::filesystem::path CopyFont(const std::string& name,
                                          const std::filesystem::path& folder);
    static void WriteFile(const std::filesystem::path& file, const std::string& bytes);

    // Overwrites the bytes of a file, and leaves it the size and modification time that it has: for
    // whoever doesn't read it, it is unchanged.
    static void DamageUnnoticed(const std::filesystem::path& file);

    // Returns the PostScript names that fc-list, another process, lists.
    static std::set<std::string> ListOfOtherProcess();

private:
    void SetVariable(const std::string& name, const std::string& value);

    ScratchFolder mFolder;
    std::filesystem::path mPath = mFolder.Path();
    std::vector<std::pair<std::string, std::string>> mBefore;
};

// Returns a collection of two font files.
std::string MakeCollection(const std::filesystem::path& first, const std::filesystem::path& second);

// Returns the font with a variation axis and a named instance for each style.
std::string MakeVariableFont(const std::filesystem::path& file,
                             const std::vector<std::string>& styles);
