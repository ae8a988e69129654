#include "ScriptReferee.h"

#include <algorithm>

#include "session/ActionTable.h"
#include "session/SessionWords.h"

namespace {

constexpr size_t kNone = static_cast<size_t>(-1);

bool IsIn(const std::set<std::string>& names, const std::string& name)
{
    return names.count(name) != 0;
}

bool HasExtension(const std::string& path, const std::string& extension)
{
    return path.size() > extension.size() &&
           path.substr(path.size() - extension.size()) == extension;
}

// The words that the action table doesn't have, with the least number of arguments.
size_t GetLeastArguments(const std::string& action)
{
    for (const headless::ActionRow& row : headless::kActions) {
        if (action == row.name) return row.minimum;
    }
    const std::pair<const char*, size_t> known[] = {
        {"active", 1}, {"document", 1},  {"vanish", 1},    {"clock", 1},   {"core", 1},
        {"during", 2}, {"fail-call", 2}, {"fail-core", 2}, {"restart", 0}, {"send", 2}};
    for (const auto& [name, count] : known) {
        if (action == name) return count;
    }
    return kNone;
}

bool IsFaultKind(const std::string& kind)
{
    int status = 0;
    const bool isStatus = headless::ReadStatus(kind, status);
    const std::set<std::string> types = {"throw:ai::Error", "throw:ATE::Exception", "throw:int",
                                         "throw:std::exception", "throw:foreign"};
    return isStatus ? status != 0 : IsIn(types, kind);
}

}  // namespace

ScriptReferee::ScriptReferee(bool nestedRuns, bool savesSucceed)
    : mNestedRuns(nestedRuns), mSavesSucceed(savesSucceed)
{
}

std::string ScriptReferee::Play(const std::string& line)
{
    const headless::SessionWords split = headless::SplitSessionLine(line);
    if (!split.error.empty()) return split.error;
    if (split.words.empty()) return "the line is empty";
    return PlayWords(split.words, false);
}

std::string ScriptReferee::PlayWords(const Words& words, bool isNested)
{
    const std::string& action = words.front();
    const size_t least = GetLeastArguments(action);
    if (least == kNone) return "unknown action " + action;
    if (words.size() - 1 < least) return "too few arguments";
    if (action == "document" || action == "vanish" || action == "clock") return PlayWorld(words);
    if (action == "core") return PlayCore(words);
    if (action.rfind("fail", 0) == 0) return PlayFault(words);
    if (action == "restart") return isNested ? "nested restart" : PlayRestart();
    if (action == "during") {
        if (isNested) return "nested twice";
        const Words inner(words.begin() + 2, words.end());
        const bool opens = inner.front() == "open";
        if (opens && (mFaultIn > 0 || IsIn(mChanged, "PluginIsEnabled"))) return "may come late";
        return opens && !mNestedRuns ? "" : PlayWords(inner, true);
    }
    if (action == "open") Open(words[1]);
    if (action == "new") Add("", false, true);
    if (action == "show") mFaultIn = std::max(0L, mFaultIn - 4);
    if (action == "show" && words[1] != "menu") return "cannot show " + words[1];
    if (action == "place" && !IsIn(mFiles, words[1])) return "no such file";
    if (action == "menu") {
        std::string label = words[1];
        for (size_t i = 2; i < words.size(); ++i) label += " " + words[i];
        return PlayMenu(label);
    }
    const std::set<std::string> needDocument = {"text", "place", "change",
                                                "save", "close", "current"};
    if (IsIn(needDocument, action) && mDocuments.empty()) return "no document is open";
    if (action == "save") return PlaySave(words);
    std::string error;
    if (action == "close") {
        const auto isCurrent = [&](const Document& each) { return each.id == mUsed.back(); };
        const auto current = std::find_if(mDocuments.begin(), mDocuments.end(), isCurrent);
        Close(words.size() > 1 ? Find(words[1], error)
                               : static_cast<size_t>(current - mDocuments.begin()));
    }
    if (action == "current") {
        const size_t index = Find(words[1], error);
        if (index == kNone) return error;
        mUsed.erase(std::find(mUsed.begin(), mUsed.end(), mDocuments[index].id));
        mUsed.push_back(mDocuments[index].id);
    }
    return error;
}

std::string ScriptReferee::PlayWorld(const Words& words)
{
    const std::string& what = words[1];
    if (words[0] == "clock") {
        const bool isSigned = what[0] == '+' || what[0] == '-';
        unsigned long seconds = 0;
        return isSigned && headless::ReadCount(what.substr(1), seconds) ? "" : "no seconds";
    }
    if (words[0] == "vanish") {
        mReadable.erase(what);
        return mFiles.erase(what) == 1 ? "" : "no such file";
    }
    mFiles.insert(what);
    mReadable.insert(what);
    const std::set<std::string> keys = {"fonts",  "frames", "runs",      "placed",
                                        "listed", "empty",  "unreadable"};
    for (size_t i = 2; i < words.size(); ++i) {
        if (!IsIn(keys, words[i].substr(0, words[i].find('=')))) return "unknown key";
        if (words[i] == "unreadable") mReadable.erase(what);
    }
    return {};
}

