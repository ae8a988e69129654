#include "FileFormatHook.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>

#include "DebugUtils.h"
#include "DialogSuppression.h"
#include "HostSuites.h"
#include "IllustratorUtilities.h"
#include "PCILoader.h"
#include "PluginStartup.h"
#include "TypeloftSPEA.h"

namespace {

constexpr char kFileFormatSuiteName[] = "AI File Format Suite";
constexpr int kFileFormatSuiteVersion = 1015;
constexpr int32_t kFileFormatOptions = 1;
constexpr int32_t kFileFormatPriority = 10000;

constexpr size_t kFontsBufferSize = 0x100000;
constexpr long kSuppressionSeconds = 15;

constexpr int kCreatorLines = 25;
constexpr char kCreatorOfVersion8[] = "%Creator: Adobe Illustrator(R) 8.0";

constexpr int32_t FourCharacterCode(const char (&text)[5])
{
    return text[0] << 24 | text[1] << 16 | text[2] << 8 | text[3];
}

void AcquireFileFormatSuite(AIFileFormatSuite*& formats)
{
    try {
        AcquireSuite(kFileFormatSuiteName, kFileFormatSuiteVersion, &formats);
    } catch (int) {
        AcquireSuite(kFileFormatSuiteName, kFileFormatSuiteVersion, &formats);
    }
}

void RegisterFormat(SPInterfaceMessage* message, AIFileFormatSuite* formats)
{
    static int32_t sTypes[] = {FourCharacterCode("ART5"), FourCharacterCode("EPSF"),
                               FourCharacterCode("PDF "), FourCharacterCode("AITm")};
    PlatformAddFileFormatExData data = {
        static_cast<int32_t>(std::size(sTypes)),
        sTypes,
        ai::UnicodeString("Corvanta", kAIPlatformCharacterEncoding),
        0,
        ai::UnicodeString("ai,eps,pdf,ait", kAIPlatformCharacterEncoding),
    };
    AIFileFormatHandle format = nullptr;
    // Whether it was added shows in the handle alone.
    (void)formats->AddFileFormatEx(message->d.self, "Corvanta", &data, kFileFormatOptions, &format,
                                   0);
    if (format == nullptr) return;
    // A format that stays at the host's own priority is asked all the same.
    (void)formats->SetFileFormatPriority(format, kFileFormatPriority);
    gGlobals->fileFormatHandle = format;
}

// What is passed to and fro with PluginCore: a text of at most kFontsBufferSize bytes, with a byte
// behind them that stays zero.
class FontsBuffer {
public:
    FontsBuffer() : mBytes(new (std::nothrow) char[kFontsBufferSize + 1]()) {}

    bool IsAllocated() const { return mBytes != nullptr; }
    bool IsEmpty() const { return mBytes[0] == '\0'; }
    char* GetBytes() { return mBytes.get(); }
    size_t* GetSize() { return &mSize; }

    // Cuts the text at the present size, which PluginCore may have changed.
    void Assign(const std::string& text)
    {
        const size_t limit = std::min(mSize, kFontsBufferSize);
        mBytes[text.copy(mBytes.get(), limit)] = '\0';
    }

private:
    std::unique_ptr<char[]> mBytes;
    size_t mSize = kFontsBufferSize;
};

// True if both the choice and the activation went well.
bool ResolveAndActivate(PCILoader* core, const std::string& path, FontsBuffer& buffer)
{
    std::string fonts = buffer.GetBytes();
    if (RemoveIllustratorDefaultFonts(fonts)) buffer.Assign(fonts);

    const unsigned int resolveStatus =
        core->pfInvokeResolveDialog(buffer.GetBytes(), buffer.GetSize());
    if (buffer.IsEmpty()) {
        OutputIndentedAndFormattedString(0, "InvokeResolveDialog(..., OUT bufSize=%d) returned %d",
                                         static_cast<int>(*buffer.GetSize()),
                                         static_cast<int>(resolveStatus));
        return false;
    }
    int value = 0;
    const unsigned int activateStatus =
        core->pfActivateChosenFonts(path.c_str(), buffer.GetBytes(), &value);
    return resolveStatus == 0 && activateStatus == 0;
}

}  // namespace

