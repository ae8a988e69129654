#include <algorithm>

#include "application/OpenReport.h"
#include "session/Actions.h"
#include "session/MenuTree.h"
#include "session/SessionWords.h"
#include "system/System.h"

// What a session can expect. Each check looks at things as they are and changes nothing.
namespace headless {

namespace {

LineResult Compare(const std::string& subject, const std::string& expected,
                   const std::string& found)
{
    if (expected == found) return {};
    return {LineOutcome::kNotAsExpected,
            "expected is " + subject + " " + expected + ", found is " + found};
}

LineResult CheckWord(const std::string& word, const std::vector<std::string>& known,
                     const std::string& what)
{
    if (std::find(known.begin(), known.end(), word) != known.end()) return {};
    std::string list;
    for (const std::string& each : known) list += (list.empty() ? "" : ", ") + each;
    return MakeWrong("\"" + word + "\" is no " + what + "; expected is one of " + list);
}

LineResult ExpectFont(Session& session, const Words& words)
{
    LineResult known =
        CheckWord(words[1], {"default", "active", "activated", "missing"}, "state of a font");
    if (known.outcome != LineOutcome::kDone) return known;
    const std::string subject = "font " + words[0];
    const DocumentObject* const document = session.run.host.GetCurrentDocument();
    if (document == nullptr) return Compare(subject, words[1], "no document open");
    const auto& fonts = document->content.fonts;
    if (std::find(fonts.begin(), fonts.end(), words[0]) == fonts.end()) {
        return Compare(subject, words[1], "no such font in the current document");
    }
    (void)session.run.host.fonts.RefreshActiveNames();  // read by the next line
    const FontState state = session.run.application.GetFontState(*document, words[0]);
    return Compare(subject, words[1], GetStateName(state));
}

LineResult ExpectNoFont(Session& session, const Words& words)
{
    const bool isActive = session.run.host.fonts.RefreshActiveNames().count(words[0]) != 0;
    return Compare("font " + words[0], "not active", isActive ? "active" : "not active");
}

LineResult ExpectFile(Session& session, const Words& words)
{
    const bool isThere = IsReadableFile(session.MakeAbsolute(words[0]));
    return Compare("file " + words[0], "there", isThere ? "there" : "no file to read");
}

LineResult ExpectNoFile(Session& session, const Words& words)
{
    const bool isThere = IsReadableFile(session.MakeAbsolute(words[0]));
    return Compare("file " + words[0], "gone", isThere ? "there" : "gone");
}

LineResult ExpectCall(Session& session, const Words& words)
{
    const std::string text = words.size() > 1 ? words[1] : "";
    if (session.log.Has(words[0], text)) return {};
    const std::string with = text.empty() ? "" : " with " + QuoteSessionWord(text);
    return {LineOutcome::kNotAsExpected,
            "expected is a call " + words[0] + with + ", found are " +
                std::to_string(session.log.Count(words[0])) + " of this name" +
                (session.log.IsComplete() ? "" : " (too many calls to search all)")};
}

LineResult ExpectCalls(Session& session, const Words& words)
{
    unsigned long count = 0;
    if (!ReadCount(words[1], count)) {
        return MakeWrong("\"" + words[1] + "\" is no number of calls; expected is one");
    }
    return Compare("number of calls " + words[0], std::to_string(count),
                   std::to_string(session.log.Count(words[0])));
}

LineResult ExpectDialog(Session& session, const Words& words)
{
    LineResult known = CheckWord(words[0], {"none", "dismissed", "shown"}, "outcome");
    if (known.outcome != LineOutcome::kDone) return known;
    return Compare("missing-fonts dialog", words[0], GetDialogName(session.lastOpened.dialog));
}

LineResult ExpectDocuments(Session& session, const Words& words)
{
    unsigned long count = 0;
    if (!ReadCount(words[0], count)) {
        return MakeWrong("\"" + words[0] + "\" is no number of documents; expected is one");
    }
    return Compare("number of documents", std::to_string(count),
                   std::to_string(session.run.host.GetDocuments().size()));
}

LineResult ExpectMenu(Session& session, const Words& words)
{
    const std::string& state = words.back();
    LineResult known = CheckWord(state, {"checked", "unchecked", "enabled", "disabled", "absent"},
                                 "state of a menu item");
    if (known.outcome != LineOutcome::kDone) return known;
    std::string label = words[0];
    for (size_t i = 1; i + 1 < words.size(); ++i) label += " " + words[i];
    const MenuEntry entry = FindMenuItem(session.run.host, label);
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
    const DocumentObject* const document = session.run.host.GetCurrentDocument();
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

constexpr size_t kManyWords = 1000;

// A form with more fixed words stands before one with fewer.
const std::vector<ExpectRow> kExpectations = {
    {"no font", "NAME", 1, 1, "No font of this name is active", ExpectNoFont},
    {"no file", "PATH", 1, 1, "There is no such file", ExpectNoFile},
    {"font", "NAME STATE", 2, 2,
     "The current document's font is default, active (before it was opened), activated or missing",
     ExpectFont},
    {"file", "PATH", 1, 1, "There is such a file", ExpectFile},
    {"placed", "PATH", 1, 1, "The file is placed in the current document", ExpectPlaced},
    {"call", "OP [TEXT]", 1, 2, "A line of the journal has OP in its operation, and TEXT",
     ExpectCall},
    {"calls", "OP N", 2, 2, "N lines of the journal have the operation OP", ExpectCalls},
    {"dialog", "none|dismissed|shown", 1, 1, "What became of the last missing-fonts dialog",
     ExpectDialog},
    {"documents", "N", 1, 1, "So many documents are open", ExpectDocuments},
    {"menu", "LABEL checked|unchecked|enabled|disabled|absent", 2, kManyWords,
     "How a menu item is as of its last update", ExpectMenu},
    {"panel", "TEXT", 1, 1, "The last answers to the panel hold TEXT", ExpectPanel},
};

LineResult RunExpect(Session& session, const Words& words)
{
    std::string forms;
    for (const ExpectRow& row : kExpectations) {
        const Words fixed = SplitSessionLine(row.words).words;
        forms += (forms.empty() ? "" : ", ") + std::string(row.words);
        if (words.size() < fixed.size() || !std::equal(fixed.begin(), fixed.end(), words.begin())) {
            continue;
        }
        const Words arguments(words.begin() + static_cast<Words::difference_type>(fixed.size()),
                              words.end());
        if (arguments.size() < row.minimum || arguments.size() > row.maximum) {
            return MakeWrong("expected is: " + GetUsage(row));
        }
        return row.run(session, arguments);
    }
    return MakeWrong("\"" + words[0] + "\" can't be expected; expected is one of " + forms);
}

}  // namespace headless
