#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about messages that arrive inside of calls.
namespace headless {

namespace {

const char kBefore[] = R"(
    document a.ai fonts=Known-Regular,Missing-Bold frames=2 placed=a.txt
    document b.ai fonts=Missing-Bold
    start
)";
const char kAfter[] = R"(
    open a.ai
    change
    send "AI Menu" "AI Update" item=1
    send "AI Menu" "AI Go" item=1
    save
    tick
    close
)";

std::string During(const std::string& operation, const std::string& line)
{
    return "during " + operation + " " + line + "\n";
}

void AddNestedMessages(std::vector<ValidatorCase>& cases)
{
    for (const std::string& operation : ListResultOperations()) {
        AddCase(cases, 306, operation,
                kBefore + During(operation, "tick") +
                    During(operation, R"(send "AI Menu" "AI Update" item=1)") +
                    During(operation, "about") + kAfter);
    }
    for (const std::string& operation : ListReleaseOperations()) {
        AddCase(cases, 306, operation,
                kBefore + During(operation, "tick") + During(operation, "fonts-changed") + kAfter);
    }
}

void AddNestedDocuments(std::vector<ValidatorCase>& cases)
{
    for (const std::string& operation : ListTextOperations()) {
        AddCase(cases, 307, "close in " + operation, kBefore + During(operation, "close") + kAfter);
        AddCase(cases, 307, "open in " + operation,
                kBefore + During(operation, "open b.ai") + kAfter);
        AddCase(cases, 307, "new in " + operation, kBefore + During(operation, "new") + kAfter);
        AddCase(cases, 314, operation,
                kBefore + During(operation, "open b.ai") + During("Release", "close") +
                    During("GetStory", "new") + kAfter);
    }
    for (const std::string& operation : ListDocumentOperations()) {
        AddCase(cases, 307, "close in " + operation, kBefore + During(operation, "close") + kAfter);
        AddCase(
            cases, 307, "switch in " + operation,
            kBefore + std::string("open b.ai\nnew\n") + During(operation, "current 1") + kAfter);
    }
}

void AddNestedTypeloft(std::vector<ValidatorCase>& cases)
{
    for (const char* const operation :
         {"NewArtSet", "GetATETextFrame", "GetStory", "GetDocumentFileSpecification"}) {
        const std::string nested = "document a.ai fonts=A\nstart\n" + During(operation, "tick") +
                                   "open a.ai\nexpect core IdleEvent 0\n";
        AddCase(cases, 308, operation, nested);
        AddCase(cases, 309, operation, nested + "tick\nexpect core IdleEvent 1\n");
    }
    for (const char* const function :
         {"HandleOpenExistingDocument", "HandleCreateNewDocument", "InvokeResolveDialog",
          "ActivateChosenFonts", "GetMenus", "GetIDForDocument", "HandleMenuSelection",
          "UpdateDocumentFontUsage", "IdleEvent", "ProcessPanelMessages", "InvokeCommandDialog",
          "HandleCloseDocument", "HandleSaveDocument"}) {
        const std::string name = function;
        AddCase(cases, 310, name,
                kBefore + During(name, "tick") +
                    During(name, R"(send "AI Menu" "AI Update" item=1)") +
                    During(name, "open b.ai") + During(name, "close") + kAfter + "about\nnew\n");
    }
}

}  // namespace

void AddNestedCases(std::vector<ValidatorCase>& cases)
{
    AddNestedMessages(cases);
    AddNestedDocuments(cases);
    AddNestedTypeloft(cases);
}

}  // namespace headless
