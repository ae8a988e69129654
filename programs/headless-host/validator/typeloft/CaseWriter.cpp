#include "validator/typeloft/CaseWriter.h"

#include <algorithm>
#include <iterator>

#include "PluginCoreFunctions.h"
#include "session/SessionWords.h"

namespace headless {

const std::vector<CoreStatus> kCoreStatuses = {
    {"general-error", 0x01000000},   {"invalid-json", kCoreInvalidJson},
    {"null-pointer", 0x05000000},    {"not-found", kCoreNotFound},
    {"already-exists", 0x09000000},  {"buffer-too-small", kCoreBufferTooSmall},
    {"database-error", 0x0D000000},  {"unsupported-version", kCoreUnsupportedVersion},
    {"not-initialized", 0x11000000}, {"unknown-error", 0x15000000},
    {"undefined-small", 1},          {"undefined-large", 0xFFFFFFFF},
};

const std::vector<std::string> kExceptionTypes = {"ai::Error", "ATE::Exception", "int",
                                                  "std::exception", "foreign"};

#define LIST_NAME(name) #name,
const std::vector<std::string> kCoreFunctions = {PLUGIN_CORE_FUNCTIONS(LIST_NAME)};
#undef LIST_NAME

const std::string kFontList = R"([{"PostScriptName":"Missing-One"}])";

const std::string kMenuTree =
    R"({"id":"root","label":"root","title":"","checked":false,"enabled":true,"child":[)"
    R"({"id":"select","label":"Select Library","title":"Select Library","checked":false,)"
    R"("enabled":true,"child":[{"id":"library:1","label":"First","title":"First",)"
    R"("checked":true,"enabled":true,"child":[]}]},)"
    R"({"id":"command","label":"Command","title":"Command","checked":false,"enabled":true,)"
    R"("child":[]}]})";

namespace {

const std::string kResolve = MakeCoreLine("HandleOpenExistingDocument", "text", kFontList);

const std::string kChoose = MakeCoreLine("InvokeResolveDialog", "text", kFontList);

}  // namespace

const std::vector<CoreCall> kCoreCalls = {
    {"ActivateChosenFonts", {kResolve, kChoose}, "open %s", 2, 0},
    {"GetIDForDocument", {"open a.ai"}, "menu Command", 1, 0},
    {"HandleCloseDocument", {"open a.ai", "open b.ai"}, "close %s", 1, 0},
    {"HandleCreateNewDocument", {}, "new", 1, 0},
    {"HandleMenuSelection", {"open a.ai"}, "menu Command", 1, 0},
    {"HandleOpenExistingDocument", {}, "open %s", 2, 0},
    {"HandleSaveDocument", {"open a.ai"}, "save", 2, 0},
    {"IdleEvent", {}, "tick", 1, 0},
    {"InvokeCommandDialog", {}, "about", 1, 0},
    {"InvokeResolveDialog", {kResolve}, "open %s", 2, 0},
    {"PluginIsEnabled", {}, "open %s", 2, 1},
    {"ProcessPanelMessages", {}, "tick", 1, 0},
    {"UpdateDocumentFontUsage", {"open a.ai"}, "menu Command", 1, 0},
};

Lines MakeWorld()
{
    return {"document a.ai fonts=Missing-One", "document b.ai fonts=Missing-Two",
            MakeCoreLine("GetMenus", "text", kMenuTree)};
}

void AddCase(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
             const Lines& lines)
{
    ValidatorCase made;
    made.rule = rule;
    made.name = name;
    for (const std::string& line : lines) made.script += line + "\n";
    cases.push_back(std::move(made));
}

void AppendByRule(std::vector<ValidatorCase>& cases, std::vector<ValidatorCase> made)
{
    std::stable_sort(made.begin(), made.end(),
                     [](const auto& a, const auto& b) { return a.rule < b.rule; });
    cases.insert(cases.end(), std::make_move_iterator(made.begin()),
                 std::make_move_iterator(made.end()));
}

std::string MakeCoreLine(const std::string& function, const std::string& key,
                         const std::string& value)
{
    return "core " + function + " " + QuoteSessionWord(key + "=" + value);
}

std::string MakeStatusLine(const std::string& function, unsigned int status)
{
    return "core " + function + " status=" + std::to_string(static_cast<int>(status));
}

std::string ExpectCore(const std::string& function, size_t count)
{
    return "expect core " + function + " " + std::to_string(count);
}

Lines Join(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::string Fill(const std::string& text, const std::string& with)
{
    const size_t place = text.find("%s");
    return place == std::string::npos ? text : std::string(text).replace(place, 2, with);
}

}  // namespace headless
