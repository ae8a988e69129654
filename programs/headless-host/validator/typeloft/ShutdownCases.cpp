#include <utility>

#include "validator/TypeloftCaseFamilies.h"
#include "validator/typeloft/CaseWriter.h"

namespace headless {

namespace {

constexpr char kShutdown[] = "send \"SP Interface\" Shutdown";
constexpr char kUnload[] = "send \"SP Access\" Unload";

// Documents for any plug-in.
const Lines kFiles = {"document a.ai fonts=Missing-One frames=2",
                      "document b.ai fonts=Default-Regular,Missing-Two", "document c.ai frames=0"};

// What a host may send to a plug-in at any time, one message per line.
const Lines kEachMessage = {
    "send \"AI Timer\" \"AI Go\"",
    "send \"AI Menu\" \"AI Go\" item=unknown",
    "send \"AI Notifier\" \"AI Notify\" type=\"AI Document New Notifier\"",
    "send \"AI Notifier\" \"AI Notify\" type=\"AI Document Opened Notifier\"",
    "send \"AI Notifier\" \"AI Notify\" type=\"AI Document Closed Notifier\"",
    "send \"AI File Format\" \"AI Check\" path=a.ai",
    "send \"SP Interface\" About",
    "send \"SP Access\" Reload"};

void AddPlainShutdowns(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1401, "at-once", {"start"});
    AddCase(cases, 1401, "after-a-tick", {"tick"});

    AddCase(cases, 1402, "one", Join(kFiles, {"open a.ai"}));
    AddCase(cases, 1402, "three", Join(kFiles, {"open a.ai", "open b.ai", "open c.ai"}));
    AddCase(cases, 1402, "new-ones", {"new", "new", "new"});
    AddCase(cases, 1402, "not-the-current-one",
            Join(kFiles, {"open a.ai", "open b.ai", "current 1"}));
    Lines many;
    for (int i = 0; i < 200; ++i) many.emplace_back(i % 2 == 0 ? "open a.ai" : "new");
    AddCase(cases, 1402, "two-hundred", Join(kFiles, many));

    AddCase(cases, 1403, "changed", Join(kFiles, {"open a.ai", "change"}));
    AddCase(cases, 1403, "text-in-a-new-one", {"new", "text Missing-One Words"});
    AddCase(cases, 1403, "saved-and-changed", Join(kFiles, {"open a.ai", "save", "change"}));
    AddCase(cases, 1403, "file-is-gone", Join(kFiles, {"open a.ai", "change", "vanish a.ai"}));

    for (const std::string& message : kEachMessage) {
        const size_t first = message.find('"');
        std::string name = message.substr(first);
        for (char& c : name) {
            if (c == '"' || c == ' ') c = '-';
        }
        AddCase(cases, 1404, "shutdown" + name, Join(kFiles, {"start", kShutdown, message}));
    }
    AddCase(cases, 1404, "all-messages", Join(kFiles, Join({"start", kShutdown}, kEachMessage)));

