#include "session/SessionWords.h"
#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about the entry point and the dispatch of messages.
namespace headless {

namespace {

// Each caller with its selectors.
struct KnownCaller {
    const char* caller;
    std::vector<const char*> selectors;
};

const std::vector<KnownCaller> kKnownCallers = {
    {"SP Interface", {"About"}},         {"SP Access", {"Reload"}},
    {"AI Menu", {"AI Go", "AI Update"}}, {"AI Notifier", {"AI Notify"}},
    {"AI File Format", {"AI Check"}},    {"AI Timer", {"AI Go"}},
};

std::string Send(const std::string& caller, const std::string& selector,
                 const std::string& more = {})
{
    return "send " + QuoteSessionWord(caller) + " " + QuoteSessionWord(selector) +
           (more.empty() ? "" : " " + more) + "\n";
}

void AddUnknown(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 201, "short life", "active Known-Regular\n" + GetShortLife());
    for (const char* const caller : {"AI Unheard Of", "AI Tool", "SP Properties", "SP Cache"}) {
        AddCase(cases, 202, caller,
                Send(caller, "AI Go") + Send(caller, "Startup") + GetShortLife() +
                    Send(caller, "Unload"));
        AddCase(cases, 211, std::string("caller ") + caller,
                "new\n" + Send(caller, "AI Go") + "expect answer 0\n" + Send(caller, "Startup") +
                    "expect answer 0\n");
    }
    for (const KnownCaller& known : kKnownCallers) {
        AddCase(cases, 203, known.caller,
                Send(known.caller, "AI Unheard Of") + GetShortLife() + "new\n" +
                    Send(known.caller, "AI Unheard Of"));
        AddCase(cases, 211, std::string("selector of ") + known.caller,
                Send(known.caller, "AI Unheard Of") + "expect answer 0\nnew\n" +
                    Send(known.caller, "AI Unheard Of") + "expect answer 0\n");
    }
}

void AddAbout(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 204, "without a document", "about\nabout");
    AddCase(cases, 204, "with documents", R"(
        document a.ai fonts=Missing-Bold
        open a.ai
        about
        change
        about
        vanish a.ai
        about
        new
        about
        close
        close
        about
    )");
    AddCase(cases, 204, "many times", "new\n" + Repeat(50, "about"));
}

void AddOddTexts(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<const char*, std::string>> texts = {
        {"empty", ""},
        {"long", std::string(100000, 'x')},
        {"long with a known start", "AI Menu" + std::string(5000, ' ')},
        {"other letter case", "ai menu"},
        {"first part of a known one", "AI"},
        {"blank at the end", "AI Menu "},
        {"format", "%s%s%s%s%n%n%1000000d"},
        {"not UTF-8", "AI \xFF\xFE\x80"},
        {"control characters", "AI\tGo\x01"},
    };
    for (const auto& [name, text] : texts) {
        std::string script = "new\n" + Send(text, "AI Go") + Send(text, text);
        for (const KnownCaller& known : kKnownCallers) script += Send(known.caller, text);
        AddCase(cases, 205, name, script + "tick\nchange\n");
    }
}

void AddMissingFields(std::vector<ValidatorCase>& cases)
{
    for (const KnownCaller& known : kKnownCallers) {
        for (const char* const selector : known.selectors) {
            const std::string name = std::string(known.caller) + ", " + selector;
            const auto add = [&](int rule, const std::string& field) {
                const std::string line = Send(known.caller, selector, field);
                AddCase(cases, rule, name, "start\n" + line + "new\n" + line + GetShortLife());
            };
            add(206, "message=null");
            add(207, "basic=null");
            add(208, "globals=null");
            add(209, "self=null");
        }
    }
    AddCase(cases, 206, "SP Interface, Startup",
            "start\n" + Send("SP Interface", "Startup", "message=null") + "tick\n");
    AddCase(cases, 206, "SP Interface, Shutdown",
            "start\n" + Send("SP Interface", "Shutdown", "message=null") + GetShortLife());
    AddCase(cases, 208, "SP Interface, Shutdown",
            "start\n" + Send("SP Interface", "Shutdown", "globals=null") + GetShortLife());
    AddCase(cases, 210, "caller", "new\n" + Send("x", "AI Go", "caller=null") + GetShortLife());
    AddCase(cases, 210, "both", "new\n" + Send("x", "x", "caller=null selector=null") + "tick");
    for (const KnownCaller& known : kKnownCallers) {
        AddCase(cases, 210, std::string("selector of ") + known.caller,
                "new\n" + Send(known.caller, "x", "selector=null") + GetShortLife());
    }
}

void AddMixedSelectors(std::vector<ValidatorCase>& cases)
{
    for (const KnownCaller& known : kKnownCallers) {
        std::string script = "new\n";
        for (const KnownCaller& other : kKnownCallers) {
            for (const char* const selector : other.selectors) {
                if (&other == &known) continue;
                const bool isOwn =
                    std::string(selector) == "AI Go" && (std::string(known.caller) == "AI Menu" ||
                                                         std::string(known.caller) == "AI Timer");
                if (!isOwn) script += Send(known.caller, selector);
            }
        }
        AddCase(cases, 212, known.caller, script + GetShortLife());
    }
}

}  // namespace

void AddDispatchCases(std::vector<ValidatorCase>& cases)
{
    AddUnknown(cases);
    AddAbout(cases);
    AddOddTexts(cases);
    AddMissingFields(cases);
    AddMixedSelectors(cases);
    for (const NamedMessage& message : ListMessages()) {
        AddCase(cases, 213, message.name,
                "document life.ai fonts=Missing-Bold\nopen life.ai\n" +
                    Repeat(300, "send " + std::string(message.words)));
    }
}

}  // namespace headless
