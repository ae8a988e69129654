#include "session/Completion.h"

#include "session/ExpectAction.h"
#include "session/MenuTree.h"
#include "system/Paths.h"

namespace headless {

std::vector<std::string> CompletePath(const Session& session, const Words&, const std::string& word)
{
    return ListPaths(session.running.startFolder, word);
}

std::vector<std::string> CompleteDocument(const Session& session, const Words&, const std::string&)
{
    std::vector<std::string> names;
    for (const auto& document : session.running.host.GetDocuments()) {
        names.push_back(GetBareName(document->path));
    }
    return names;
}

std::vector<std::string> CompleteMenuItem(const Session& session, const Words&, const std::string&)
{
    std::vector<std::string> paths;
    for (const MenuEntry& entry : ListMenus(session.running.host)) paths.push_back(entry.path);
    return paths;
}

std::vector<std::string> CompleteFont(const Session& session, const Words& before,
                                      const std::string&)
{
    if (before.size() > 1) return {};
    const auto& names = session.running.host.fonts.GetActiveNames();
    return {names.begin(), names.end()};
}

std::vector<std::string> CompleteShow(const Session&, const Words&, const std::string&)
{
    return {"menu", "documents"};
}

std::vector<std::string> CompleteExpect(const Session& session, const Words& before,
                                        const std::string& word)
{
    if (before.size() == 2 && before[1] == "file") {
        return ListPaths(session.running.startFolder, word);
    }
    std::vector<std::string> next;
    for (const ExpectRow& row : kExpectations) {
        const Words fixed = SplitSessionLine(row.words).words;
        const bool fits = before.size() < 2 || fixed.front() == before[1];
        if (fits && before.size() - 1 < fixed.size()) next.push_back(fixed[before.size() - 1]);
    }
    return next;
}

}  // namespace headless
