#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about loading and unloading.
namespace headless {

namespace {

void AddStarts(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 101, "load", "start");
    AddCase(cases, 102, "start", "start\nquit");
    AddCase(cases, 102, "start with active fonts", "active Known-Regular Known-Bold\nstart");
}

void AddEnds(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 103, "with documents", R"(
        document a.ai fonts=Missing-Bold
        document b.ai
        open a.ai
        open b.ai
        new
        expect documents 3
    )");
    AddCase(cases, 103, "with a changed document", "new\ntext Missing-Bold\nchange");
    AddCase(cases, 103, "with a file that is gone",
            "document a.ai\nopen a.ai\nvanish a.ai\nchange");
    AddCase(cases, 103, "with fonts that have changed", R"(
        document a.ai fonts=Known-Regular
        active Known-Regular
        open a.ai
        active
        fonts-changed
    )");
    AddCase(cases, 104, "after a short life", GetShortLife());
    AddCase(cases, 104, "without a document", "start\ntick 3\nabout");
}

void AddUnloading(std::vector<ValidatorCase>& cases)
{
    const std::string refused = "send \"SP Access\" Unload\nexpect answer failure\n";
    AddCase(cases, 105, "before any document", "start\n" + refused + GetShortLife() + refused);
    AddCase(cases, 105, "with a document", "new\n" + refused + "text Missing-Bold\n" + refused);
    AddCase(cases, 106, "before any document",
            "start\nsend \"SP Access\" Reload\n" + GetShortLife());
    AddCase(cases, 106, "with a document",
            "new\nsend \"SP Access\" Reload\ntext Missing-Bold\n" + GetShortLife());
}

void AddFailingStarts(std::vector<ValidatorCase>& cases)
{
    for (const std::string& operation : ListRegisterOperations()) {
        AddCase(cases, 107, operation, "allow refusal\nfail " + operation + "\n" + GetShortLife());
    }
    for (const char* const suite :
         {"SP Blocks Suite", "AI Notifier Suite", "AI Menu Suite", "AI Timer Suite",
          "AI File Format Suite", "AI Unicode String Suite"}) {
        std::string script = "allow refusal\nlack-suite \"" + std::string(suite) + "\"\nstart\n";
        for (const NamedMessage& message : ListMessages()) {
            script += "send " + std::string(message.words) + "\n";
        }
        AddCase(cases, 108, std::string("without ") + suite, script);
    }
}

}  // namespace

void AddLoadCases(std::vector<ValidatorCase>& cases)
{
    AddStarts(cases);
    AddEnds(cases);
    AddUnloading(cases);
    AddFailingStarts(cases);
}

}  // namespace headless
