#include "documents/pdf/PdfFile.h"

#include <algorithm>
#include <exception>
#include <new>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <stdexcept>
#include <utility>

#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/filters/ByteSink.h"
#include "documents/pdf/filters/StreamFilters.h"

namespace documents {

namespace {

constexpr size_t kTailBytes = 2048;
constexpr size_t kMostRepairedBytes = size_t{128} << 20;  // a repaired file is in memory twice

// Warnings of 61 of 1,907 sound files.
bool IsHarmless(const QPDFExc& warning)
{
    const std::string& text = warning.getMessageDetail();
    return text.find("reported number of objects") != std::string::npos ||
           text.find("duplicated key") != std::string::npos;
}

// Returns the file with a trailer that names its catalog; an empty catalog if it has none.
std::string AddTrailer(std::string_view bytes)
{
    std::string root = "<< /Type /Catalog >>";
    const size_t catalog = bytes.rfind("/Catalog");
    if (catalog != std::string_view::npos) {
        const size_t object = bytes.substr(0, catalog).rfind(" obj");
        const size_t end = object == std::string_view::npos ? 0 : object;
        // "12 0" in front of " obj"
        const size_t before = bytes.substr(0, end).find_last_not_of("0123456789 ");
        const size_t start = before == std::string_view::npos ? 0 : before + 1;
        if (start < end) root = std::string(bytes.substr(start, end - start)) + " R";
    }
    return std::string(bytes) + "\ntrailer\n<< /Root " + root + " >>\nstartxref\n0\n%%EOF\n";
}

bool HasEndMark(std::string_view bytes)
{
    const size_t start = bytes.size() > kTailBytes ? bytes.size() - kTailBytes : 0;
    return bytes.substr(start).find("%%EOF") != std::string_view::npos;
}

}  // namespace

PdfFile::PdfFile(std::string_view bytes) : mBytes(bytes), mPdf(std::make_unique<QPDF>())
{
    InstallStreamFilters();
}

void PdfFile::ReadStructure()
{
    mPdf->setSuppressWarnings(true);
    try {
        mPdf->processMemoryFile("document", mBytes.data(), mBytes.size());
    } catch (const QPDFExc& exception) {
        const bool hasNoTrailer =
            exception.getMessageDetail().find("unable to find trailer") != std::string::npos;
        if (!hasNoTrailer || mBytes.size() > kMostRepairedBytes) throw;
        mRepaired = AddTrailer(mBytes);
        mPdf = std::make_unique<QPDF>();
        mPdf->setSuppressWarnings(true);
        mPdf->processMemoryFile("document", mRepaired.data(), mRepaired.size());
        mRecovery = GetDamage("it has no trailer");
    }
}

void PdfFile::ReadPages()
{
    std::string reason;
    try {
        mPages = mPdf->getAllPages();
        if (mPages.empty()) throw std::runtime_error("no page in it");
        return;
    } catch (const QPDFExc& exception) {
        reason = exception.getMessageDetail();
    }
    mPages = FindPageObjects();
    if (mPages.empty()) {
        throw QPDFExc(qpdf_e_damaged_pdf, "", "", 0, reason);
    }
    mRecovery = GetDamage(reason) + "; the pages are in the order of their objects";
}

std::vector<QPDFObjectHandle> PdfFile::FindPageObjects()
{
    std::vector<QPDFObjectHandle> pages;
    for (const QPDFObjectHandle& object : mPdf->getAllObjects()) {
        QPDFObjectHandle type = GetKeyOrNull(object, "/Type");
        if (type.isName() && type.getName() == "/Page") pages.push_back(object);
    }
    return pages;
}

std::string PdfFile::Open()
{
    try {
        ReadStructure();
        ReadPages();
    } catch (const QPDFExc& exception) {
        if (exception.getErrorCode() == qpdf_e_password) return "encrypted: needs a password";
        if (exception.getErrorCode() == qpdf_e_unsupported && mPdf->isEncrypted()) {
            return "encrypted in an unknown way: " +
                   base::ToMessageText(exception.getMessageDetail());
        }
        return GetDamage(exception.getMessageDetail());
    } catch (const LimitExceeded& exception) {
        return exception.what();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        return GetDamage(exception.what());
    }
    return {};
}

std::string PdfFile::GetDamage(const std::string& reason) const
{
    const char* fault = HasEndMark(mBytes) ? "damaged: " : "cut off, and the rest cannot be read: ";
    return fault + base::ToMessageText(reason);
}

std::vector<std::string> PdfFile::TakeNotes()
{
    std::vector<std::string> notes;
    if (!mRecovery.empty()) notes.push_back(std::exchange(mRecovery, {}));
    std::vector<QPDFExc> warnings = mPdf->getWarnings();
    warnings.erase(std::remove_if(warnings.begin(), warnings.end(), IsHarmless), warnings.end());
    if (!warnings.empty()) {
        const char* fault = HasEndMark(mBytes) ? "damaged: " : "cut off: ";
        notes.push_back(fault + base::ToMessageText(warnings.front().getMessageDetail()));
        if (warnings.size() > 1) {
            notes.back() += " (and " + std::to_string(warnings.size() - 1) + " more)";
        }
    }
    if (mBrokenStreams > 0) {
        notes.push_back("streams that cannot be decoded completely: " +
                        std::to_string(mBrokenStreams));
        mBrokenStreams = 0;
    }
    return notes;
}

QPDFObjectHandle PdfFile::GetResources(const QPDFObjectHandle& page)
{
    return QPDFPageObjectHelper(page).getAttribute("/Resources", /*copy_if_shared=*/false);
}

void PdfFile::AppendStream(QPDFObjectHandle stream, ByteBuffer& data)
{
    const size_t start = data.GetSize();
    ByteSink sink(data);
    bool filtered = false;
    bool whole = false;
    try {
        whole = stream.pipeStreamData(&sink, &filtered, 0, qpdf_dl_specialized, true, false);
    } catch (const LimitExceeded&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        // What was decoded before the damage is used; mBrokenStreams includes the stream.
        whole = false;
    }
    // For an unknown filter the library writes the stored data, which isn't content.
    if (!filtered) data.Truncate(start);
    if (!whole || !filtered) ++mBrokenStreams;
}

}  // namespace documents
