#include "session/SessionLine.h"

#include <algorithm>
#include <string_view>

#include "base/Lines.h"
#include "session/ActionTable.h"
#include "session/SessionWords.h"

namespace headless {

namespace {

const ActionRow* FindAction(const std::string& name)
{
    const auto row = std::find_if(kActions.begin(), kActions.end(),
                                  [&](const ActionRow& each) { return name == each.name; });
    return row == kActions.end() ? nullptr : &*row;
}

std::vector<std::string> ListActionNames()
{
    std::vector<std::string> names;
    names.reserve(kActions.size());
    for (const ActionRow& row : kActions) names.emplace_back(row.name);
    return names;
}

// The action whose further words are another line.
constexpr char kActionWithLine[] = "during";
constexpr size_t kWordsBeforeLine = 2;

// Returns "", or one line about the first thing that is wrong with a line whatever the state of the
// session is: its action, the number of its words, or the same of a line within it.
std::string FindMistake(const Session& session, const Words& words)
{
    const std::string& name = words.front();
    const ActionRow* const row = FindAction(name);
    if (row == nullptr) {
        return "unknown action \"" + name + "\"; use one of " + JoinWords(ListActionNames());
    }
    const size_t arguments = words.size() - 1;
    if (arguments < row->minimum || arguments > row->maximum) return "usage: " + GetUsage(*row);
    if (row->isSimulated && session.running.world == nullptr) {
        return name + ": only in a file that begins with the line \"simulate\"";
    }
    if (name != kActionWithLine) return {};
    const std::string mistake =
        FindMistake(session, Words(words.begin() + kWordsBeforeLine, words.end()));
    return mistake.empty() ? mistake : name + " " + words[1] + ": " + mistake;
}

}  // namespace

LineResult RunLine(Session& session, const std::string& line)
{
    session.runLine = RunLine;
    const SessionWords split = SplitSessionLine(line);
    if (!split.error.empty()) return MakeWrong(split.error);
    if (split.words.empty()) return {};
    const std::string mistake = FindMistake(session, split.words);
    if (!mistake.empty()) return MakeWrong(mistake);
    const std::string& name = split.words.front();
    const Words arguments(split.words.begin() + 1, split.words.end());
    const ActionRow* const row = FindAction(name);
    const RunningHost& running = session.running;
    if (!row->isBeforeStart && running.ensureStarted) running.ensureStarted();
    if (!row->isBeforeStart && running.application.Pump() == nullptr) {
        return MakeImpossible(name + ": no plug-in is loaded");
    }
    if (row->needsDocument && session.running.host.GetCurrentDocument() == nullptr) {
        return MakeImpossible(name + ": no document is open");
    }
    return row->run(session, arguments);
}

bool AsksForCalls(const std::string& script)
{
    for (std::string_view rest = script; !rest.empty();) {
        const Words words = SplitSessionLine(std::string(base::TakeLine(rest))).words;
        for (size_t i = 1; i < words.size(); ++i) {
            const bool isCall = words[i] == "call" || words[i] == "calls";
            if (isCall && words[i - 1] == "expect") return true;
        }
    }
    return false;
}

bool IsSimulation(const std::string& script)
{
    for (std::string_view rest = script; !rest.empty();) {
        const Words words = SplitSessionLine(std::string(base::TakeLine(rest))).words;
        if (!words.empty()) return words == Words{"simulate"};
    }
    return false;
}

std::vector<std::string> CompleteLine(const Session& session, const std::string& line,
                                      const std::string& word)
{
    const Words before = SplitSessionLine(line).words;
    std::vector<std::string> all;
    if (before.empty()) {
        all = ListActionNames();
    } else {
        const ActionRow* const row = FindAction(before.front());
        const bool canContinue = row != nullptr && before.size() <= row->maximum;
        if (canContinue && row->complete != nullptr) all = row->complete(session, before, word);
    }
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const std::string& each) { return each.rfind(word, 0) != 0; }),
              all.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

}  // namespace headless
