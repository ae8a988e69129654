#include <gmock/gmock.h>

#include <algorithm>

#include "CaseRun.h"
#include "validator/RuleCases.h"

// The plug-in survives each kind of wrong PluginCore, and does what the rule says that it must. The
// case that shows it has to show the kind itself, too.
using headless::CaseResult;
using headless::ValidatorCase;

namespace {

struct WrongCore {
    const char* kind;
    int rule;
    const char* name;       // of the rule's case
    const char* line;       // of its script, without which PluginCore would be sound
    const char* operation;  // of a line of the journal that shows that the fault took place
    const char* text;       // in that line
};

const WrongCore kWrongCores[] = {
    {"lacks_a_function", 1102, "lacks-IdleEvent", "lack-function IdleEvent", "showAlert",
     "Incompatible PluginCore"},
    {"lacks_all_functions", 1102, "lacks-26", "lack-function ShouldShowLogin", "showAlert",
     "Incompatible PluginCore"},
    {"is_not_there", 1103, "no-plugin-core", "lack-core", "showAlert", "Missing PluginCore"},
    {"refuses_the_version", 1104, "unsupported-version", "core GetAPIVersion status=234881024",
     "GetAPIVersion", "\"status\":234881024"},
    {"does_not_start", 1105, "not-found", "core InitializePluginCoreInterface status=117440512",
     "InitializePluginCoreInterface", "\"status\":117440512"},
    {"fails", 1106, "HandleSaveDocument-not-found", "core HandleSaveDocument status=117440512",
     "HandleSaveDocument", "\"status\":117440512"},
    {"fails_with_an_unknown_status", 1106, "HandleSaveDocument-undefined-small",
     "core HandleSaveDocument status=1", "HandleSaveDocument", "\"status\":1"},
    {"throws", 1107, "HandleSaveDocument-std::exception",
     "core HandleSaveDocument throw=std::exception", "HandleSaveDocument", "throws"},
    {"throws_what_no_one_knows", 1107, "HandleSaveDocument-foreign",
     "core HandleSaveDocument throw=foreign", "HandleSaveDocument", "throws"},
    {"throws_at_the_start", 1107, "GetMenus-at-startup-int", "core GetMenus throw=int times=1",
     "GetMenus", "throws"},
    {"writes_a_size_that_is_too_great", 1108, "HandleCreateNewDocument-size-18446744073709551615",
     "core HandleCreateNewDocument size=18446744073709551615", "HandleCreateNewDocument",
     "\"status\":0"},
    {"writes_the_size_0", 1108, "list-then-size-0", " size=0", "InvokeResolveDialog",
     "\"status\":0"},
    {"fills_to_the_last_byte", 1109, "GetIDForDocument-filled", "core GetIDForDocument fill=x",
     "GetIDForDocument", "xxxxxxxx"},
    {"writes_no_utf_8", 1110, "GetIDForDocument-lone-continuation", "core GetIDForDocument hex=80",
     "GetIDForDocument", "\xEF\xBF\xBD"},
    {"writes_a_zero_byte", 1110, "GetIDForDocument-zero-first", "core GetIDForDocument hex=0041",
     "GetIDForDocument", "\"id\":\"\""},
    {"is_disabled", 1111, "disabled-from-the-start", "core PluginIsEnabled flag=false",
     "PluginIsEnabled", "\"enabled\":false"},
    {"cuts_a_list", 1116, "list-cut-to-20", "core HandleOpenExistingDocument",
     "HandleOpenExistingDocument", "[{\"PostScriptName\":\""},
    {"nests_a_list", 1117, "2000-open-arrays", "[[[[[[[[[[[[", "HandleOpenExistingDocument",
     "[[[[[[[[[[[["},
    {"writes_values_of_wrong_types", 1118, "instead-of-a-name-number", "PostScriptName",
     "HandleOpenExistingDocument", "{\"PostScriptName\":1}"},
    {"writes_huge_numbers", 1119, "beyond-64-bits", "18446744073709551616",
     "HandleOpenExistingDocument", "18446744073709551616"},
    {"has_no_menus", 1120, "no-tree-not-found", "core GetMenus status=117440512", "GetMenus",
     "\"status\":117440512"},
    {"breaks_its_menus_later", 1121, "array", "core GetMenus text=[]", "GetMenus",
     "\"menus\":\"[]\""},
    {"calls_back_at_an_odd_moment", 1123, "during-HandleCreateNewDocument",
     "core HandleCreateNewDocument rebuild", "HandleCreateNewDocument", "\"status\":0"},
    {"changes_the_size_of_its_menus", 1131, "size-1", "core GetMenus size=1", "GetMenus",
     "\"status\":201326592"},
    {"has_settings_that_cannot_be_read", 1132, "text", "core GetSettings", "GetSettings",
     "DialogSuppression"},
    {"has_no_port", 1304, "not-found", "core GetSocketPort status=117440512", "GetSocketPort",
     "\"status\":117440512"},
    {"does_not_take_the_bus", 1308, "not-found", "core RegisterPlugPlug status=117440512",
     "RegisterPlugPlug", "\"status\":117440512"},
    {"does_not_end", 1406, "not-found", "core TerminatePluginCoreInterface status=117440512",
     "TerminatePluginCoreInterface", "\"status\":117440512"},
    {"fails_in_all_functions", 1134, "statuses", "core HandleCloseDocument status=117440512",
     "HandleCloseDocument", "\"status\":117440512"},
};

// In a journal, a text may be part of a text that is JSON itself.
std::string EscapeQuotes(const std::string& text)
{
    std::string escaped;
    for (const char c : text) escaped += c == '"' ? "\\\"" : std::string(1, c);
    return escaped;
}

bool HasLine(const CaseRun& run, const WrongCore& core)
{
    return std::any_of(run.journal.begin(), run.journal.end(), [&](const std::string& line) {
        return line.find(core.operation) != std::string::npos &&
               (line.find(core.text) != std::string::npos ||
                line.find(EscapeQuotes(core.text)) != std::string::npos);
    });
}

}  // namespace

class WrongPluginCore : public testing::TestWithParam<WrongCore> {};

TEST_P(WrongPluginCore, IsSurvived)
{
    std::vector<ValidatorCase> chosen;
    for (ValidatorCase& each : headless::MakeRuleCases(true)) {
        if (each.rule == GetParam().rule && each.name == GetParam().name) chosen.push_back(each);
    }
    ASSERT_EQ(1U, chosen.size());
    EXPECT_THAT(chosen[0].script, testing::HasSubstr(GetParam().line));
    EXPECT_THAT(chosen[0].script, testing::HasSubstr("expect "));
    chosen[0].wantsJournal = true;
    size_t count = 0;
    RunCasesOver(SOUND_PLUGIN, chosen, [&count](const CaseRun& run) {
        ++count;
        EXPECT_EQ(CaseResult::kPassed, run.outcome.result);
        for (const headless::Finding& finding : run.outcome.findings) {
            ADD_FAILURE() << finding.message;
        }
        EXPECT_TRUE(HasLine(run, GetParam())) << testing::PrintToString(run.journal);
        return true;
    });
    EXPECT_EQ(1U, count);
}

INSTANTIATE_TEST_SUITE_P(Kinds, WrongPluginCore, testing::ValuesIn(kWrongCores),
                         [](const auto& row) { return std::string(row.param.kind); });
