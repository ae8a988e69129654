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

// The usage report for these fonts and placed files.
inline std::string Usage(const std::vector<std::string>& fonts,
                         const std::vector<std::string>& placed = {})
{
    const auto join = [](const std::vector<std::string>& texts, const std::string& before,
                         const std::string& after) {
        std::string all;
        for (const std::string& text : texts) {
            if (!all.empty()) all += ",";
            all += before;
            all += text;
            all += after;
        }
        return all;
    };
    return "{\"DocumentFonts\":[" + join(fonts, "{\"PostScriptName\":\"", "\"}") +
           "],\"LinkedDocuments\":[" + join(placed, "\"", "\"") + "]}";
}

// A font name or path that isn't valid UTF-8, so JSON can't contain it.
inline const char* const kNoUTF8 = "\xff\xfe";

// Tests of usage reports and of the handlers that need them; the plug-in is running.
class UsageFixture : public MessageFixture {
protected:
    UsageFixture() : mGetMatchingArt(MatchingArtSuite()->GetMatchingArt) { Start(); }
    ~UsageFixture() override { MatchingArtSuite()->GetMatchingArt = mGetMatchingArt; }

    // From now on the host returns a null array, with success, if no art matches.
    void GiveNullForNoArt()
    {
        sOriginal = mGetMatchingArt;
        MatchingArtSuite()->GetMatchingArt = MatchOrNull;
    }

    // Adds a document and makes it the current one. It has one text frame with a run in each of
    // the fonts; without fonts it has no frame.
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

    // How often the text frames were searched.
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
