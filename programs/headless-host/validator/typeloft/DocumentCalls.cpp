#include "session/SessionWords.h"
#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

const char* const kDocumentFunctions[] = {"HandleOpenExistingDocument", "InvokeResolveDialog",
                                          "ActivateChosenFonts",        "HandleSaveDocument",
                                          "HandleCreateNewDocument",    "HandleCloseDocument"};

std::string MakeList(const std::string& fonts)
{
    return MakeCoreLine("HandleOpenExistingDocument", "text", fonts);
}

void AddDisabled(std::vector<ValidatorCase>& cases)
{
    Lines lines =
        Join(MakeWorld(), {"start", "core PluginIsEnabled flag=false", "open a.ai",
                           "expect dialog shown", "change", "save", "new", "close", "close"});
    for (const char* function : kDocumentFunctions) lines.push_back(ExpectCore(function, 0));
    AddCase(cases, 1111, "disabled-after-the-start", lines);
    lines.erase(lines.begin() + 3);  // the start, which the next line that needs it performs
    AddCase(cases, 1111, "disabled-from-the-start", lines);
    AddCase(cases, 1111, "enabled-again",
            Join(MakeWorld(),
                 {"core PluginIsEnabled flag=false", "open a.ai", "core PluginIsEnabled flag=true",
                  "open b.ai", ExpectCore("HandleOpenExistingDocument", 2)}));
    // Menus and ticks don't depend on it.
    AddCase(cases, 1111, "menus-and-ticks",
            Join(MakeWorld(),
                 {"open a.ai", "core PluginIsEnabled flag=false", "show menu", "menu Command",
                  "tick", ExpectCore("HandleMenuSelection", 1), ExpectCore("IdleEvent", 1)}));

    const std::vector<std::pair<std::string, unsigned>> events = {
        {"new", 1}, {"open b.ai", 2}, {"change", 1}, {"save", 2}, {"close", 2}};
    for (const auto& [event, calls] : events) {
        // One question at the start, two for the open document.
        AddCase(cases, 1112, event.substr(0, event.find(' ')),
                Join(MakeWorld(), {"open a.ai", ExpectCore("PluginIsEnabled", 3), event,
                                   ExpectCore("PluginIsEnabled", 3 + calls)}));
    }
    AddCase(cases, 1112, "fonts-changed",
            {"start", "fonts-changed", ExpectCore("PluginIsEnabled", 1)});
}

void AddResolutions(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1113, "nothing-to-resolve",
            Join(MakeWorld(),
                 {"open a.ai", ExpectCore("HandleOpenExistingDocument", 2),
                  ExpectCore("InvokeResolveDialog", 0), ExpectCore("ActivateChosenFonts", 0)}));
    AddCase(cases, 1113, "fonts-of-the-open-document",
            Join(MakeWorld(), {"open a.ai", "expect call HandleOpenExistingDocument Missing-One"}));
    AddCase(
        cases, 1113, "two-documents",
        Join(MakeWorld(), {"open a.ai", "open b.ai", ExpectCore("HandleOpenExistingDocument", 4)}));
    AddCase(cases, 1113, "check-only",
            Join(MakeWorld(), {"send \"AI File Format\" \"AI Check\" path=a.ai", "expect answer -1",
                               ExpectCore("HandleOpenExistingDocument", 1)}));
    AddCase(cases, 1113, "check-without-path",
            {"send \"AI File Format\" \"AI Check\" path=\"\"", "expect answer -1",
             ExpectCore("HandleOpenExistingDocument", 0)});

    AddCase(
        cases, 1114, "chosen",
        Join(MakeWorld(),
             {MakeList(kFontList),
              MakeCoreLine("InvokeResolveDialog", "text", R"([{"PostScriptName":"Chosen-Font"}])"),
              "open a.ai", ExpectCore("InvokeResolveDialog", 2),
              ExpectCore("ActivateChosenFonts", 2), "expect call InvokeResolveDialog Missing-One",
              "expect call ActivateChosenFonts Chosen-Font"}));
    AddCase(cases, 1114, "none-chosen",
            Join(MakeWorld(),
                 {MakeList(kFontList), "core InvokeResolveDialog text=", "open a.ai",
                  ExpectCore("InvokeResolveDialog", 2), ExpectCore("ActivateChosenFonts", 0)}));
    AddCase(cases, 1114, "chosen-with-a-failure",
            Join(MakeWorld(),
                 {MakeList(kFontList),
                  MakeCoreLine("InvokeResolveDialog", "text", kFontList) + " status=16777216",
                  "open a.ai", ExpectCore("ActivateChosenFonts", 2), "expect dialog shown"}));

    const std::string mixed =
        R"([{"PostScriptName":"Missing-One"},{"PostScriptName":"Default-Regular"}])";
    // The whole list that the dialog gets.
    const auto expectList = [](const std::string& list) {
        return "expect call InvokeResolveDialog " + QuoteSessionWord(list);
    };
    AddCase(cases, 1115, "one-of-two",
            Join(MakeWorld(), {MakeList(mixed), "open a.ai", ExpectCore("InvokeResolveDialog", 2),
                               expectList(kFontList)}));
    AddCase(cases, 1115, "only-defaults",
            Join(MakeWorld(), {MakeList(R"([{"PostScriptName":"Default-Regular"}])"),
                               "core InvokeResolveDialog text=", "open a.ai",
                               ExpectCore("InvokeResolveDialog", 2), expectList("[]"),
                               ExpectCore("ActivateChosenFonts", 0)}));
    AddCase(cases, 1115, "in-an-object",
            Join(MakeWorld(), {MakeList(R"({"DocumentFonts":)" + mixed + "}"), "open a.ai",
                               ExpectCore("InvokeResolveDialog", 2),
                               expectList(R"({"DocumentFonts":)" + kFontList + "}")}));
}

