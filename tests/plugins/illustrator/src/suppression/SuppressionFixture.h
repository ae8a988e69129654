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

// A host, a PluginCore whose path is in the scratch folder, and no traces. Use it in a new process,
// since the period, the hints and the hook remain until the process ends.
struct SuppressionFixture {
    SuppressionFixture()
    {
        core.Loader().frameworkPath = scratch.Path("PluginCore.framework");
        ClearTraces();
    }

    std::string OverridePath() const { return scratch.Path("DialogSuppression.tmp"); }
    void WriteOverride(const std::string& lines) const
    {
        (void)scratch.Write("DialogSuppression.tmp", lines);  // OverridePath() is its path
    }
    // The function that the host calls to begin a modal session; the hook replaces it.
    BeginModalSessionFunction Slot() const { return GetHostPlatform()->beginModalSession; }

    ScratchFolder scratch;
    ScriptedHost host;
    InProcessPluginCore core;
    const BeginModalSessionFunction ownSession = GetHostPlatform()->beginModalSession;
};

// The trace line of a hint that is added.
inline std::string HintTrace(const std::string& hint)
{
    return "AddDialogSuppressionHint(" + hint + ", 0x00000035)";
}

// The trace lines of all hints added so far, in order.
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

// How many seconds of the period are left, according to the trace; 0 if none is running.
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
