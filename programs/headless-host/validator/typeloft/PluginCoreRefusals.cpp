#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

constexpr char kIncompatible[] = "expect refused \"Incompatible PluginCore\"";

// What a plug-in that didn't start leaves alone.
const Lines kNothingElse = {ExpectCore("SetRebuildWorkgroupsMenuCallback", 0),
                            ExpectCore("GetMenus", 0), ExpectCore("CreateMenusFromJSONBuffer", 0),
                            ExpectCore("GetSettings", 0)};

void AddMissingFunctions(std::vector<ValidatorCase>& cases)
{
    for (const std::string& name : kCoreFunctions) {
        AddCase(cases, 1102, "lacks-" + name,
                Join({"lack-function " + name, kIncompatible,
                      ExpectCore("InitializePluginCoreInterface", 0)},
                     kNothingElse));
    }
    // 24 is the number of functions of former interfaces.
    for (const size_t count : {size_t{2}, size_t{24}, kCoreFunctions.size()}) {
        Lines lines;
        for (size_t i = 0; i < kCoreFunctions.size() && lines.size() < count; ++i) {
            const bool isKept = count == 24 && kCoreFunctions[i] == "GetAPIVersion";
            if (!isKept) lines.push_back("lack-function " + kCoreFunctions[i]);
        }
        lines.emplace_back(kIncompatible);
        lines.push_back(ExpectCore("InitializePluginCoreInterface", 0));
        AddCase(cases, 1102, "lacks-" + std::to_string(count), lines);
    }
}

void AddNoCore(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1103, "no-plugin-core", {"lack-core", "expect refused \"Missing PluginCore\""});
    AddCase(cases, 1103, "nothing-is-registered",
            {"lack-core", "expect refused \"Missing PluginCore\"", "expect calls AddTimer 0",
             "expect calls \"AI Menu Suite, AddMenuItem\" 0",
             "expect calls \"AI Notifier Suite, AddNotifier\" 0"});
}

void AddVersions(std::vector<ValidatorCase>& cases)
{
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(
            cases, 1104, status.name,
            Join({MakeStatusLine("GetAPIVersion", status.value), kIncompatible,
                  ExpectCore("GetAPIVersion", 1), ExpectCore("InitializePluginCoreInterface", 0)},
                 kNothingElse));
    }
    // The version that PluginCore reports is its own affair: the status decides.
    for (const char* version : {"0", "6", "8", "-1", "2147483647"}) {
        AddCase(cases, 1104, std::string("accepts-but-reports-") + version,
                {"core GetAPIVersion status=0 number=" + std::string(version), "start", "tick",
                 ExpectCore("InitializePluginCoreInterface", 1), ExpectCore("IdleEvent", 1)});
    }
    AddCase(cases, 1104, "refuses-after-the-start",
            {"start", MakeStatusLine("GetAPIVersion", kCoreUnsupportedVersion), "new", "tick",
             "expect calls showAlert 0", ExpectCore("IdleEvent", 1)});
}

void AddFailingStart(std::vector<ValidatorCase>& cases)
{
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(
            cases, 1105, status.name,
            Join({MakeStatusLine("InitializePluginCoreInterface", status.value), "expect refused",
                  ExpectCore("InitializePluginCoreInterface", 1), "expect calls showAlert 0"},
                 kNothingElse));
    }
}

}  // namespace

void AddRefusalCases(std::vector<ValidatorCase>& cases)
{
    AddMissingFunctions(cases);
    AddNoCore(cases);
    AddVersions(cases);
    AddFailingStart(cases);
}

}  // namespace headless
