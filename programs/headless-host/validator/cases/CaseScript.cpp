#include "validator/cases/CaseScript.h"

#include <sstream>

namespace headless {

void AddCase(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
             const std::string& script)
{
    std::istringstream stream(script);
    ValidatorCase added;
    added.rule = rule;
    added.name = name;
    for (std::string line; std::getline(stream, line);) {
        const size_t start = line.find_first_not_of(' ');
        if (start != std::string::npos) added.script += line.substr(start) + "\n";
    }
    cases.push_back(std::move(added));
}

std::string Repeat(size_t count, const std::string& line)
{
    std::string text;
    for (size_t number = 1; number <= count; ++number) {
        for (const char c : line) {
            if (c == '%') {
                text += std::to_string(number);
            } else {
                text += c;
            }
        }
        text += '\n';
    }
    return text;
}

std::string GetShortLife()
{
    return R"(
        document life.ai fonts=Known-Regular,Missing-Bold frames=2 placed=life.txt
        tick
        open life.ai
        send "AI Menu" "AI Update" item=1
        change
        tick 2
        new
        send "AI Menu" "AI Go" item=1
        close
        fonts-changed
        save
        about
        close
        tick
    )";
}

const std::vector<std::string>& ListResultOperations()
{
    static const std::vector<std::string> kList = {
        "GetDocument",
        "GetDocumentFileSpecification",
        "GetDocumentModified",
        "GetFileName",
        "GetFullPath",
        "AllocateBlock",
        "Initialize",
        "GetAs",
        "GetMatchingArt",
        "NewArtSet",
        "CountArtSet",
        "IndexArtSet",
        "MatchingArtSet",
        "GetPlacedFilePathFromArt",
        "GetATETextRange",
        "GetATETextFrame",
        "GetStory",
        "GetStories",
        "GetTextRanges",
        "GetCharInspector",
        "GetFont",
        "GetSize",
        "Item",
        "GetTextRunsIterator",
        "GetUniqueCharFeatures",
        "IsNotDone",
        "GetDefaultFontForScript",
        "GetPostScriptFontName",
        "FontKeyFromFontRef",
        "GetItemText",
        "GetMenuItemKeyboardShortcutDictionaryKey",
        "CountMenuItems",
        "GetNthMenuItem",
        "GetItemSubMenuGroup",
        "GetTimerActive",
    };
    return kList;
}

const std::vector<std::string>& ListReleaseOperations()
{
    static const std::vector<std::string> kList = {"FreeBlock",     "MdMemoryDisposeHandle",
                                                   "Destroy",       "DisposeFilePath",
                                                   "DisposeArtSet", "Release"};
    return kList;
}

const std::vector<std::string>& ListTextOperations()
{
    static const std::vector<std::string> kList = {"NewArtSet",
                                                   "MatchingArtSet",
                                                   "CountArtSet",
                                                   "IndexArtSet",
                                                   "GetMatchingArt",
                                                   "GetATETextFrame",
                                                   "GetATETextRange",
                                                   "GetStory",
                                                   "GetStories",
                                                   "GetTextRanges",
                                                   "GetCharInspector",
                                                   "GetFont",
                                                   "GetSize",
                                                   "Item",
                                                   "GetTextRunsIterator",
                                                   "IsNotDone",
                                                   "Next",
                                                   "GetUniqueCharFeatures",
                                                   "FontKeyFromFontRef",
                                                   "GetPostScriptFontName",
                                                   "GetPlacedFilePathFromArt",
                                                   "AddRef",
                                                   "Release"};
    return kList;
}

const std::vector<std::string>& ListRegisterOperations()
{
    static const std::vector<std::string> kList = {"AddNotifier",
                                                   "AddFileFormatEx",
                                                   "SetFileFormatPriority",
                                                   "AddTimer",
                                                   "AddMenuItem",
                                                   "AddMenuGroupAsSubMenu",
                                                   "GetItemSubMenuGroup",
                                                   "EnableItem",
                                                   "DisableItem",
                                                   "CheckItem",
                                                   "AllocateBlock",
                                                   "FreeBlock",
                                                   "Initialize",
                                                   "Destroy"};
    return kList;
}

const std::vector<std::string>& ListMenuOperations()
{
    static const std::vector<std::string> kList = {
        "EnableItem",     "DisableItem",   "CheckItem",
        "GetItemText",    "GetAs",         "GetMenuItemKeyboardShortcutDictionaryKey",
        "CountMenuItems", "GetNthMenuItem"};
    return kList;
}

const std::vector<std::string>& ListDocumentOperations()
{
    static const std::vector<std::string> kList = {
        "GetDocument",         "GetDocumentFileSpecification",
        "GetDocumentModified", "GetFullPath",
        "GetFileName",         "DisposeFilePath"};
    return kList;
}

const std::vector<std::string>& ListDocumentNotifiers()
{
    static const std::vector<std::string> kList = {
        "AI Document Opened Notifier",         "AI Document New Notifier",
        "AI Document Changed Notifier",        "AI Command Notifier: After Save",
        "AI Command Notifier: After Save As",  "AI Document Write On Disk Complete Notifier",
        "AI Document About To Close Notifier", "AI Document Closed Notifier"};
    return kList;
}

const std::vector<NamedMessage>& ListMessages()
{
    static const std::vector<NamedMessage> kList = {
        {"about", R"("SP Interface" About)"},
        {"menu update", R"("AI Menu" "AI Update" item=1)"},
        {"menu choice", R"("AI Menu" "AI Go" item=1)"},
        {"opened", R"("AI Notifier" "AI Notify" type="AI Document Opened Notifier" document=1)"},
        {"new", R"("AI Notifier" "AI Notify" type="AI Document New Notifier" document=1)"},
        {"changed", R"("AI Notifier" "AI Notify" type="AI Document Changed Notifier" document=1)"},
        {"saved", R"("AI Notifier" "AI Notify" type="AI Command Notifier: After Save")"},
        {"fonts", R"("AI Notifier" "AI Notify" type="AI Font List Changed Notifier")"},
        {"menus", R"("AI Notifier" "AI Notify" type="AI Menu Changed Notifier")"},
        {"check", R"("AI File Format" "AI Check" path=life.ai)"},
        {"tick", R"("AI Timer" "AI Go")"},
    };
    return kList;
}

}  // namespace headless
