#include "documents/OpenDocument.h"

#include <exception>
#include <new>
#include <string_view>
#include <utility>

#include "base/Utf8.h"
#include "documents/bytes/FileBytes.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/DocumentReader.h"
#include "documents/native/NativeAdditions.h"
#include "documents/native/NativeReader.h"
#include "documents/pdf/PdfDescription.h"
#include "documents/pdf/PdfFile.h"
#include "documents/pdf/PdfReader.h"
#include "documents/pdf/details/PageFonts.h"
#include "documents/pdf/quick/QuickParser.h"
#include "documents/postscript/DscReader.h"
#include "documents/postscript/GhostscriptReader.h"

namespace documents {

namespace {

std::string GetHeadError(std::string_view head)
{
    if (head.empty()) return "is empty";
    if (GetContainer(head) == Container::kNone) return "is not a PDF, EPS or Illustrator document";
    return {};
}

// Calls one reader. An exception becomes kFailed, so that the next reader is tried; exceeded limits
// and lack of memory end the whole reading instead.
ReadResult Ask(const DocumentReader& reader, const DocumentSource& source, const Limits& limits,
               Document& document)
{
    try {
        return reader.read(source, limits, document);
    } catch (const LimitExceeded&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        return {ReadStatus::kFailed, "damaged: " + base::ToMessageText(exception.what())};
    }
}

OpenResult AskReaders(const DocumentSource& source, const Limits& limits, const Document& described)
{
    OpenResult result;
    std::vector<std::string> failures;
    for (const DocumentReader& reader : GetDocumentReaders()) {
        Document document = described;
        ReadResult answer = Ask(reader, source, limits, document);
        if (answer.status == ReadStatus::kNotMine) continue;
        if (answer.status == ReadStatus::kFailed) {
            failures.push_back(std::move(answer.text));
            continue;
        }
        document.reader = reader.name;
        document.notes.insert(document.notes.end(), failures.begin(), failures.end());
        result.ok = true;
        result.document = std::move(document);
        return result;
    }
    result.error = failures.empty() ? "nothing in it can be read" : failures.front();
    return result;
}

// Without a native part, this host stores the files that it places with the first page.
void AddHostFiles(PdfFile& file, Document& document)
{
    if (file.GetPages().empty()) return;
    for (std::string& path : ReadAdditions(file.GetPages().front()).files) {
        document.linkedFiles.push_back(std::move(path));
    }
}

// Returns false, with the budget's bytes as before, if the file isn't one for the quick reader.
bool ReadQuickly(std::string_view bytes, const Limits& limits, ReadBudget& budget,
                 Document& document)
{
    try {
        Document quick = document;
        ReadPdfQuickly(bytes, limits, quick);
        document = std::move(quick);
        return true;
    } catch (const Irregular&) {
        budget.RestoreBytes();
    } catch (const LimitExceeded&) {
        // The library's readers say what is too large, and where.
        budget.RestoreBytes();
    }
    return false;
}

OpenResult ReadPdf(std::string_view bytes, const Limits& limits, Document described)
{
    OpenResult result;
    ReadBudget budget(limits.inflatedBytes, limits.seconds);
    result.ok = ReadQuickly(bytes, limits, budget, described);
    budget.Check();
    if (result.ok) {
        result.document = std::move(described);
        return result;
    }
    PdfFile file(bytes);
    result.error = file.Open();
    budget.Check();
    if (!result.error.empty()) return result;
    DescribePdf(file, described);
    const bool hasNativePart = !FindNativePage(file.GetPages()).isNull();
    // The manifest of any other PDF lists what its original linked; the PDF contains copies of it.
    if (!hasNativePart) described.linkedFiles.clear();
    DocumentSource source;
    source.container = Container::kPDF;
    source.pdf = &file;
    result = AskReaders(source, limits, described);
    if (!hasNativePart) AddHostFiles(file, result.document);
    if (result.ok && limits.hasDetails) result.document.pageFonts = ReadPageFonts(file);
    budget.Check();
    for (std::string& note : file.TakeNotes()) result.document.notes.push_back(std::move(note));
    return result;
}

OpenResult ReadPostScript(std::string_view bytes, const Limits& limits, Document described)
{
    const ReadBudget budget(limits.inflatedBytes, limits.seconds);
    DocumentSource source;
    source.container = GetContainer(bytes);
    source.postScript = bytes;
    if (source.container == Container::kDosEPS) {
        PostScriptSection section = FindPostScriptSection(bytes);
        if (!section.error.empty()) {
            OpenResult result;
            result.error = std::move(section.error);
            return result;
        }
        if (!section.note.empty()) described.notes.push_back(std::move(section.note));
        source.postScript = section.bytes;
    }
    DescribePostScript(source.postScript, described);
    if (source.container == Container::kDosEPS) described.kind = Kind::kEPS;
    return AskReaders(source, limits, described);
}

OpenResult ReadBytes(std::string_view bytes, const Limits& limits, Document described)
{
    return GetContainer(bytes) == Container::kPDF
               ? ReadPdf(bytes, limits, std::move(described))
               : ReadPostScript(bytes, limits, std::move(described));
}

OpenResult Read(const std::string& path, const Limits& limits)
{
    OpenResult result;
    const FileBytes file = ReadFileBytes(
        path, limits.inflatedBytes, [](const std::string& head) { return GetHeadError(head); });
    if (!file.error.empty()) {
        result.error = file.error;
        return result;
    }
    Document described;
    described.isTemplate = IsTemplatePath(path);
    return ReadBytes(file.bytes, limits, std::move(described));
}

// Turns any exception into an error.
template <class Reading>
OpenResult Guard(Reading reading)
{
    OpenResult result;
    try {
        return reading();
    } catch (const std::bad_alloc&) {
        result.error = "too large: not enough memory";
    } catch (const std::exception& exception) {
        result.error = base::ToMessageText(exception.what());
    } catch (...) {
        result.error = "damaged in an unknown way";
    }
    return result;
}

}  // namespace

const std::vector<DocumentReader>& GetDocumentReaders()
{
    static const std::vector<DocumentReader> readers = {
        {"native", ReadNative},     {"pdf", ReadPdfContent},
        {"dsc", ReadDscComments},   {"ghostscript", ReadThroughGhostscript},
        {"dsc", ReadSuppliedFonts},
    };
    return readers;
}

OpenResult OpenDocument(const std::string& path, const Limits& limits)
{
    return Guard([&] { return Read(path, limits); });
}

OpenResult OpenDocumentBytes(std::string_view bytes, const Limits& limits)
{
    return Guard([&] {
        OpenResult result;
        result.error = GetHeadError(bytes);
        return result.error.empty() ? ReadBytes(bytes, limits, {}) : result;
    });
}

}  // namespace documents
