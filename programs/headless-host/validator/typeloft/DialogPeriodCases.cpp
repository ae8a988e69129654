#include "application/MissingFontsDialog.h"
#include "validator/TypeloftCaseFamilies.h"
#include "validator/typeloft/CaseWriter.h"

namespace headless {

namespace {

// Three documents with a font that is not active each, and one whose font is.
const Lines kDocuments = {"document a.ai fonts=Missing-One", "document b.ai fonts=Missing-Two",
                          "document c.ai fonts=Missing-Three",
                          "document active.ai fonts=Default-Regular"};

// From now on nothing that is opened begins a period: there are fonts to resolve, and none is
// chosen.
Lines BeginNoPeriods()
{
    return {MakeCoreLine("HandleOpenExistingDocument", "text", kFontList),
            "core InvokeResolveDialog text="};
}

// A period of 15 seconds begins, which no dialog has shortened.
Lines BeginPeriod() { return Join(Join(kDocuments, {"open active.ai"}), BeginNoPeriods()); }

void AddOutcomes(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1203, "nothing-to-resolve",
            Join(kDocuments, {"open a.ai", "expect dialog dismissed",
                              ExpectCore("HandleOpenExistingDocument", 2)}));
    AddCase(cases, 1203, "each-document",
            Join(kDocuments, {"open a.ai", "expect dialog dismissed", "open b.ai",
                              "expect dialog dismissed", "open c.ai", "expect dialog dismissed"}));
    AddCase(cases, 1203, "no-dialog", Join(kDocuments, {"open active.ai", "expect dialog none"}));

    for (const HostLanguage& language : kHostLanguages) {
        const std::string choose = "language " + std::string(language.tag);
        AddCase(
            cases, 1204, language.tag,
            Join({choose}, Join(kDocuments, {"open a.ai", "expect dialog dismissed",
                                             "expect call \"begin session\" " + std::string("\"") +
                                                 language.missingFontsTitle + "\""})));
        AddCase(cases, 1205, "in-" + std::string(language.tag),
                Join({choose}, Join(Join(kDocuments, BeginNoPeriods()),
                                    {"open a.ai", "expect dialog shown"})));
    }

    const std::string resolve = MakeCoreLine("HandleOpenExistingDocument", "text", kFontList);
    const std::string choose = MakeCoreLine("InvokeResolveDialog", "text", kFontList);
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1205, std::string("not-activated-") + status.name,
                Join(kDocuments,
                     {resolve, choose, MakeStatusLine("ActivateChosenFonts", status.value),
                      "open a.ai", ExpectCore("ActivateChosenFonts", 2), "expect dialog shown"}));
        AddCase(cases, 1205, std::string("chosen-with-") + status.name,
                Join(kDocuments,
                     {resolve, choose + " status=" + std::to_string(static_cast<int>(status.value)),
                      "open a.ai", "expect dialog shown"}));
    }
    AddCase(cases, 1205, "broken-list",
            Join(kDocuments,
                 {"core HandleOpenExistingDocument text=[", "open a.ai", "expect dialog shown"}));
    AddCase(cases, 1212, "chosen-but-not-there",
            Join(kDocuments, {resolve, choose, "core ActivateChosenFonts status=0", "open a.ai",
                              "expect dialog dismissed"}));
    AddCase(cases, 1212, "activated",
            Join(kDocuments, {resolve, choose, "during ActivateChosenFonts active Missing-One",
                              "open a.ai", "expect dialog none"}));
}

