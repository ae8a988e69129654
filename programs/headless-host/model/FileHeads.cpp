#include "model/FileHeads.h"

#include <fcntl.h>

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
    nlohmann::json head = ReadHead(path);
    const auto written = mWritten.find(path);
    if (written != mWritten.end() && written->second == head) return;
    journal.Write("world", "file", {{"path", path}, {"head", head}}, nullptr);
    mWritten[path] = std::move(head);
}

}  // namespace headless