    AddCase(cases, 1415, "twice", {"start", kShutdown, kShutdown});
    AddCase(
        cases, 1415, "shutdown-notifier",
        {"start", "send \"AI Notifier\" \"AI Notify\" type=\"AI Application Shutdown Notifier\"",
         kShutdown});
}

void AddRestarts(std::vector<ValidatorCase>& cases)
{
    const Lines life = {"open a.ai", "change",    "tick 2", "new",
                        "close",     "show menu", "close",  "expect documents 0"};
    AddCase(cases, 1407, "at-once", {"start", "restart"});
    AddCase(cases, 1407, "before-the-first-message", {"restart"});
    AddCase(cases, 1407, "same-life-again", Join(Join(kFiles, life), Join({"restart"}, life)));
    AddCase(cases, 1407, "menus", {"show menu", "restart", "show menu"});

    Lines many = kFiles;
    for (int i = 0; i < 20; ++i) many = Join(many, Join(life, {"restart"}));
    AddCase(cases, 1408, "twenty-lives", many);
    AddCase(cases, 1408, "without-messages", Lines(30, "restart"));

    AddCase(cases, 1410, "one",
            Join(kFiles, {"open a.ai", "restart", "expect documents 0", "open a.ai", "close"}));
    AddCase(cases, 1410, "changed",
            Join(kFiles, {"open a.ai", "change", "restart", "open a.ai", "change", "close"}));
    AddCase(cases, 1410, "new-ones", {"new", "new", "restart", "new", "close"});
    AddCase(cases, 1410, "twice",
            Join(kFiles, {"open a.ai", "restart", "open b.ai", "restart", "open a.ai"}));
}

void AddPendingWork(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1412, "within-a-tick", {"tick 5"});
    AddCase(cases, 1412, "file-was-checked-and-not-opened",
            Join(kFiles, {"send \"AI File Format\" \"AI Check\" path=a.ai"}));
    AddCase(cases, 1412, "changed-and-being-closed",
            Join(kFiles, {"open a.ai", "change",
                          "send \"AI Notifier\" \"AI Notify\" type=\"AI Document About To Close "
                          "Notifier\" document=1"}));
    AddCase(cases, 1412, "fonts-changed-in-between",
            Join(kFiles, {"open a.ai", "active Missing-One", "fonts-changed", "vanish b.ai"}));

    const std::vector<std::pair<const char*, int>> suites = {
        {"GetTimerActive", 1}, {"SetTimerActive", 1}, {"CountMenuItems", 1}};
    for (const auto& [operation, status] : suites) {
        AddCase(cases, 1419, operation,
                {"tick", "fail " + std::string(operation) + " " + std::to_string(status), "restart",
                 "tick"});
    }
}

void AddEnds(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1405, "one-life",
            {"tick", ExpectCore("TerminatePluginCoreInterface", 0), "restart",
             ExpectCore("TerminatePluginCoreInterface", 1)});
    AddCase(cases, 1405, "two-messages",
            {"start", kShutdown, kShutdown, ExpectCore("TerminatePluginCoreInterface", 1)});
    for (const CoreStatus& status : kCoreStatuses) {
        const std::string fails = MakeStatusLine("TerminatePluginCoreInterface", status.value);
        AddCase(cases, 1406, status.name,
                {"start", fails, kShutdown,
                 "expect answer " + std::to_string(static_cast<int>(status.value)), "restart",
                 "tick", ExpectCore("IdleEvent", 1)});
    }
    AddCase(cases, 1417, "asked-twice", {"start", "restart", ExpectCore("GetSettings", 3)});
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1417, status.name,
                {"start", MakeStatusLine("GetSettings", status.value), "restart",
                 ExpectCore("TerminatePluginCoreInterface", 1), ExpectCore("GetSettings", 3)});
    }
    AddCase(
        cases, 1417, "switched-off",
        {"start", MakeCoreLine("GetSettings", "text", R"({"DialogSuppression":"2"})"), "restart"});
}

void AddSecondStarts(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1409, "calls",
            {"start", "restart", ExpectCore("InitializePluginCoreInterface", 2),
             ExpectCore("SetRebuildWorkgroupsMenuCallback", 2),
             ExpectCore("CreateMenusFromJSONBuffer", 2),
             ExpectCore("TerminatePluginCoreInterface", 1)});
    AddCase(cases, 1409, "menus",
            Join(MakeWorld(), {"show menu", "restart", "show menu", "expect menu Command enabled",
                               "menu Command", ExpectCore("HandleMenuSelection", 1)}));
    AddCase(cases, 1409, "library-menu",
            Join(MakeWorld(), {"start", "restart", "core IdleEvent rebuild times=1", "tick",
                               "expect menu \"Select Library/First\" enabled"}));
    AddCase(cases, 1409, "ticks",
            {"tick 2", "restart", "tick 2", ExpectCore("IdleEvent", 4),
             ExpectCore("ProcessPanelMessages", 4)});

    AddCase(cases, 1411, "period-goes-on",
            Join(MakeWorld(), {"open a.ai", "expect dialog dismissed", "restart",
                               MakeCoreLine("HandleOpenExistingDocument", "text", kFontList),
                               "core InvokeResolveDialog text=", "open b.ai",
                               ExpectCore("HandleOpenExistingDocument", 4)}));
    AddCase(
        cases, 1411, "period-ends-with-the-clock",
        Join(MakeWorld(), {"open a.ai", "restart", "clock +15",
                           MakeCoreLine("HandleOpenExistingDocument", "text", kFontList),
                           "core InvokeResolveDialog text=", "open b.ai", "expect dialog shown"}));
}