// Boundaries keep a second of distance, since the clock runs on while a script plays.
void AddTimes(std::vector<ValidatorCase>& cases)
{
    const auto at = [&](int rule, const std::string& name, const Lines& lines) {
        AddCase(cases, rule, name, Join(BeginPeriod(), lines));
    };
    at(1206, "at-once", {"open a.ai", "expect dialog dismissed"});
    at(1206, "after-13-seconds", {"clock +13", "open a.ai", "expect dialog dismissed"});
    at(1206, "after-15-seconds", {"clock +15", "open a.ai", "expect dialog shown"});
    at(1206, "begins-anew",
       {"clock +15", "open a.ai", "expect dialog shown", "core HandleOpenExistingDocument",
        "open b.ai", "expect dialog dismissed"});

    at(1207, "after-3-seconds",
       {"open a.ai", "expect dialog dismissed", "clock +3", "open b.ai",
        "expect dialog dismissed"});
    at(1207, "after-5-seconds",
       {"open a.ai", "expect dialog dismissed", "clock +5", "open b.ai", "expect dialog shown"});
    at(1207, "each-dialog-begins-anew",
       {"open a.ai", "clock +3", "open b.ai", "expect dialog dismissed", "clock +3", "open c.ai",
        "expect dialog dismissed"});
    at(1207, "shown-dialog-begins-none",
       {"clock +15", "open a.ai", "expect dialog shown", "open b.ai", "expect dialog shown"});

    for (const char* seconds : {"1", "60", "86400", "100000000"}) {
        at(1208, std::string("by-") + seconds,
           {"clock -" + std::string(seconds), "open a.ai", "expect dialog dismissed"});
    }
    at(1208, "back-and-forward",
       {"clock -1000", "clock +1000", "open a.ai", "expect dialog dismissed"});
    // A period that was begun in the past of a clock that is right again.
    at(1208, "begun-in-the-future",
       {"clock +1000", "core HandleOpenExistingDocument", "open active.ai",
        MakeCoreLine("HandleOpenExistingDocument", "text", kFontList), "clock -1000", "open a.ai",
        "expect dialog dismissed"});
    for (const char* seconds : {"60", "86400", "1000000000"}) {
        at(1209, std::string("by-") + seconds,
           {"clock +" + std::string(seconds), "open a.ai", "expect dialog shown"});
    }
    at(1209, "forward-and-back",
       {"clock +60", "open a.ai", "expect dialog shown", "clock -60", "open b.ai",
        "expect dialog dismissed"});
    for (const char* seconds : {"2147483647", "4294967296", "100000000000"}) {
        at(1213, std::string("forward-") + seconds,
           {"clock +" + std::string(seconds), "open a.ai", "expect dialog shown"});
        at(1213, std::string("back-") + seconds,
           {"clock -" + std::string(seconds), "open a.ai", "expect dialog dismissed"});
    }
}

void AddSettingsOfUser(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<std::string, std::string>> settings = {
        {"0", "dismissed"}, {"1", "dismissed"},      {"2", "shown"},
        {"3", "shown"},     {"2147483647", "shown"}, {"-1", "dismissed"}};
    for (const auto& [value, outcome] : settings) {
        AddCase(cases, 1210, "value-" + value,
                Join(kDocuments, {MakeCoreLine("GetSettings", "text",
                                               R"({"DialogSuppression":")" + value + R"("})"),
                                  "open a.ai", "expect dialog " + outcome}));
    }
    AddCase(cases, 1210, "read-at-the-start-only",
            Join(kDocuments,
                 {"start", MakeCoreLine("GetSettings", "text", R"({"DialogSuppression":"2"})"),
                  "open a.ai", "expect dialog dismissed"}));

    AddCase(
        cases, 1211, "disabled",
        Join(kDocuments, {"core PluginIsEnabled flag=false", "open a.ai", "expect dialog shown"}));
    AddCase(cases, 1211, "enabled-later",
            Join(kDocuments, {"core PluginIsEnabled flag=false", "start", "core PluginIsEnabled",
                              "open a.ai", "expect dialog shown"}));
    AddCase(cases, 1211, "disabled-later",
            Join(kDocuments,
                 {"start", "core PluginIsEnabled flag=false", "open a.ai", "expect dialog shown"}));
}

}  // namespace

void AddDialogPeriodCases(std::vector<ValidatorCase>& cases)
{
    std::vector<ValidatorCase> made;
    AddOutcomes(made);
    AddTimes(made);
    AddSettingsOfUser(made);
    AppendByRule(cases, std::move(made));
}

}  // namespace headless
