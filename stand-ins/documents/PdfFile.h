#pragma once

#include <qpdf/QPDF.hh>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

// A PDF opened through the PDF library, which is kept silent: what it complains about becomes
// notes. The bytes must outlive it. Used by one thread at a time.
class PdfFile {
public:
    explicit PdfFile(std::string_view bytes);

    // Empty if the file is open, else one line that says why not: encrypted, cut off or damaged.
    std::string Open();

    // What the library and its streams complained about since the last call, one line in all.
    std::vector<std::string> TakeNotes();

    QPDF& GetPdf() { return mPdf; }
    const std::vector<QPDFObjectHandle>& GetPages() const { return mPages; }

    // Appends the decoded data of a stream to `data`, as far as it can be decoded; a stream that
    // can't be is noted. Throws LimitExceeded if the file inflates to more than its ReadBudget.
    void AppendStream(QPDFObjectHandle stream, std::string& data);

private:
    std::string GetDamage(const std::string& reason) const;

    std::string_view mBytes;
    QPDF mPdf;
    std::vector<QPDFObjectHandle> mPages;
    size_t mBrokenStreams = 0;
};

}  // namespace documents
