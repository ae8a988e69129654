#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

// A new, empty folder below the temporary folder of the tests. The destructor removes it and all of
// its content.
class ScratchFolder {
public:
    ScratchFolder()
    {
        // Without symbolic links, so that paths compare equal to what the system reports.
        std::string pattern =
            std::filesystem::canonical(testing::TempDir()).string() + "/typeloft-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch folder");
        mPath = pattern;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;  // the system cleans its temporary folder up
        std::filesystem::remove_all(mPath, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // Returns the full path of a name in the folder; of the folder itself for "".
    std::string Path(const std::string& name = "") const
    {
        return name.empty() ? mPath : mPath + "/" + name;
    }

    // Writes a file, creates the folders above it and returns its full path.
    std::string Write(const std::string& name, const std::string& content) const
    {
        const std::string path = Path(name);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream file(path, std::ios::binary);
        file << content;
        file.close();
        if (!file) throw std::runtime_error("cannot write " + path);
        return path;
    }

private:
    std::string mPath;
};
