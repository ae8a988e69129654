#include "session/Session.h"

#include "session/SessionWords.h"
#include "system/Paths.h"

namespace headless {

LineResult MakeWrong(const std::string& text) { return {LineOutcome::kWrong, text}; }

LineResult MakeImpossible(const std::string& text) { return {LineOutcome::kImpossible, text}; }

Session::Session(RunningHost& runningHost, bool isObserving) : running(runningHost)
{
    if (!isObserving) return;
    running.host.journal.SetObserver(
        [this](const std::string& operation, const nlohmann::json& arguments,
               const nlohmann::json& result) { journal.Add(operation, arguments, result); });
}

Session::~Session()
{
    running.host.journal.SetObserver({});
    running.host.duringCalls.clear();  // they use the session
}

DocumentObject* Session::FindDocument(const std::string& numberOrName, std::string& error) const
{
    const auto& documents = running.host.GetDocuments();
    if (documents.empty()) {
        error = "no document is open";
        return nullptr;
    }
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
    error = std::string(found.empty() ? "no open document" : "more than one open document") +
            " is called \"" + numberOrName + "\"; use a name or a number from 1 to " +
            std::to_string(documents.size());
    return nullptr;
}

std::string Session::MakeAbsolute(const std::string& path) const
{
    return headless::MakeAbsolute(running.startFolder, path);
}

}  // namespace headless
