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

}  // namespace

LineResult RunLine(Session& session, const std::string& line)
{
    session.runLine = RunLine;
    const SessionWords split = SplitSessionLine(line);
    if (!split.error.empty()) return MakeWrong(split.error);
    if (split.words.empty()) return {};
    const std::string& name = split.words.front();
    const Words arguments(split.words.begin() + 1, split.words.end());
    const ActionRow* const row = FindAction(name);
    if (row == nullptr) {
        return MakeWrong("unknown action \"" + name + "\"; use one of " +
                         JoinWords(ListActionNames()));
    }
    if (arguments.size() < row->minimum || arguments.size() > row->maximum) {
        return MakeWrong("usage: " + GetUsage(*row));
    }
    const RunningHost& running = session.running;
    if (row->isSimulated && running.world == nullptr) {
        return MakeWrong(name + ": only in a file that begins with the line \"simulate\"");
    }
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
