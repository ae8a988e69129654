#pragma once

#include <memory>
#include <qpdf/QPDF.hh>
#include <string>
#include <string_view>
#include <vector>

#include "documents/bytes/ByteBuffer.h"

namespace documents {

// A PDF opened with the PDF library, whose warnings become notes instead of output, except for
// those that the library gives of many sound files. A damaged file without a trailer or with a page
// tree that can't be read is recovered as far as possible, with a note. `bytes` must outlive the
// object. [one thread at a time]
class PdfFile {
public:
    using Object = QPDFObjectHandle;

    explicit PdfFile(std::string_view bytes);

    // Opens the file. Returns "", or the reason in one line: encrypted, cut off or damaged. Throws
    // std::bad_alloc.
    std::string Open();

    // Returns the problems found since the last call: at most one line for the library's warnings
    // and one for streams.
    std::vector<std::string> TakeNotes();

    QPDF& GetPdf() { return *mPdf; }
    QPDFObjectHandle GetTrailer() { return mPdf->getTrailer(); }

    // The page's resources, or those that it inherits.
    static QPDFObjectHandle GetResources(const QPDFObjectHandle& page);
    static std::vector<QPDFObjectHandle> GetContents(QPDFObjectHandle page)
    {
        return page.getPageContents();
    }

    const std::vector<QPDFObjectHandle>& GetPages() const { return mPages; }

    // Appends the decoded data of a stream to `data`. What a damaged stream gives before the damage
    // is kept; TakeNotes reports the number of such streams. Throws LimitExceeded, std::bad_alloc.
    void AppendStream(QPDFObjectHandle stream, ByteBuffer& data);

private:
    // Throw what the PDF library throws.
    void ReadStructure();
    void ReadPages();
    std::vector<QPDFObjectHandle> FindPageObjects();
    std::string GetDamage(const std::string& reason) const;

    std::string_view mBytes;
    std::string mRepaired;  // the bytes with a trailer; empty if they have one
    std::unique_ptr<QPDF> mPdf;
    std::vector<QPDFObjectHandle> mPages;
    size_t mBrokenStreams = 0;
    std::string mRecovery;  // a note
};

}  // namespace documents
