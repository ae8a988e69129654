#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about exceptions, crashes and limits.
namespace headless {

namespace {

const char kTwoFrames[] =
    "document a.ai fonts=Known-Regular,Missing-Bold frames=2 placed=a.txt\nactive Known-Regular\n";

void AddEntryFailures(std::vector<ValidatorCase>& cases)
{
    // The wrappers of these operations throw.
    for (const char* const operation : {"GetStory", "GetTextRanges", "GetFont", "Initialize"}) {
        AddCase(cases, 301, operation,
                kTwoFrames + std::string("start\nfail ") + operation + "\nopen a.ai\nclose\n" +
                    GetShortLife());
    }
    for (const char* const operation :
         {"GetDocument", "GetMatchingArt", "NewArtSet", "IndexArtSet", "GetATETextFrame"}) {
        AddCase(cases, 302, operation,
                kTwoFrames + std::string("start\nfail ") + operation + "\nopen a.ai\nchange\n" +
                    "close\ntick\n");
    }
    AddCase(cases, 303, "ticks", "start\n" + Repeat(20, "tick 100"));
    for (const char* const operation : {"Next", "IsNotDone", "CountArtSet", "GetSize"}) {
        AddCase(cases, 303, operation,
                "document a.ai fonts=A,B runs=50\nstart\nfail " + std::string(operation) +
                    "\nopen a.ai\nchange\n");
    }
    AddCase(cases, 304, "many runs", R"(
        document a.ai fonts=A,B,C frames=20 runs=100
        open a.ai
        change
        save
        close
    )");
    AddCase(cases, 304, "many fonts listed", R"(
        document a.ai fonts=A listed=B,C,D,E,F,G,H,I,J,K frames=200
        open a.ai
        change
    )");
    for (const char* const suite : {"SP Blocks Suite", "AI Menu Suite", "AI User Suite"}) {
        AddCase(cases, 305, std::string("without ") + suite,
                "allow refusal\nlack-suite \"" + std::string(suite) + "\"\nstart\ntick\n");
    }
}

// The first calls of a message acquire suites, those in the middle walk the text, the last ones
// release.
void AddThrowingCalls(std::vector<ValidatorCase>& cases, int rule,
                      const std::vector<const char*>& types)
{
    for (const char* const type : types) {
        for (const int number : {1, 2, 3, 5, 8, 13, 21, 34, 55, 89}) {
            const std::string fault =
                "fail-call " + std::to_string(number) + " throw:" + type + "\n";
            AddCase(cases, rule, std::string(type) + " at call " + std::to_string(number),
                    kTwoFrames + std::string("start\n") + fault + "open a.ai\n" + "tick\n" +
                        "change\nclose\n" + GetShortLife());
        }
        for (const NamedMessage& message : ListMessages()) {
            AddCase(cases, rule, std::string(type) + " in " + message.name,
                    "new\nfail-call 1 throw:" + std::string(type) + "\nsend " + message.words +
                        "\nfail-call 2 throw:" + type + "\nsend " + message.words + "\ntick\n");
        }
        AddCase(cases, rule, std::string(type) + " at the start",
                "allow refusal\nfail-call 120 throw:" + std::string(type) + "\nstart\ntick\nabout");
    }
}

void AddHandledAfterwards(std::vector<ValidatorCase>& cases)
{
    for (const char* const type : {"ai::Error", "ATE::Exception", "int", "foreign"}) {
        for (const char* const fault : {"1", "3", "6"}) {
            AddCase(cases, 313, std::string(type) + " at call " + fault,
                    kTwoFrames + std::string("start\nfail-call ") + fault + " throw:" + type +
                        "\nopen a.ai\nexpect core IdleEvent 0\ntick\nexpect core IdleEvent 1\n");
        }
    }
}

}  // namespace

void AddEntryCases(std::vector<ValidatorCase>& cases)
{
    AddEntryFailures(cases);
    AddThrowingCalls(cases, 311, {"ai::Error", "ATE::Exception"});
    AddThrowingCalls(cases, 312, {"int", "std::exception", "foreign"});
    AddHandledAfterwards(cases);
}

}  // namespace headless
