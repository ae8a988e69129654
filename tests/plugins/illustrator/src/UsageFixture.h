#pragma once

#include <string>
#include <vector>

#include "MessageFixture.h"
#include "ScriptedHostSuites.h"

inline const char* const kChanged = "AI Document Changed Notifier";
inline const char* const kAboutToClose = "AI Document About To Close Notifier";
inline const char* const kClosed = "AI Document Closed Notifier";
inline const char* const kAfterSave = "AI Command Notifier: After Save";
inline const char* const kAfterSaveAs = "AI Command Notifier: After Save As";
inline const char* const kWritten = "AI Document Write On Disk Complete Notifier";

// The report of a document's fonts and placed files.
inline std::string Usage(const std::vector<std::string>& fonts,
                         const std::vector<std::string>& placed = {})
{
    const auto join = [](const std::vector<std::string>& texts, const std::string& before,
                         const std::string& behind) {
        std::string all;
        for (const std::string& text : texts) {
            if (!all.empty()) all += ",";
            all += before;
            all += text;
            all += behind;
        }
        return all;
    };
    return "{\"DocumentFonts\":[" + join(fonts, "{\"PostScriptName\":\"", "\"}") +
           "],\"LinkedDocuments\":[" + join(placed, "\"", "\"") + "]}";
}

// A font's name or a path that no JSON text can hold.
inline const char* const kNoUTF8 = "\xff\xfe";

// The host of most of these tests gives no array when nothing matches: a null handle, with success.
class UsageTest : public MessageTest {
protected:
    UsageTest() : mGetMatchingArt(MatchingArtSuite()->GetMatchingArt) { Start(); }
    ~UsageTest() override { MatchingArtSuite()->GetMatchingArt = mGetMatchingArt; }

    void GiveNullForNoArt()
    {
        sOriginal = mGetMatchingArt;
        MatchingArtSuite()->GetMatchingArt = MatchOrNull;
    }

    // Adds a document with one text frame whose runs are in these fonts, and makes it the current
    // one. Without fonts there is no frame.
    _t_AIDocument* AddDocument(const std::string& path, const std::vector<std::string>& fonts = {},
                               const std::vector<std::string>& placed = {})
    {
        ScriptedDocument& document = host.AddDocument(path);
        if (!fonts.empty()) document.frames = {{fonts}};
        document.storyFonts = fonts;
        document.placedPaths = placed;
        return host.DocumentHandle(host.currentDocument);
    }
    ScriptedDocument& Current() { return host.documents.at(std::size_t(host.currentDocument)); }
    void SetFonts(const std::vector<std::string>& fonts) { Current().frames = {{fonts}}; }

    std::size_t Scans() { return host.CountCalls("AIMatchingArtSuite.GetMatchingArt({12, 0, 0}"); }

private:
    static AIErr MatchOrNull(AIMatchingArtSpec* specs, int16_t numSpecs, AIArtHandle*** matches,
                             int32_t* numMatches)
    {
        const AIErr result = sOriginal(specs, numSpecs, matches, numMatches);
        if (result != 0 || *numMatches > 0) return result;
        ScriptedHost::Current().artArrays.erase(*matches);
        *matches = nullptr;
        return result;
    }

    using Match = decltype(AIMatchingArtSuite::GetMatchingArt);
    inline static Match sOriginal = nullptr;
    const Match mGetMatchingArt;
};