void AddReports(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1125, "save",
            Join(MakeWorld(),
                 {"open a.ai", "change", "save", "expect call HandleSaveDocument Missing-One",
                  ExpectCore("HandleSaveDocument", 2)}));
    AddCase(cases, 1125, "save-as",
            Join(MakeWorld(), {"open a.ai", "save c.ai", "expect call HandleSaveDocument c.ai",
                               ExpectCore("HandleSaveDocument", 2)}));
    AddCase(cases, 1125, "change-alone",
            Join(MakeWorld(), {"open a.ai", "change", ExpectCore("HandleSaveDocument", 0)}));

    AddCase(cases, 1126, "one-document",
            Join(MakeWorld(), {"open a.ai", "close", ExpectCore("HandleCloseDocument", 1),
                               "expect call HandleCloseDocument a.ai"}));
    AddCase(cases, 1126, "in-the-background",
            Join(MakeWorld(),
                 {"open a.ai", "open b.ai", "close a.ai", ExpectCore("HandleCloseDocument", 1),
                  "close b.ai", ExpectCore("HandleCloseDocument", 2)}));
    AddCase(cases, 1126, "without-a-file",
            {"new", "close", ExpectCore("HandleCloseDocument", 0),
             ExpectCore("ActivateChosenFonts", 0)});
    AddCase(
        cases, 1126, "file-is-gone",
        Join(MakeWorld(), {"open a.ai", "vanish a.ai", "close", ExpectCore("HandleSaveDocument", 0),
                           ExpectCore("HandleCloseDocument", 1)}));
    AddCase(cases, 1126, "at-shutdown",
            Join(MakeWorld(),
                 {"open a.ai", "open b.ai", "restart", ExpectCore("HandleCloseDocument", 2)}));

    AddCase(cases, 1127, "one", {"new", ExpectCore("HandleCreateNewDocument", 1)});
    AddCase(cases, 1127, "three", {"new", "new", "new", ExpectCore("HandleCreateNewDocument", 3)});
}

void AddAbout(std::vector<ValidatorCase>& cases)
{
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1128, status.name,
                {"start", MakeStatusLine("InvokeCommandDialog", status.value), "about",
                 "expect answer " + std::to_string(static_cast<int>(status.value))});
    }
    AddCase(cases, 1128, "with-the-document's-path",
            Join(MakeWorld(), {"open a.ai", "about", "expect answer 0",
                               "expect call InvokeCommandDialog a.ai"}));
    AddCase(
        cases, 1128, "after-a-refusal",
        {MakeStatusLine("InitializePluginCoreInterface", kCoreNotFound), "expect refused",
         "send \"SP Interface\" About", "expect answer 0", ExpectCore("InvokeCommandDialog", 1)});
}

}  // namespace

void AddDocumentCallCases(std::vector<ValidatorCase>& cases)
{
    AddDisabled(cases);
    AddResolutions(cases);
    AddReports(cases);
    AddAbout(cases);
}

}  // namespace headless
