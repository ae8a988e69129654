#include "application/SaveDocument.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "base/Strings.h"
#include "documents/bytes/FileBytes.h"
#include "documents/model/FileKind.h"
#include "documents/write/WriteDocument.h"
#include "documents/write/WriteFile.h"
#include "system/Environment.h"

namespace headless {

namespace {

enum class Family { kNone, kPDF, kPostScript };

struct Extension {
    std::string_view text;
    Family family;
};

// Returns the extension that the path ends in, in upper or lower case, or null if it is another
// one. The name may consist of the extension alone.
const Extension* FindExtension(const std::string& path)
{
    static constexpr Extension kExtensions[] = {{".ai", Family::kPDF},
                                                {".ait", Family::kPDF},
                                                {".pdf", Family::kPDF},
                                                {".eps", Family::kPostScript}};
    const std::string lower = base::ToLower(path);
    for (const Extension& each : kExtensions) {
        if (base::EndsWith(lower, each.text)) return &each;
    }
    return nullptr;
}

// The format to write; kNone, with the reason in `error`, if the document cannot be written as the
// extension says.
Family ChooseFamily(const DocumentObject& document, const std::string& path, std::string& error)
{
    const Extension* const wanted = FindExtension(path);
    if (wanted == nullptr) {
        error = "cannot be saved: the name must end in .ai, .ait, .pdf or .eps";
        return Family::kNone;
    }
    if (document.base.empty()) return wanted->family;
    const Family own = documents::GetContainer(document.base) == documents::Container::kPDF
                           ? Family::kPDF
                           : Family::kPostScript;
    // The same extension as before keeps the format, even if it is that of the other family: a PDF
    // may be called .eps.
    if (own == wanted->family || wanted == FindExtension(document.source)) return own;
    error = own == Family::kPDF ? "cannot be saved: a PDF document cannot become EPS"
                                : "cannot be saved: a PostScript document cannot become PDF";
    return Family::kNone;
}

documents::WriteOrder MakeOrder(Host& host, const DocumentObject& document, const std::string& path)
{
    documents::WriteOrder order;
    order.base = document.base;
    order.texts = document.addedTexts;
    order.fonts = documents::GetAllFontNames(document.content);
    order.linkedFiles = document.content.linkedFiles;
    order.addedLinks = document.addedLinks;
    const size_t start = path.rfind('/') + 1;
    order.title = path.substr(start, path.rfind('.') - start);
    order.substituteFont = host.fonts.GetDefaultName(HostFonts::kSystemScript);
    if (!order.texts.empty()) {
        order.findFont = [files = host.fonts.ListFiles()](const std::string& name) {
            const auto found = files.find(name);
            return found == files.end() ? documents::FontFile() : found->second;
        };
    }
    return order;
}

std::string Write(Host& host, DocumentObject& document, const std::string& path)
{
    for (const auto& other : host.GetDocuments()) {
        if (other.get() != &document && other->hasFile && other->path == path) {
            return "cannot be saved: another open document has this name";
        }
    }
    std::string error = KeepBase(document);
    if (!error.empty()) return "cannot be saved: " + error;
    const Family family = ChooseFamily(document, path, error);
    if (!error.empty()) return error;
    const documents::WriteOrder order = MakeOrder(host, document, path);
    std::string bytes =
        family == Family::kPDF ? documents::WritePdf(order) : documents::WriteEps(order);
    error = documents::ReplaceFile(path, bytes, GetDraftRecordFolder());
    if (!error.empty()) return "cannot be saved: " + error;
    document.base = std::move(bytes);
    document.hasBase = true;
    host.MarkSaved(document, path);
    return {};
}

}  // namespace

std::string KeepBase(DocumentObject& document)
{
    if (document.hasBase || document.source.empty()) return {};
    documents::FileBytes file =
        documents::ReadFileBytes(document.source, documents::Limits{}.inflatedBytes,
                                 [](const std::string&) { return std::string(); });
    if (!file.error.empty()) return "the file it was opened from " + file.error;
    document.base = std::move(file.bytes);
    document.hasBase = true;
    return {};
}

std::string SaveDocument(Host& host, DocumentObject& document, const std::string& path)
{
    std::string error;
    try {
        error = host.writer ? host.writer(document, path) : Write(host, document, path);
    } catch (const std::exception& exception) {
        error = std::string("cannot be saved: ") + exception.what();
        std::replace(error.begin(), error.end(), '\n', ' ');
    }
    host.journal.Write("host", "save", {{"path", path}}, error);
    return error;
}

}  // namespace headless
