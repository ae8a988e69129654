#include "model/FileHeads.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "base/FileDescriptor.h"
#include "base/Files.h"
#include "base/JsonText.h"
#include "base/Lines.h"
#include "base/ReadWrite.h"

namespace headless {

namespace {

nlohmann::json ReadHead(const std::string& path)
{
    if (!base::IsReadableFile(path)) return nullptr;
    const base::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    std::string bytes;
    if (!file.IsValid() || base::ReadUpTo(file.Get(), FileHeads::kMostBytes, bytes)) return nullptr;
    std::string_view rest = bytes;
    for (size_t line = 0; line < FileHeads::kMostLines && !rest.empty(); ++line) {
        (void)base::TakeLine(rest);
    }
    bytes.resize(bytes.size() - rest.size());
    // As it is in the journal, where bytes that aren't UTF-8 are replaced.
    return nlohmann::json::parse(base::PrintJson(nlohmann::json(bytes)));
}

}  // namespace

void FileHeads::Record(Journal& journal, const std::string& path)
{
    if (!journal.IsOpen()) return;
    nlohmann::json file = {{"path", path}, {"head", ReadHead(path)}};
    struct stat status = {};
    if (!file["head"].is_null() && stat(path.c_str(), &status) == 0) {
        file["time"] = status.st_mtime;
    }
    const auto written = mWritten.find(path);
    if (written != mWritten.end() && written->second == file) return;
    journal.Write("world", "file", file, nullptr);
    mWritten[path] = std::move(file);
}

}  // namespace headless
