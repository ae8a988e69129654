#include "documents/pdf/PdfFile.h"

#include <exception>
#include <new>
#include <qpdf/QPDFExc.hh>

#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/StreamFilters.h"

namespace documents {

namespace {

constexpr size_t kTailBytes = 2048;

class ByteSink : public Pipeline {
public:
    explicit ByteSink(ByteBuffer& data) : Pipeline("sink", nullptr), mData(data) {}
    void write(unsigned char const* data, size_t length) override
    {
        mData.AppendTaken({reinterpret_cast<const char*>(data), length});
    }
    void finish() override {}

private:
    ByteBuffer& mData;
};

bool HasEndMark(std::string_view bytes)
{
    const size_t start = bytes.size() > kTailBytes ? bytes.size() - kTailBytes : 0;
    return bytes.substr(start).find("%%EOF") != std::string_view::npos;
}

}  // namespace

PdfFile::PdfFile(std::string_view bytes) : mBytes(bytes)
{
    InstallStreamFilters();
    mPdf.setSuppressWarnings(true);
}

std::string PdfFile::Open()
{
    try {
        mPdf.processMemoryFile("document", mBytes.data(), mBytes.size());
        mPages = mPdf.getAllPages();
    } catch (const QPDFExc& exception) {
        if (exception.getErrorCode() == qpdf_e_password) return "encrypted: needs a password";
        if (exception.getErrorCode() == qpdf_e_unsupported && mPdf.isEncrypted()) {
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
    if (mPages.empty()) return GetDamage("no page in it");
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
    const std::vector<QPDFExc> warnings = mPdf.getWarnings();
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
