#include "GoldenJournal.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

using nlohmann::json;

namespace {

constexpr std::time_t kFirstTime = 1000000000;

// Whether the plug-in changes the host by this call of a suite, or asks for the state of a menu.
bool IsKept(const std::string& operation)
{
    for (const char* const suite :
         {"AI Menu Suite, ", "AI Notifier Suite, ", "AI Timer Suite, ", "AI File Format Suite, "}) {
        if (operation.rfind(suite, 0) != 0) continue;
        // The search for an item of the same name, before each item is added, reads all items.
        return operation.find("GetNthMenuItem") == std::string::npos &&
               operation.find("GetMenuItemKeyboardShortcutDictionaryKey") == std::string::npos;
    }
    return false;
}

std::string Replace(std::string text, const std::string& what, const std::string& with)
{
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
        text.replace(at, what.size(), with);
        at += with.size();
    }
    return text;
}

// The items below a node, one per line.
void DrawItems(const json& node, size_t depth, std::string& text)
{
    for (const json& item : node.at("child")) {
        const std::string title = item.at("title");
        text += std::string(4 * depth, ' ') + (title.empty() ? "--------" : title) + " | id " +
                item.at("id").get<std::string>();
        if (item.at("label") != title) text += " | label " + item.at("label").get<std::string>();
        text += item.at("checked") == true ? " | checked" : "";
        text += item.at("enabled") == true ? "\n" : " | disabled\n";
        DrawItems(item, depth + 1, text);
    }
}

class Golden {
public:
    void Add(const json& entry)
    {
        const std::string side = entry.at("side");
        std::string operation = entry.at("op");
        // These lines are for replays.
        if (side == "world" || operation == "journal" || operation == "rebuild menu") return;
        if (side == "suite" && !IsKept(operation)) return;
        json arguments = entry.at("args");
        json result = entry.at("result");
        if (side == "host" && arguments.is_object()) {
            arguments.erase("handle");
            arguments.erase("pathHandle");
        }
        if (result.is_object()) result.erase("injected");
        if (operation == "GetSocketPort") result = "a port";
        if (operation == "AI Menu Suite, AddMenuItem" && result.contains("item")) {
            const std::string text = arguments.at("text");
            mTexts[result.at("item")] = text.empty() ? "separator" : text;
        }
        std::string trees;
        NameMenus(arguments, "menusJson", trees);
        NameMenus(result, "menus", trees);
        mLines.push_back(NameHandles(side + " | " + operation + " | " + arguments.dump() + " | " +
                                     result.dump() + "\n" + trees));
        EndMessage(side, operation, arguments);
    }

    std::string GetText() const
    {
        std::string text;
        for (const std::string& line : mLines) text += line;
        return text;
    }

private:
    // Replaces a menu tree by its number; `trees` gets the lines of one that wasn't printed yet.
    void NameMenus(json& members, const char* key, std::string& trees)
    {
        if (!members.is_object() || !members.contains(key) || !members.at(key).is_string()) return;
        const std::string text = members.at(key);
        const json root = json::parse(text, nullptr, false);
        if (!root.is_object() || !root.contains("child")) return;
        const auto [known, isNew] = mMenus.emplace(text, mMenus.size() + 1);
        members[key] = "menus " + std::to_string(known->second);
        if (isNew) DrawItems(root, 1, trees);
    }

    std::string NameHandles(const std::string& text)
    {
        static const std::regex sHandle("([a-z][a-z ]*)#[0-9]+");
        std::string named;
        auto rest = text.cbegin();
        for (std::smatch match; std::regex_search(rest, text.cend(), match, sHandle);) {
            const std::string type = match[1];
            const auto known = mHandles.emplace(match[0], mCounts[type] + 1);
            if (known.second) ++mCounts[type];
            named.append(rest, match[0].first);
            named += type + " " + std::to_string(known.first->second);
            const auto item = mTexts.find(match[0]);
            if (item != mTexts.end()) named += " (" + item->second + ")";
            rest = match[0].second;
        }
        return named.append(rest, text.cend());
    }

    // Replaces the message that has just been answered by one line, or by nothing, if it was like
    // the one before.
    void EndMessage(const std::string& side, const std::string& operation, const json& arguments)
    {
        if (side != "host" || (operation != "send" && operation != "answer")) return;
        if (operation == "send") {
            mBegin = mLines.size() - 1;
            return;
        }
        std::vector<std::string> message(mLines.begin() + static_cast<std::ptrdiff_t>(mBegin),
                                         mLines.end());
        // Without the lines of menu trees, which are printed once.
        for (std::string& line : message) line.resize(line.find('\n') + 1);
        if (arguments.at("selector") == "AI Update") {
            const std::string item = NameHandles(arguments.at("item"));
            const std::string text = arguments.at("text");
            // The item whose text is asked for, in contrast to those that are changed.
            for (std::string& line : message) {
                if (line.find("EnableItem") != std::string::npos) continue;
                if (line.find("DisableItem") != std::string::npos) continue;
                if (line.find("CheckItem") != std::string::npos) continue;
                line = Replace(Replace(line, item, "ITEM"), json(text).dump(), "TEXT");
            }
            if (message == mLast) {
                mLines.resize(mBegin);
                mLines.push_back("    the same for " + item + "\n");
            }
        } else if (arguments.at("caller") == "AI Timer" && message == mLast && mEnd == mBegin) {
            mLines.resize(mBegin);
        }
        mLast = message;
        mEnd = mLines.size();
    }

    std::vector<std::string> mLines;
    std::map<std::string, size_t> mMenus;       // numbers by text
    std::map<std::string, size_t> mHandles;     // numbers by the journal's name
    std::map<std::string, size_t> mCounts;      // of handles, by type
    std::map<std::string, std::string> mTexts;  // of menu items, by the journal's name
    size_t mBegin = 0;                          // of the message, in mLines
    size_t mEnd = 0;                            // of the message before
    std::vector<std::string> mLast;             // the message before
};

// The time of the file that a line is about; null if it is about none.
json* FindFileTime(json& line)
{
    if (line.at("side") != "world" || line.at("op") != "file") return nullptr;
    const auto time = line.at("args").find("time");
    return time == line.at("args").end() ? nullptr : &*time;
}

}  // namespace

std::string MakeReplay(const std::string& journal, const std::string& scratch)
{
    std::vector<json> lines;
    std::set<std::time_t> times;
    std::istringstream text(journal);
    for (std::string line; std::getline(text, line);) {
        lines.push_back(json::parse(line));
        lines.back().erase("seq");
        lines.back().erase("t");
        if (const json* const time = FindFileTime(lines.back())) times.insert(time->get<time_t>());
    }
    std::string replay;
    for (json& line : lines) {
        // The plug-in compares times; their order is enough.
        if (json* const time = FindFileTime(line)) {
            *time = kFirstTime + std::distance(times.begin(), times.find(time->get<time_t>()));
        }
        replay += line.dump() + "\n";
    }
    return Replace(replay, scratch, "SCRATCH");
}

std::string MakeGolden(const std::string& journal, const std::string& scratch)
{
    Golden golden;
    std::istringstream lines(journal);
    for (std::string line; std::getline(lines, line);) golden.Add(json::parse(line));
    std::string text = Replace(golden.GetText(), scratch, "SCRATCH");
    // Persistent ids of documents.
    text = std::regex_replace(text, std::regex("[0-9a-f]{32}"), "ID");
    return std::regex_replace(
        text, std::regex("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"), "ID");
}
