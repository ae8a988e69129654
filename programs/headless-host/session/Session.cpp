#include "session/Session.h"

#include <algorithm>

#include "session/Actions.h"
#include "session/MenuTree.h"
#include "session/SessionWords.h"
#include "system/System.h"

namespace headless {

namespace {

std::string ListActionNames()
{
    std::string names;
    for (const ActionRow& row : kActions) {
        names += (names.empty() ? "" : ", ") + std::string(row.name);
    }
    return names;
}

std::string GetBareName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// The words of `all` that begin with `start`.
std::vector<std::string> Filter(std::vector<std::string> all, const std::string& start)
{
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const std::string& word) { return word.rfind(start, 0) != 0; }),
              all.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

std::string GetNthWord(const char* words, size_t number)
{
    const Words split = SplitSessionLine(words).words;
    return number < split.size() ? split[number] : std::string();
}

}  // namespace

Session::Session(RunningHost& hostRun) : run(hostRun)
{
    run.host.journal.SetObserver(
        [this](const std::string& operation, const nlohmann::json& arguments,
               const nlohmann::json& result) { log.Add(operation, arguments, result); });
}

Session::~Session() { run.host.journal.SetObserver({}); }

LineResult Session::RunLine(const std::string& line)
{
    SessionWords split = SplitSessionLine(line);
    if (!split.error.empty()) return MakeWrong(split.error);
    if (split.words.empty()) return {};
    const std::string name = split.words.front();
    const Words arguments(split.words.begin() + 1, split.words.end());
    const auto row = std::find_if(kActions.begin(), kActions.end(),
                                  [&](const ActionRow& each) { return name == each.name; });
    if (row == kActions.end()) {
        return MakeWrong("\"" + name + "\" is no action; expected is one of " + ListActionNames());
    }
    if (arguments.size() < row->minimum || arguments.size() > row->maximum) {
        return MakeWrong("expected is: " + GetUsage(*row));
    }
    if (row->needsDocument && run.host.GetCurrentDocument() == nullptr) {
        return MakeWrong(name + ": no document is open; expected is one");
    }
    return row->run(*this, arguments);
}

DocumentObject* Session::FindDocument(const std::string& numberOrName, std::string& error) const
{
    const auto& documents = run.host.GetDocuments();
    unsigned long number = 0;
    if (ReadCount(numberOrName, number) && number >= 1 && number <= documents.size()) {
        return documents[number - 1].get();
    }
    std::vector<DocumentObject*> found;
    for (const auto& document : documents) {
        const bool isMeant = GetBareName(document->path) == numberOrName ||
                             document->path == numberOrName ||
                             (document->hasFile && document->path == MakeAbsolute(numberOrName));
        if (isMeant) found.push_back(document.get());
    }
    if (found.size() == 1) return found.front();
    error = found.empty() ? "no open document is \"" + numberOrName + "\""
                          : "several open documents are \"" + numberOrName + "\"";
    error += "; expected is a name or a number from 1 to " + std::to_string(documents.size());
    if (documents.empty()) error = "no document is open; expected is one";
    return nullptr;
}

std::string Session::MakeAbsolute(const std::string& path) const
{
    return headless::MakeAbsolute(run.startFolder, path);
}

std::vector<std::string> Session::Complete(const std::string& line, const std::string& word) const
{
    const Words before = SplitSessionLine(line).words;
    std::vector<std::string> all;
    if (before.empty()) {
        for (const ActionRow& row : kActions) all.emplace_back(row.name);
        return Filter(std::move(all), word);
    }
    const auto row = std::find_if(kActions.begin(), kActions.end(), [&](const ActionRow& each) {
        return before.front() == each.name;
    });
    if (row == kActions.end() || before.size() > row->maximum) return {};
    switch (row->completion) {
        case Completion::kPath:
            return ListPaths(run.startFolder, word);
        case Completion::kDocument:
            for (const auto& document : run.host.GetDocuments()) {
                all.push_back(GetBareName(document->path));
            }
            break;
        case Completion::kMenuItem:
            for (const MenuEntry& entry : ListMenus(run.host)) all.push_back(entry.path);
            break;
        case Completion::kFont:
            if (before.size() > 1) return {};
            for (const std::string& name : run.host.fonts.GetActiveNames()) all.push_back(name);
            break;
        case Completion::kForm:
            if (std::string(row->name) == "show") all = {"menu", "documents"};
            if (std::string(row->name) == "expect") {
                for (const ExpectRow& each : kExpectations) {
                    const bool fits = before.size() < 2 || GetNthWord(each.words, 0) == before[1];
                    const std::string next = GetNthWord(each.words, before.size() - 1);
                    if (fits && !next.empty()) all.push_back(next);
                }
                const bool wantsPath = before.size() == 2 && before[1] == "file";
                if (wantsPath) return ListPaths(run.startFolder, word);
            }
            break;
        case Completion::kNothing:
            break;
    }
    return Filter(std::move(all), word);
}

}  // namespace headless
