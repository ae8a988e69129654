#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about handles and references.
namespace headless {

namespace {

const char kMixedArt[] =
    "document a.ai fonts=Known-Regular,Missing-Bold frames=3 placed=a.txt,b.txt\nstart\n";
const char kUse[] = R"(
    open a.ai
    send "AI Menu" "AI Update" item=1
    send "AI Menu" "AI Go" item=1
    change
    save
    close
    tick
)";

void AddFailingCalls(std::vector<ValidatorCase>& cases)
{
    const auto fail = [&](int rule, const char* operation) {
        AddCase(cases, rule, operation, kMixedArt + std::string("fail ") + operation + "\n" + kUse);
    };
    for (const char* const operation : {"GetDocument", "GetStory", "GetFont", "GetItemText"}) {
        fail(501, operation);
    }
    for (const char* const operation : {"NewArtSet", "GetMatchingArt", "IndexArtSet", "Item"}) {
        fail(502, operation);
    }
    for (const char* const operation :
         {"GetStories", "GetTextRanges", "GetCharInspector", "GetSize"}) {
        fail(505, operation);
    }
    for (const char* const operation : {"CountArtSet", "CountMenuItems", "GetSize", "IsNotDone"}) {
        fail(506, operation);
    }
    for (const std::string& operation : ListResultOperations()) fail(513, operation.c_str());
}

void AddExpired(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 503, "messages after closing", R"(
        document a.ai fonts=Missing-Bold
        open a.ai
        change
        close
        tick
        send "AI Menu" "AI Update" item=1
        send "AI Menu" "AI Go" item=1
        new
        change
        close
        about
    )");
}

void AddTypes(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 504, "text and placed files", kMixedArt + std::string(kUse));
    AddCase(cases, 504, "only placed files",
            "document a.ai frames=0 placed=a.txt,b.txt\n" + std::string(kUse));
    AddCase(cases, 504, "only text", "document a.ai fonts=A,B frames=4\n" + std::string(kUse));
    AddCase(cases, 507, "with a document", kMixedArt + std::string(kUse));
    AddCase(cases, 507, "short life", GetShortLife());
    AddCase(cases, 508, "text and placed files", kMixedArt + std::string(kUse));
    AddCase(cases, 508, "long names",
            "document a.ai fonts=" + std::string(300, 'F') + " placed=" + std::string(300, 'p') +
                "\n" + kUse);
}

// Handles that no ordinary message carries, in each message that carries handles.
void AddHandlesOfMessages(std::vector<ValidatorCase>& cases)
{
    const auto add = [&](int rule, const std::string& name, const std::string& words) {
        const std::string line = "send " + words + "\n";
        AddCase(cases, rule, name,
                line + kMixedArt + "open a.ai\n" + line + "close\n" + line + "tick\nnew\nchange\n");
    };
    const std::vector<std::pair<int, const char*>> kinds = {{509, "null"}, {510, "unknown"}};
    for (const auto& [rule, kind] : kinds) {
        add(rule, "menu choice", std::string("\"AI Menu\" \"AI Go\" item=") + kind);
        add(rule, "menu update", std::string("\"AI Menu\" \"AI Update\" item=") + kind);
        for (const std::string& type : ListDocumentNotifiers()) {
            const std::string notify = "\"AI Notifier\" \"AI Notify\" type=\"" + type + "\"";
            add(rule, type, notify + " document=" + kind);
            add(rule, type + ", notifier", notify + " notifier=" + kind + " document=1");
        }
    }
    for (const std::string& type : ListDocumentNotifiers()) {
        AddCase(cases, 511, type,
                kMixedArt + std::string("open a.ai\nnew\nclose 1\n") +
                    "send \"AI Notifier\" \"AI Notify\" type=\"" + type +
                    "\" document=stale\nchange\nclose\nsend \"AI Notifier\" \"AI Notify\" type=\"" +
                    type + "\" document=stale\n");
    }
    for (const char* const selector : {"AI Go", "AI Update"}) {
        const std::string line = "send \"AI Menu\" \"" + std::string(selector) + "\" item=stale\n";
        AddCase(cases, 512, selector,
                "start\n" + line + kMixedArt + "open a.ai\n" + line + "close\n");
    }
}

}  // namespace

void AddHandleCases(std::vector<ValidatorCase>& cases)
{
    AddFailingCalls(cases);
    AddExpired(cases);
    AddTypes(cases);
    AddHandlesOfMessages(cases);
}

}  // namespace headless
