#pragma once

#include <string>

namespace headless {

// A new, empty folder in the system's folder for temporary files, which TMPDIR names. The
// destructor deletes it with all that it contains.
class TemporaryFolder {
public:
    // Where no file system is chosen by TMPDIR: in memory it takes a fraction of the time to make
    // and delete many small files.
    enum class Place { kUsual, kInMemory };

    // place   kInMemory has no effect if TMPDIR is set, or on systems without such a file system
    //         for programs
    // Throws std::runtime_error with one line if the folder cannot be created.
    explicit TemporaryFolder(Place place = Place::kUsual);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Absolute.
    const std::string& GetPath() const { return mPath; }

private:
    std::string mPath;
};

// Deletes a folder with all that it contains, folders without write permission included. Symbolic
// links are deleted and not followed. Leaves what the system refuses to delete.
void DeleteFolder(const std::string& folder);

}  // namespace headless