AIErr AddFileFormat(SPInterfaceMessage* message)
{
    OutputIndentedAndFormattedString(1, "Entering %s", "AddFileFormat");
    AIFileFormatSuite* formats = nullptr;
    try {
        AcquireFileFormatSuite(formats);
        RegisterFormat(message, formats);
        ReleaseSuite(kFileFormatSuiteName, kFileFormatSuiteVersion, &formats);
        OutputIndentedAndFormattedString(-1, "%s returning %d", "AddFileFormat", kHostSuccess);
    } catch (...) {
        OutputIndentedAndFormattedString(-1, "Error thrown in %s()", "AddFileFormat");
        ReleaseSuite(kFileFormatSuiteName, kFileFormatSuiteVersion, &formats);
    }
    return kHostSuccess;
}

std::string GetDocumentPathFromFileFormatMessage(AIFileFormatMessage* message)
{
    std::string path;
    // An empty path tells of itself.
    (void)GetAIPathAsUTF8String(message->GetFilePath(), path, false);
    return path;
}

void HandleCheckFileFormat(const std::string& path, const json& fontUsage)
{
    PCILoader* const core = PCILoader::GetSharedInstance();
    bool enabled = false;
    // Only the answer counts.
    (void)core->pfPluginIsEnabled(true, &enabled);
    if (!enabled) return;

    FontsBuffer buffer;
    if (!buffer.IsAllocated()) return;
    if (!fontUsage.is_null()) buffer.Assign(fontUsage.dump());

    int value = 0;
    // Only what it leaves in the buffer counts.
    (void)core->pfHandleOpenExistingDocument(path.c_str(), buffer.GetBytes(), buffer.GetSize(),
                                             &value);
    if (buffer.IsEmpty() || ResolveAndActivate(core, path, buffer)) {
        SetSuppressionOfMissingFontsDialog(kSuppressionSeconds);
    }
}

bool IsEPSVersion8(const std::string& path)
{
    try {
        std::filebuf file;
        if (file.open(path, std::ios::in) == nullptr) return false;
        // The text's first character comes only once in it, so a mismatch can begin but there.
        size_t matched = 0;
        int lines = 0;
        for (int c = file.sbumpc(); c != std::filebuf::traits_type::eof(); c = file.sbumpc()) {
            if (c == kCreatorOfVersion8[matched]) {
                if (++matched == sizeof kCreatorOfVersion8 - 1) return true;
            } else {
                matched = c == kCreatorOfVersion8[0] ? 1 : 0;
            }
            if (c == '\n' && ++lines == kCreatorLines) return false;
        }
    } catch (...) {
        // A file that can't be read isn't of that version.
        return false;
    }
    return false;
}

AIErr GetAIPathAsUTF8String(const ai::FilePath& filePath, std::string& out, bool fileNameOnly)
{
    out = (fileNameOnly ? filePath.GetFileName(false) : filePath.GetFullPath(false)).as_UTF8();
    return out.empty() ? -1 : kHostSuccess;
}

AIErr GetDocumentFileSpec(std::string* out, bool fileNameOnly)
{
    if (gDocumentSuite == nullptr) return kHostBadParameter;
    ai::FilePath path;
    const AIErr status = gDocumentSuite->GetDocumentFileSpecification(path);
    // An empty path is told by the text alone.
    if (status == kHostSuccess) (void)GetAIPathAsUTF8String(path, *out, fileNameOnly);
    return status;
}

_t_AIDocument* GetCurrentDocument()
{
    _t_AIDocument* document = nullptr;
    // Without a current document the handle stays null.
    if (gDocumentSuite != nullptr) (void)gDocumentSuite->GetDocument(&document);
    return document;
}
