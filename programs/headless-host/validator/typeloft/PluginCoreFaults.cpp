#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

// Makes the function fail with `fault`, performs the act, makes the function sound again and
// performs the act again: both must reach PluginCore.
Lines FailOnce(const CoreCall& call, const std::string& fault)
{
    Lines lines = Join(Join(MakeWorld(), {"start"}), call.before);
    lines.push_back(fault);
    lines.push_back(Fill(call.act, "a.ai"));
    lines.push_back(ExpectCore(call.function, call.callsBefore + call.calls));
    lines.push_back(std::string("core ") + call.function);
    lines.push_back(Fill(call.act, "b.ai"));
    lines.push_back(ExpectCore(call.function, call.callsBefore + 2 * call.calls));
    lines.emplace_back("send \"AI Timer\" \"AI Go\"");
    lines.emplace_back("expect answer 0");
    return lines;
}

void AddIgnoredStatuses(std::vector<ValidatorCase>& cases)
{
    for (const CoreCall& call : kCoreCalls) {
        for (const CoreStatus& status : kCoreStatuses) {
            AddCase(cases, 1106, std::string(call.function) + "-" + status.name,
                    FailOnce(call, MakeStatusLine(call.function, status.value)));
        }
    }
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(
            cases, 1106, std::string("SetRebuildWorkgroupsMenuCallback-") + status.name,
            {MakeStatusLine("SetRebuildWorkgroupsMenuCallback", status.value), "start", "new",
             ExpectCore("CreateMenusFromJSONBuffer", 1), ExpectCore("HandleCreateNewDocument", 1)});
        AddCase(cases, 1106, std::string("PluginIsEnabled-true-with-") + status.name,
                {MakeStatusLine("PluginIsEnabled", status.value) + " flag=true", "new",
                 ExpectCore("HandleCreateNewDocument", 1)});
    }
}

// The functions that are called while the plug-in starts: an exception is the end of the start.
void AddThrowsAtStart(std::vector<ValidatorCase>& cases, const std::string& type)
{
    for (const char* function :
         {"GetAPIVersion", "InitializePluginCoreInterface", "SetRebuildWorkgroupsMenuCallback",
          "GetMenus", "CreateMenusFromJSONBuffer", "PluginIsEnabled", "GetSettings"}) {
        AddCase(cases, 1107, std::string(function) + "-at-startup-" + type,
                {"core " + std::string(function) + " throw=" + type + " times=1", "expect refused",
                 ExpectCore(function, 1), ExpectCore("HandleOpenExistingDocument", 0)});
    }
}

void AddThrows(std::vector<ValidatorCase>& cases)
{
    for (const std::string& type : kExceptionTypes) {
        AddThrowsAtStart(cases, type);
        for (const CoreCall& call : kCoreCalls) {
            AddCase(cases, 1107, std::string(call.function) + "-" + type,
                    FailOnce(call, "core " + std::string(call.function) + " throw=" + type));
        }
        AddCase(cases, 1107, "GetMenus-at-update-" + type,
                Join(MakeWorld(), {"start", "core GetMenus throw=" + type, "show menu",
                                   MakeCoreLine("GetMenus", "text", kMenuTree), "show menu",
                                   "expect menu Command enabled"}));
        // The second message of the shutdown ends what the first one didn't.
        if (type == "int") continue;
        AddCase(cases, 1107, "TerminatePluginCoreInterface-" + type,
                {"start", "core TerminatePluginCoreInterface throw=" + type + " times=1", "restart",
                 "new", ExpectCore("TerminatePluginCoreInterface", 2)});
    }
}

void AddSingleFaults(std::vector<ValidatorCase>& cases)
{
    constexpr int kMostCalls = 60;
    const Lines life =
        Join(MakeWorld(), {MakeCoreLine("HandleOpenExistingDocument", "text", kFontList), "start",
                           "open a.ai", "change", "show menu", "save", "new", "tick 2", "close",
                           "close", "expect documents 0"});
    for (int place = 1; place <= kMostCalls; ++place) {
        for (const char* kind : {"352321536", "throw:std::exception"}) {
            Lines lines = life;
            // After the start, so that the life takes place.
            lines.insert(lines.begin() + 5,
                         "fail-core " + std::to_string(place) + " " + std::string(kind));
            AddCase(cases, 1133, "call-" + std::to_string(place) + "-" + kind, lines);
        }
    }
}

void AddAllFaults(std::vector<ValidatorCase>& cases)
{
    Lines faults;
    for (const CoreCall& call : kCoreCalls) {
        faults.push_back(MakeStatusLine(call.function, kCoreNotFound));
    }
    faults.emplace_back("core PluginIsEnabled status=1 flag=true");
    const Lines life = {"open a.ai", "change",    "save",  "new",   "close", "show menu",
                        "tick 5",    "open b.ai", "about", "close", "close"};
    AddCase(cases, 1134, "statuses",
            Join(Join(Join(MakeWorld(), {"start"}), faults),
                 Join(life, {"expect documents 0", ExpectCore("HandleOpenExistingDocument", 4)})));
    for (const std::string& type : kExceptionTypes) {
        Lines throwing;
        for (const CoreCall& call : kCoreCalls) {
            throwing.push_back("core " + std::string(call.function) + " throw=" + type);
        }
        AddCase(
            cases, 1134, type,
            Join(Join(Join(MakeWorld(), {"start"}), throwing),
                 Join(life, {"expect documents 0", ExpectCore("HandleOpenExistingDocument", 0)})));
    }
}

}  // namespace

void AddCoreFaultCases(std::vector<ValidatorCase>& cases)
{
    AddIgnoredStatuses(cases);
    AddThrows(cases);
    AddSingleFaults(cases);
    AddAllFaults(cases);
}

}  // namespace headless