void AddRefusedLives(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<std::string, Lines>> refusals = {
        {"no-plugin-core", {"lack-core"}},
        {"lacks-a-function", {"lack-function IdleEvent"}},
        {"version", {MakeStatusLine("GetAPIVersion", kCoreUnsupportedVersion)}},
        {"start-fails", {MakeStatusLine("InitializePluginCoreInterface", kCoreNotFound)}},
        {"start-throws", {"core InitializePluginCoreInterface throw=std::exception"}},
        {"menus-throw", {"core GetMenus throw=std::exception times=1"}}};
    for (const auto& [name, lines] : refusals) {
        // Without all functions, the plug-in registers nothing: no host sends other messages to it.
        const bool isIncomplete = lines.front().rfind("lack-", 0) == 0;
        const Lines messages =
            isIncomplete ? Lines{"send \"SP Access\" Reload", "send \"SP Interface\" About",
                                 "send \"SP Interface\" Unknown"}
                         : kEachMessage;
        AddCase(cases, 1413, name,
                Join(Join(lines, {"expect refused"}),
                     Join(messages, {kShutdown, kUnload, "expect answer 0"})));
    }
    // The menu of the first start remains, and PluginCore rebuilds it.
    AddCase(cases, 1413, "menu-of-an-earlier-start",
            {"allow refusal", "start", "restart", "fail-call 1 throw:int",
             "core HandleMenuSelection rebuild times=1", "menu \"Select Library/Two\""});
    AddCase(cases, 1414, "start-fails-once",
            {MakeStatusLine("InitializePluginCoreInterface", kCoreNotFound) + " times=1",
             "expect refused", "restart", "tick", ExpectCore("InitializePluginCoreInterface", 2),
             ExpectCore("IdleEvent", 1)});
    AddCase(cases, 1414, "version-refused-once",
            {MakeStatusLine("GetAPIVersion", kCoreUnsupportedVersion) + " times=1",
             "expect refused", "restart", "tick", ExpectCore("InitializePluginCoreInterface", 1),
             ExpectCore("IdleEvent", 1)});
    for (const std::string& type : kExceptionTypes) {
        AddCase(cases, 1414, "start-throws-once-" + type,
                {"core InitializePluginCoreInterface throw=" + type + " times=1", "expect refused",
                 "restart", "tick", ExpectCore("IdleEvent", 1)});
        AddCase(cases, 1414, "menus-throw-once-" + type,
                {"core CreateMenusFromJSONBuffer throw=" + type + " times=1", "expect refused",
                 "restart", "tick", ExpectCore("IdleEvent", 1)});
    }

    AddCase(cases, 1416, "while-it-runs",
            {"start", kUnload, "expect answer 1", "tick", ExpectCore("IdleEvent", 1)});
    AddCase(cases, 1416, "after-the-shutdown", {"start", kShutdown, kUnload, "expect answer 0"});
    for (const CoreCall& call : kCoreCalls) {
        AddCase(
            cases, 1418, std::string("during-") + call.function,
            Join(Join(MakeWorld(), call.before),
                 {"during " + std::string(call.function) + " " + kShutdown, Fill(call.act, "a.ai"),
                  ExpectCore("TerminatePluginCoreInterface", 0), "tick", "expect answer 0"}));
    }
}

}  // namespace

void AddShutdownCases(std::vector<ValidatorCase>& cases)
{
    std::vector<ValidatorCase> made;
    AddPlainShutdowns(made);
    AddRestarts(made);
    AddPendingWork(made);
    AddEnds(made);
    AddSecondStarts(made);
    AddRefusedLives(made);
    AppendByRule(cases, std::move(made));
}

}  // namespace headless
