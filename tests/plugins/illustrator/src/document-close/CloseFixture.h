#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <string>
#include <vector>

#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "UsageFixture.h"

inline const char* const kIsEnabled = "PluginIsEnabled(true, false)";

inline std::string CallWith(const std::string& name, const std::string& path,
                            const std::string& usage)
{
    return name + "(\"" + path + "\", \"" + usage + "\")";
}
inline std::string Save(const std::string& path, const std::string& usage)
{
    return CallWith("HandleSaveDocument", path, usage);
}
inline std::string Close(const std::string& path, const std::string& usage)
{
    return CallWith("HandleCloseDocument", path, usage);
}
inline std::string Activate(const std::string& path, const std::string& usage)
{
    return "ActivateChosenFonts(\"" + path + "\", \"" + usage + "\", 0)";
}

// Closes documents; their records are written to the registry directly.
class CloseFixture : public UsageFixture {
protected:
    CloseFixture() { GiveNullForNoArt(); }

    static std::string HandleText(const void* document) { return Low32(document).substr(2); }
    static std::string Erased(const void* document, int count = 1)
    {
        return "ForgetAboutDocumentHandle(" + HandleText(document) + ") erased " +
               std::to_string(count) + " map entries.";
    }

    // Sends the message that the document is closed. `current` is the index of the document that is
    // current by then; -1 for none.
    AIErr SendClosed(_t_AIDocument* document, int current = -1)
    {
        host.currentDocument = current;
        Forget();
        return SendNotifier(kClosed, document);
    }
    void Record(_t_AIDocument* document, const std::string& path, long timestamp,
                const std::string& usage, const std::string& templatePath = "")
    {
        SetFilePathForDocumentHandle(document, path);
        SetTimestampForDocumentHandle(document, timestamp);
        SetFontUsageForDocumentHandle(document, usage);
        SetTemplatePathForDocumentHandle(document, templatePath);
    }
    static long ModificationTime(const std::string& path)
    {
        struct stat status = {};
        EXPECT_EQ(0, stat(path.c_str(), &status));
        return status.st_mtime;
    }
    static void SetModificationTime(const std::string& path, long seconds)
    {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        EXPECT_EQ(0, utimensat(AT_FDCWD, path.c_str(), times, 0));
    }
    // The index of the trace line with exactly this text.
    static std::size_t IndexOf(const std::string& text)
    {
        const std::vector<std::string> texts = TraceTexts();
        for (std::size_t index = 0; index < texts.size(); ++index) {
            if (texts[index] == text) return index;
        }
        ADD_FAILURE() << "not traced: " << text;
        return 0;
    }

    static constexpr const char* kStored = R"({"DocumentFonts":[],"LinkedDocuments":["/stored"]})";
};
