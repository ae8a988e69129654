#include "suites/SuiteTable.h"
#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about suites.
namespace headless {

namespace {

// Statuses that hosts return: 1, negative ones, "not found", "bad parameter", "out of memory" and
// the greatest numbers.
const char* const kStatuses[] = {"1",          "-1",        "-108",       "1394689636",
                                 "1346458189", "558712141", "2147483647", "-2147483648"};

void AddBalance(std::vector<ValidatorCase>& cases)
{
    const std::string end =
        "send \"AI Notifier\" \"AI Notify\" type=\"AI Application Shutdown Notifier\"\n";
    AddCase(cases, 401, "ticks after the end", "start\n" + end + "tick 2");
    for (const NamedMessage& message : ListMessages()) {
        AddCase(cases, 401, std::string(message.name) + " after the end",
                "new\n" + end + "send " + message.words);
    }
    AddCase(cases, 401, "short life", GetShortLife());
    for (const char* const line : {"fail AcquireSuite", "fail AcquireSuite 1394689636"}) {
        AddCase(cases, 402, std::string(line) + " at the start",
                std::string("allow refusal\n") + line + "\nstart\ntick\n" + GetShortLife());
        AddCase(cases, 402, std::string(line) + " later",
                std::string("start\n") + line + "\n" + GetShortLife());
        AddCase(cases, 402, std::string(line) + " at the end",
                "new\n" + std::string(line) + "\nquit");
    }
    for (const char* const operation :
         {"GetDocument", "GetATETextRange", "GetItemText", "NewArtSet", "GetDefaultFontForScript",
          "GetDocumentModified"}) {
        AddCase(cases, 403, operation,
                std::string("start\nfail ") + operation + "\n" + GetShortLife());
    }
    AddCase(cases, 404, "short life", GetShortLife());
    AddCase(cases, 404, "without the text engine's first suite",
            "allow refusal\nlack-suite \"ATE TextFrame Suite\"\n" + GetShortLife());
}

void AddMissingSuites(std::vector<ValidatorCase>& cases)
{
    std::string noText = "allow refusal\n";
    std::string noOther = noText;
    std::string none = noText;
    for (const SuiteRow& row : kSuiteRows) {
        const std::string name = row.name;
        const std::string lack = "lack-suite \"" + name + "\"\n";
        AddCase(cases, 405, name, "allow refusal\n" + lack + GetShortLife());
        AddCase(cases, 406, name,
                "allow refusal\nsuite-version \"" + name + "\" " + std::to_string(row.version + 1) +
                    "\n" + GetShortLife());
        (name.rfind("ATE ", 0) == 0 ? noText : noOther) += lack;
        none += lack;
    }
    AddCase(cases, 409, "no text engine", noText + GetShortLife());
    AddCase(cases, 409, "only the text engine", noOther + GetShortLife());
    AddCase(cases, 409, "none", none + GetShortLife());
}

void AddFailingBasicCalls(std::vector<ValidatorCase>& cases)
{
    for (const int number : {1, 2, 50, 99, 100, 102, 105}) {
        const std::string fault = "fail-call " + std::to_string(number) + " 1394689636\n";
        AddCase(cases, 407, "call " + std::to_string(number) + " of the start",
                "allow refusal\n" + fault + "start\ntick\n" + GetShortLife());
    }
    for (const NamedMessage& message : ListMessages()) {
        AddCase(
            cases, 407, message.name,
            "new\nfail AcquireSuite\nsend " + std::string(message.words) + "\n" + GetShortLife());
    }
    for (const char* const status : kStatuses) {
        AddCase(cases, 408, std::string("status ") + status,
                std::string("allow refusal\nfail AcquireSuite ") + status + "\nstart\n" +
                    GetShortLife() + "fail AcquireSuite " + status + "\n" + GetShortLife());
        for (const char* const operation :
             {"GetDocument", "NewArtSet", "GetStory", "GetFullPath"}) {
            AddCase(cases, 411, std::string(operation) + " with status " + status,
                    std::string("start\nfail ") + operation + " " + status + "\n" + GetShortLife());
        }
    }
    AddCase(cases, 410, "at the end", "new\nfail ReleaseSuite\nquit");
    AddCase(cases, 410, "at the start", "allow refusal\nfail ReleaseSuite\nstart\ntick\nabout");
    for (const NamedMessage& message : ListMessages()) {
        AddCase(cases, 410, message.name,
                "new\nfail ReleaseSuite\nsend " + std::string(message.words) + "\ntick\n");
    }
}

}  // namespace

void AddSuiteCases(std::vector<ValidatorCase>& cases)
{
    AddBalance(cases);
    AddMissingSuites(cases);
    AddFailingBasicCalls(cases);
}

}  // namespace headless
