#pragma once

#include <cstddef>
#include <string>

namespace fonts {

// The bytes of a file, mapped into memory for reading; of a small file, a copy of them, which takes
// less time.
class MappedFile {
public:
    // An error is a line without the path, such as "empty".
    explicit MappedFile(const std::string& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    const unsigned char* GetBytes() const { return static_cast<const unsigned char*>(mBytes); }
    size_t GetSize() const { return mSize; }

    // Null unless the file can't be used.
    const char* GetError() const { return mError; }
    bool LacksMemory() const { return mLacksMemory; }

private:
    void Copy(int file, size_t size);
    void Map(int file, size_t size);

    void* mBytes = nullptr;
    size_t mSize = 0;
    bool mIsCopy = false;
    const char* mError = nullptr;
    bool mLacksMemory = false;
};

}  // namespace fonts
