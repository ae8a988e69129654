#include "documents/model/FileKind.h"

#include <cstdint>

#include "base/Strings.h"

namespace documents {

namespace {

constexpr std::string_view kDosHeader = "\xC5\xD0\xD3\xC6";
constexpr size_t kDosHeaderBytes = 30;
constexpr size_t kHeadBytes = 1024;

uint32_t GetLittleEndian(std::string_view bytes, size_t offset)
{
    uint32_t value = 0;
    for (size_t index = 4; index-- > 0;) {
        value = value << 8 | static_cast<unsigned char>(bytes[offset + index]);
    }
    return value;
}

}  // namespace

Container GetContainer(std::string_view head)
{
    if (base::StartsWith(head, kDosHeader)) return Container::kDosEPS;
    if (base::StartsWith(head, "%!PS")) return Container::kPostScript;
    if (head.substr(0, kHeadBytes).find("%PDF-") != std::string_view::npos) return Container::kPDF;
    // Some programs leave out "PS". A PDF may begin with such a line, but not with "%!PS".
    if (base::StartsWith(head, "%!")) return Container::kPostScript;
    return Container::kNone;
}

PostScriptSection FindPostScriptSection(std::string_view file)
{
    PostScriptSection section;
    if (file.size() < kDosHeaderBytes) {
        section.error = "cut off within its EPS header";
        return section;
    }
    const size_t offset = GetLittleEndian(file, 4);
    const size_t length = GetLittleEndian(file, 8);
    if (offset >= file.size()) {
        section.error = "cut off before its PostScript section";
        return section;
    }
    section.bytes = file.substr(offset, length);
    if (!base::StartsWith(section.bytes, "%!")) {
        section.error = "its EPS header points to something that isn't PostScript";
    } else if (section.bytes.size() < length) {
        section.note = "the PostScript section is cut off";
    }
    return section;
}

bool IsTemplatePath(std::string_view path) { return base::EndsWith(base::ToLower(path), ".ait"); }

}  // namespace documents
