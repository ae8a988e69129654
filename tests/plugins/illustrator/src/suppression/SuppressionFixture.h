#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DialogSuppression.h"
#include "FakeClock.h"
#include "FakeWindow.h"
#include "FreshProcess.h"
#include "InProcessPluginCore.h"
#include "RecordingTrace.h"
#include "ScratchFolder.h"
#include "ScriptedHost.h"

inline const std::vector<std::string> kBuiltInHints = {
    "Font",
    "font",
    "fuente",
    "Fuentes",
    "police",
    "Polices",
    "Caratteri",
    "Schriftprobleme",
    "Schriftart suchen",
    "Schriften",
    "\xE3\x83\x95\xE3\x82\xA9\xE3\x83\xB3\xE3\x83\x88"};

// A host, a PluginCore that lies in the scratch folder, and nothing traced yet. To be made in a
// fresh process: the period, the hints and the hook are kept for the life of a process.
struct Suppression {
    Suppression()
    {
        core.Loader().frameworkPath = scratch.Path("PluginCore.framework");
        ClearTraces();
    }

    std::string OverridePath() const { return scratch.Path("DialogSuppression.tmp"); }
    void WriteOverride(const std::string& lines) const
    {
        (void)scratch.Write("DialogSuppression.tmp", lines);  // The path is known.
    }
    BeginModalSessionFunction Slot() const { return GetHostPlatform()->beginModalSession; }

    ScratchFolder scratch;
    ScriptedHost host;
    InProcessPluginCore core;
    const BeginModalSessionFunction ownSession = GetHostPlatform()->beginModalSession;
};

// The trace of one hint.
inline std::string HintTrace(const std::string& hint)
{
    return "AddDialogSuppressionHint(" + hint + ", 0x00000035)";
}

// The traces of hints, in order.
inline std::vector<std::string> HintTraces()
{
    std::vector<std::string> texts;
    for (const std::string& text : TraceTexts()) {
        if (text.rfind("AddDialogSuppressionHint(", 0) == 0) texts.push_back(text);
    }
    return texts;
}

inline std::vector<std::string> HintTracesOf(const std::vector<std::string>& hints)
{
    std::vector<std::string> texts;
    for (const std::string& hint : hints) texts.push_back(HintTrace(hint));
    return texts;
}

// How many seconds are left of the period, by the trace; 0 if none runs.
inline int SecondsLeft()
{
    ClearTraces();
    if (!GetSuppressionOfMissingFontsDialog()) return 0;
    for (int seconds = 1; seconds <= 100; ++seconds) {
        if (HasTrace("GetSuppressionOfMissingFontsDialog() returning true because " +
                     std::to_string(seconds) + " seconds remain until suppression expires.")) {
            return seconds;
        }
    }
    return -1;
}
