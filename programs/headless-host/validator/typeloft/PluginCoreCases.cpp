#include <utility>

#include "validator/TypeloftCaseFamilies.h"
#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"
namespace headless {

namespace {

void AddStartCases(std::vector<ValidatorCase>& cases)
{
    AddCase(
        cases, 1101, "calls-of-startup",
        {"start", ExpectCore("GetAPIVersion", 2), ExpectCore("InitializePluginCoreInterface", 1),
         ExpectCore("SetRebuildWorkgroupsMenuCallback", 1), ExpectCore("GetMenus", 2),
         ExpectCore("CreateMenusFromJSONBuffer", 1), ExpectCore("PluginIsEnabled", 1),
         ExpectCore("GetSettings", 1), ExpectCore("HandleOpenExistingDocument", 0),
         ExpectCore("IdleEvent", 0), ExpectCore("TerminatePluginCoreInterface", 0)});
    AddCase(cases, 1101, "arguments-of-startup",
            {"start",
             "expect call InitializePluginCoreInterface "
             "com.corvanta.AutoActivationPlugin.AI24",
             "expect call AddNotifier", "expect call AddTimer"});
}

void AddTickCases(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1129, "one-tick",
            {"tick", ExpectCore("IdleEvent", 1), ExpectCore("ProcessPanelMessages", 1),
             "expect answer 0"});
    AddCase(cases, 1129, "thousand-ticks",
            {"tick 1000", ExpectCore("IdleEvent", 1000), ExpectCore("ProcessPanelMessages", 1000)});
    AddCase(cases, 1129, "disabled",
            {"core PluginIsEnabled flag=false", "tick 3", ExpectCore("IdleEvent", 3),
             ExpectCore("ProcessPanelMessages", 3)});
}

// A life in which every event of a document occurs.
void AddUncalledCases(std::vector<ValidatorCase>& cases)
{
    Lines lines = {MakeCoreLine("GetMenus", "text", kMenuTree),
                   "document a.ai fonts=Missing-One,Default-Regular frames=3",
                   "document b.ai unreadable",
                   MakeCoreLine("HandleOpenExistingDocument", "text", kFontList),
                   "open a.ai",
                   "change",
                   "save",
                   "show menu",
                   "menu Command",
                   "new",
                   "fonts-changed",
                   "tick 3",
                   "about",
                   "close",
                   "close",
                   "expect documents 0"};
    for (const char* name : {"InvokeRestrictedFontsDialog", "SetPathForDocument",
                             "ShowNotLoggedInMessageBox", "ShouldShowLogin"}) {
        lines.push_back(ExpectCore(name, 0));
    }
    AddCase(cases, 1130, "whole-life", lines);
}

}  // namespace

void AddPluginCoreCases(std::vector<ValidatorCase>& cases)
{
    std::vector<ValidatorCase> made;
    AddStartCases(made);
    AddRefusalCases(made);
    AddCoreFaultCases(made);
    AddCoreBufferCases(made);
    AddDocumentCallCases(made);
    AddFontListCases(made);
    AddMenuTreeCases(made);
    AddTickCases(made);
    AddUncalledCases(made);
    AppendByRule(cases, std::move(made));
}

}  // namespace headless
