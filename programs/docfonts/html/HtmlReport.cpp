#include "docfonts/html/HtmlReport.h"

#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/DraftFile.h"
#include "docfonts/html/DocumentHtml.h"
#include "docfonts/html/HtmlText.h"
#include "docfonts/html/Specimens.h"
#include "docfonts/html/SpillFile.h"
#include "docfonts/html/SummaryHtml.h"
#include "docfonts/html/Totals.h"
#include "docfonts/html/page/PageParts.h"

namespace docfonts {
namespace {

constexpr mode_t kNewPageMode = 0666;
constexpr size_t kPieceSize = 1 << 16;

mode_t GetNewPageMode()
{
    const mode_t mask = umask(0);
    (void)umask(mask);  // umask can be read only by setting it
    return kNewPageMode & ~mask;
}

// With its slash; "" for the current folder.
std::string GetFolder(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// The file that a symbolic link leads to is the one that is replaced.
std::string FollowLinks(const std::string& path)
{
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) == nullptr ? path : std::string(resolved);
}

// The value of a policy that allows nothing but the page's own script, style and fonts.
std::string MakePolicy(std::string_view scriptHash)
{
    std::string bytes;
    for (size_t digit = 0; digit + 1 < scriptHash.size(); digit += 2) {
        const std::string pair(scriptHash.substr(digit, 2));
        bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    }
    return "default-src 'none'; script-src 'sha256-" + EncodeBase64(bytes) +
           "'; style-src 'unsafe-inline'; font-src data:; base-uri 'none'; form-action 'none'";
}

}  // namespace

// What Add collects, and how Finish puts it together.
class HtmlReport::Parts {
public:
    Parts(const std::string& path, const std::string& note)
        : mPath(path),
          mTarget(FollowLinks(path)),
          mNote(note),
          mBody(GetFolder(mTarget)),
          mDemands(GetFolder(mTarget)),
          mDocuments(mSpecimens, mDemands)
    {
        struct stat status = {};
        if (stat(mTarget.c_str(), &status) == 0) {
            if (S_ISREG(status.st_mode)) mMode = status.st_mode & 07777;
            if (!S_ISREG(status.st_mode)) mError = mPath + ": is not a regular file";
        } else if (errno != ENOENT) {
            NoteError({errno, std::generic_category()});
        }
        NoteErrors();
    }

    void Add(const DocumentReport& document)
    {
        if (!mError.empty()) return;
        mTotals.Add(document);
        (void)mBody.Append(mDocuments.Write(document));
        NoteErrors();
    }

    bool Finish()
    {
        if (!mError.empty()) return false;
        base::DraftFile draft(mTarget + ".XXXXXX");
        const auto write = [&](std::string_view bytes) { WritePiece(draft, bytes); };
        WritePage(write);
        NoteErrors();
        if (mError.empty()) NoteError(draft.Write(mPiece, mMode ? *mMode : GetNewPageMode()));
        if (mError.empty()) NoteError(draft.MoveTo(mTarget));
        if (mError.empty()) base::SyncFolder(GetFolder(mTarget).empty() ? "." : GetFolder(mTarget));
        return mError.empty();
    }

    const std::string& GetError() const { return mError; }

private:
    void NoteError(const std::error_code& error)
    {
        if (error && mError.empty()) mError = mPath + ": cannot be written: " + error.message();
    }

    void NoteErrors()
    {
        NoteError(mBody.GetError());
        NoteError(mDemands.fonts.GetError());
        NoteError(mDemands.styles.GetError());
        NoteError(mDemands.files.GetError());
    }

    void WritePiece(base::DraftFile& draft, std::string_view bytes)
    {
        if (!mError.empty()) return;
        mPiece += bytes;
        if (mPiece.size() < kPieceSize) return;
        NoteError(draft.Append(mPiece));
        mPiece.clear();
    }

    void WriteBody(const std::function<void(std::string_view)>& write)
    {
        std::string piece(kPieceSize, '\0');
        uint64_t position = 0;
        while (const size_t size = mBody.Read(position, piece.data(), piece.size())) {
            write(std::string_view(piece).substr(0, size));
            position += size;
        }
    }

    // Browsers lay out only what is seen of so many documents.
    const char* GetListClass() const
    {
        constexpr uint64_t kMany = 200;
        return mTotals.GetDocuments() >= kMany ? "documents many" : "documents";
    }

    void WritePage(const std::function<void(std::string_view)>& write)
    {
        const PageParts& parts = GetPageParts();
        write(
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
            MakePolicy(parts.scriptHash) +
            "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<meta name=\"color-scheme\" content=\"light dark\">\n<title>" +
            GetTitle(mTotals) + "</title>\n<style>\n");
        write(parts.style);
        write("</style>\n<style>\n");
        mSpecimens.WriteStyles(write);
        write("</style>\n</head>\n<body>\n");
        write(parts.icons);
        write("<a class=\"skip\" href=\"#documents\">To the documents</a>\n");
        write(MakeSummary(mTotals, mNote));
        write("<main>\n");
        WriteDemands(mDemands, write);
        write(std::string("<section class=\"") + GetListClass() +
              "\" aria-labelledby=\"documents\">"
              "<h2 id=\"documents\" tabindex=\"-1\">Documents</h2>\n");
        write(MakeFilter(mTotals));
        WriteBody(write);
        write("</section>\n</main>\n<script>");
        write(parts.script);
        write("</script>\n</body>\n</html>\n");
    }

    const std::string mPath;
    const std::string mTarget;
    const std::string mNote;
    std::string mError;
    std::optional<mode_t> mMode;  // of the file that is replaced
    std::string mPiece;           // not yet in the draft
    SpillFile mBody;
    Demands mDemands;
    Specimens mSpecimens;
    Totals mTotals;
    DocumentHtml mDocuments;
};

HtmlReport::HtmlReport(const std::string& path, const std::string& note)
    : mParts(std::make_unique<Parts>(path, note))
{
}

HtmlReport::~HtmlReport() = default;

void HtmlReport::Add(const DocumentReport& document) { mParts->Add(document); }

bool HtmlReport::Finish() { return mParts->Finish(); }

const std::string& HtmlReport::GetError() const { return mParts->GetError(); }

}  // namespace docfonts
