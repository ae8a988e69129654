#include "FileFormatHook.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>

#include "ClearMemory.h"
#include "DebugUtils.h"
#include "DefaultFonts.h"
#include "HostSuites.h"
#include "PCILoader.h"
#include "PluginGlobals.h"
#include "SuppressionPeriod.h"

namespace {

constexpr char kFileFormatSuiteName[] = "AI File Format Suite";
constexpr int kFileFormatSuiteVersion = 1015;
constexpr int32_t kFileFormatOptions = 1;
constexpr int32_t kFileFormatPriority = 10000;

// The size of the buffer in which PluginCore gets and returns the font JSON of a document.
constexpr size_t kFontsBufferSize = 0x100000;
constexpr long kSuppressionSeconds = 15;

constexpr int kCreatorLines = 25;
constexpr char kCreatorOfVersion8[] = "%Creator: Adobe Illustrator(R) 8.0";

constexpr int32_t FourCharacterCode(const char (&text)[5])
{
    return text[0] << 24 | text[1] << 16 | text[2] << 8 | text[3];
}

// Tries twice.
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
    // The handle alone decides whether the format was added.
    (void)formats->AddFileFormatEx(message->d.self, "Corvanta", &data, kFileFormatOptions, &format,
                                   0);
    if (format == nullptr) return;
    // With the host's default priority the plug-in is asked all the same.
    (void)formats->SetFileFormatPriority(format, kFileFormatPriority);
    gGlobals->fileFormatHandle = format;
}

// The font JSON that PluginCore reads and replaces: at most kFontsBufferSize bytes, followed by a
// byte that is always zero.
class FontsBuffer {
public:
    FontsBuffer() : mBytes(new (std::nothrow) char[kFontsBufferSize + 1])
    {
        // All of it: a text for which PluginCore writes no end ends where it stopped writing.
        if (IsAllocated()) ClearMemory(mBytes.get(), kFontsBufferSize + 1);
    }

    bool IsAllocated() const { return mBytes != nullptr; }
    bool IsEmpty() const { return mBytes[0] == '\0'; }
    char* GetBytes() { return mBytes.get(); }
    size_t* GetSize() { return &mSize; }

    // Cuts the text at the current size, which PluginCore may have changed.
    void Assign(const std::string& text)
    {
        const size_t limit = std::min(mSize, kFontsBufferSize);
        mBytes[text.copy(mBytes.get(), limit)] = '\0';
    }

private:
    std::unique_ptr<char[]> mBytes;
    size_t mSize = kFontsBufferSize;
};

// Returns whether both the dialog and the activation succeeded.
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
    // An error leaves `path` empty, which callers test.
    (void)GetAIPathAsUTF8String(message->GetFilePath(), path, false);
    return path;
}

void HandleCheckFileFormat(const std::string& path, const json& fontUsage)
{
    if (!IsPluginEnabled()) return;

    FontsBuffer buffer;
    // Opening the file must not fail for want of memory for its fonts: the check ends silently, and
    // the host shows its own missing-fonts dialog.
    if (!buffer.IsAllocated()) return;
    if (!fontUsage.is_null()) buffer.Assign(fontUsage.dump());

    PCILoader* const core = PCILoader::GetSharedInstance();
    int value = 0;
    // The result is in the buffer, whatever the status.
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
        // The first character occurs only once in the text, so after a mismatch only the current
        // character can start a match.
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
