#include "session/ExpectAction.h"

#include <algorithm>

#include "application/OpenReport.h"
#include "base/Files.h"
#include "session/MenuTree.h"
#include "session/MessageActions.h"
#include "session/SessionWords.h"
#include "session/SimulationActions.h"

namespace headless {

namespace {

LineResult Compare(const std::string& subject, const std::string& expected,
                   const std::string& found)
{
    if (expected == found) return {};
    return {LineOutcome::kNotAsExpected,
            "expected " + subject + " " + expected + ", found " + found};
}

// kDone if `word` is one of `known`.
LineResult CheckWord(const std::string& word, const Words& known, const std::string& what)
{
    if (std::find(known.begin(), known.end(), word) != known.end()) return {};
    return MakeWrong("unknown " + what + " \"" + word + "\"; use one of " + JoinWords(known));
}

LineResult ExpectFont(Session& session, const Words& words)
{
    LineResult known =
        CheckWord(words[1], {"default", "active", "activated", "missing"}, "font state");
    if (known.outcome != LineOutcome::kDone) return known;
    const std::string subject = "font " + words[0];
    const DocumentObject* const document = session.running.host.GetCurrentDocument();
    if (document == nullptr) return Compare(subject, words[1], "no document open");
    const std::vector<std::string> fonts = documents::GetAllFontNames(document->content);
    if (std::find(fonts.begin(), fonts.end(), words[0]) == fonts.end()) {
        return Compare(subject, words[1], "no such font in the current document");
    }
    (void)session.running.host.fonts.RefreshActiveNames();  // read by GetFontState
    const FontState state =
        session.running.application.Documents().GetFontState(*document, words[0]);
    return Compare(subject, words[1], GetStateName(state));
}

LineResult ExpectNoFont(Session& session, const Words& words)
{
    const bool isActive = session.running.host.fonts.RefreshActiveNames().count(words[0]) != 0;
    return Compare("font " + words[0], "not active", isActive ? "active" : "not active");
}

LineResult ExpectFile(Session& session, const Words& words)
{
    const bool isThere = base::IsReadableFile(session.MakeAbsolute(words[0]));
    return Compare("file " + words[0], "there", isThere ? "there" : "not a readable file");
}

LineResult ExpectNoFile(Session& session, const Words& words)
{
    const bool isThere = base::IsReadableFile(session.MakeAbsolute(words[0]));
    return Compare("file " + words[0], "gone", isThere ? "there" : "gone");
}

LineResult ExpectCall(Session& session, const Words& words)
{
    const std::string text = words.size() > 1 ? words[1] : "";
    if (session.journal.Has(words[0], text)) return {};
    const std::string with = text.empty() ? "" : " with " + QuoteSessionWord(text);
    return {LineOutcome::kNotAsExpected,
            "expected a call " + words[0] + with + ", found " +
                std::to_string(session.journal.Count(words[0])) + " with this name" +
                (session.journal.IsComplete() ? "" : " (too many journal lines to search all)")};
}

LineResult ExpectCalls(Session& session, const Words& words)
{
    unsigned long count = 0;
    if (!ReadCount(words[1], count)) {
        return MakeWrong("\"" + words[1] + "\" is not a number");
    }
    return Compare("number of calls " + words[0], std::to_string(count),
                   std::to_string(session.journal.Count(words[0])));
}

LineResult ExpectDialog(Session& session, const Words& words)
{
    LineResult known = CheckWord(words[0], {"none", "dismissed", "shown"}, "outcome of a dialog");
    if (known.outcome != LineOutcome::kDone) return known;
    return Compare("missing-fonts dialog", words[0], GetDialogName(session.lastOpened.dialog));
}

LineResult ExpectDocuments(Session& session, const Words& words)
{
    unsigned long count = 0;
    if (!ReadCount(words[0], count)) {
        return MakeWrong("\"" + words[0] + "\" is not a number");
    }
    return Compare("number of documents", std::to_string(count),
                   std::to_string(session.running.host.GetDocuments().size()));
}

LineResult ExpectMenu(Session& session, const Words& words)
{
    const std::string& state = words.back();
    LineResult known = CheckWord(state, {"checked", "unchecked", "enabled", "disabled", "absent"},
                                 "menu item state");
    if (known.outcome != LineOutcome::kDone) return known;
    std::string label = words[0];
    for (size_t i = 1; i + 1 < words.size(); ++i) label += " " + words[i];
    const MenuEntry entry = FindMenuItem(session.running.host, label);
    std::string found = "absent";
    if (entry.item != nullptr) {
        const bool asksForMark = state == "checked" || state == "unchecked";
        found = asksForMark ? (entry.item->isChecked ? "checked" : "unchecked")
                            : (entry.item->isEnabled ? "enabled" : "disabled");
    }
    return Compare("menu item " + QuoteSessionWord(label), state, found);
}

LineResult ExpectPlaced(Session& session, const Words& words)
{
    const DocumentObject* const document = session.running.host.GetCurrentDocument();
    if (document == nullptr) return Compare("placed file " + words[0], "there", "no document open");
    const auto& files = document->content.linkedFiles;
    const std::string path = session.MakeAbsolute(words[0]);
    const bool isThere = std::any_of(files.begin(), files.end(), [&](const std::string& file) {
        return file == words[0] || file == path;
    });
    return Compare("placed file " + words[0], "there", isThere ? "there" : "not placed");
}

LineResult ExpectPanel(Session& session, const Words& words)
{
    const bool isThere = session.lastPanelAnswers.find(words[0]) != std::string::npos;
    return Compare("panel answer with " + QuoteSessionWord(words[0]), "there",
                   isThere ? "there" : "none");
}

}  // namespace

constexpr size_t kManyWords = 1000;  // a label may have any number of words

const std::vector<ExpectRow> kExpectations = {
    {"no font", "NAME", 1, 1, "No font with this name is active", ExpectNoFont},
    {"no file", "PATH", 1, 1, "The file does not exist", ExpectNoFile},
    {"font", "NAME STATE", 2, 2,
     "The current document's font is default, active (before it was opened), activated or missing",
     ExpectFont},
    {"file", "PATH", 1, 1, "The file exists and can be read", ExpectFile},
    {"placed", "PATH", 1, 1, "The file is placed in the current document", ExpectPlaced},
    {"call", "OP [TEXT]", 1, 2,
     "The operation of a journal line contains OP, and its arguments or result contain TEXT",
     ExpectCall},
    {"calls", "OP N", 2, 2, "The journal has N lines with the operation OP", ExpectCalls},
    {"dialog", "none|dismissed|shown", 1, 1, "The outcome of the last missing-fonts dialog",
     ExpectDialog},
    {"documents", "N", 1, 1, "The number of open documents is N", ExpectDocuments},
    {"menu", "LABEL checked|unchecked|enabled|disabled|absent", 2, kManyWords,
     "The state of a menu item at its last update", ExpectMenu},
    {"panel", "TEXT", 1, 1, "The last answers to the panel contain TEXT", ExpectPanel},
    {"answer", "N|failure", 1, 1, "What the plug-in returned for the last message", ExpectAnswer},
    {"alert", "TEXT", 1, 1, "The plug-in has shown an alert that contains TEXT", ExpectAlert},
    {"refused", "[TEXT]", 0, 1,
     "The plug-in has refused to start, with an alert that contains TEXT", ExpectRefused},
    {"core", "FUNCTION N", 2, 2, "The number of calls of PluginCore's function is N", ExpectCore},
    {"port", "N|none", 1, 1, "The port that the panel got", ExpectPort},
    {"unchanged", "leaks|registrations", 1, 1, "The state is as at the last `remember`",
     ExpectUnchanged},
    {"unique", "registrations", 1, 1, "Nothing is registered twice", ExpectUnique},
};

std::string GetUsage(const ExpectRow& row)
{
    return JoinUsage(std::string("expect ") + row.words, row.arguments);
}

LineResult RunExpect(Session& session, const Words& words)
{
    Words forms;
    for (const ExpectRow& row : kExpectations) {
        const Words fixed = SplitSessionLine(row.words).words;
        forms.emplace_back(row.words);
        if (words.size() < fixed.size() || !std::equal(fixed.begin(), fixed.end(), words.begin())) {
            continue;
        }
        const Words arguments(words.begin() + static_cast<Words::difference_type>(fixed.size()),
                              words.end());
        if (arguments.size() < row.minimum || arguments.size() > row.maximum) {
            return MakeWrong("usage: " + GetUsage(row));
        }
        return row.run(session, arguments);
    }
    return MakeWrong("unknown expectation \"" + words[0] + "\"; use one of " + JoinWords(forms));
}

}  // namespace headless