std::string ScriptReferee::PlayMenu(const std::string& label)
{
    const std::set<std::string> top = {"Activate Fonts", "Deactivate Fonts", "About"};
    const std::set<std::string> libraries = {"Select Library/One", "Select Library/Two"};
    if (mIsItemDisabled) return "may be disabled";
    if (IsIn(top, label)) return {};
    if (!IsIn(libraries, label)) return "no such item";
    return mAreLibrariesLost ? "may be gone" : "";
}

std::string ScriptReferee::PlaySave(const Words& words)
{
    Document& document = GetCurrent();
    if (words.size() == 1) return document.hasFile ? "" : "has no file yet";
    for (const Document& each : mDocuments) {
        if (each.name == words[1]) return "is open under this name";
    }
    if (!document.isNew && !mSavesSucceed) return {};
    document.name = words[1];
    document.hasFile = true;
    return {};
}

std::string ScriptReferee::PlayCore(const Words& words)
{
    const std::set<std::string> keys = {"status", "throw",  "text", "hex",     "fill",
                                        "size",   "number", "flag", "rebuild", "times"};
    const std::string& function = words[1];
    mRebuilding.erase(function);
    if (words.size() == 2) {
        mChanged.erase(function);
        return {};
    }
    mChanged.insert(function);
    for (size_t i = 2; i < words.size(); ++i) {
        if (!IsIn(keys, words[i].substr(0, words[i].find('=')))) return "unknown key";
        if (words[i] == "rebuild") mRebuilding.insert(function);
        const bool disables = words[i].find("\"enabled\":false") != std::string::npos;
        if (function == "GetMenus" && disables) mIsItemDisabled = true;
    }
    CheckLibraries();
    return {};
}

std::string ScriptReferee::PlayFault(const Words& words)
{
    unsigned long calls = 4;
    if (words[0] != "fail") {
        if (!headless::ReadCount(words[1], calls) || calls == 0) return "no number of a call";
        if (!IsFaultKind(words[2])) return "unknown kind";
    }
    mFaultIn = std::max(mFaultIn, static_cast<long>(calls));
    CheckLibraries();
    return {};
}

void ScriptReferee::CheckLibraries()
{
    const bool mayFail = mFaultIn > 0 || IsIn(mChanged, "GetMenus");
    if (!mRebuilding.empty() && mayFail) mAreLibrariesLost = true;
}

std::string ScriptReferee::PlayRestart()
{
    const bool canFail = IsIn(mChanged, "GetMenus") || IsIn(mChanged, "PluginIsEnabled") ||
                         IsIn(mChanged, "GetSettings") || mFaultIn > 0;
    mDocuments.clear();
    mUsed.clear();
    mIsItemDisabled = mAreLibrariesLost = false;
    return canFail ? "the start may fail" : "";
}

void ScriptReferee::Open(const std::string& path)
{
    if (!IsIn(mReadable, path)) return;
    const bool isTemplate = HasExtension(path, ".ait");
    Add(isTemplate ? "" : path, !isTemplate, false);
}

void ScriptReferee::Add(const std::string& name, bool hasFile, bool isNew)
{
    mDocuments.push_back({++mNextId, name, hasFile, isNew});
    mUsed.push_back(mNextId);
}

ScriptReferee::Document& ScriptReferee::GetCurrent()
{
    return *std::find_if(mDocuments.begin(), mDocuments.end(),
                         [&](const Document& each) { return each.id == mUsed.back(); });
}

size_t ScriptReferee::Find(const std::string& numberOrName, std::string& error) const
{
    unsigned long number = 0;
    if (headless::ReadCount(numberOrName, number)) {
        if (number >= 1 && number <= mDocuments.size()) return number - 1;
        error = "no document has the number " + numberOrName;
        return kNone;
    }
    size_t found = kNone;
    for (size_t i = 0; i < mDocuments.size(); ++i) {
        if (mDocuments[i].name != numberOrName) continue;
        if (found != kNone) error = "more than one document is called " + numberOrName;
        found = i;
    }
    if (found == kNone) error = "no document is called " + numberOrName;
    return error.empty() ? found : kNone;
}

void ScriptReferee::Close(size_t index)
{
    if (index == kNone) return;
    const Document closed = mDocuments[index];
    mDocuments.erase(mDocuments.begin() + static_cast<std::ptrdiff_t>(index));
    mUsed.erase(std::find(mUsed.begin(), mUsed.end(), closed.id));
}
