#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about memory.
namespace headless {

namespace {

// Compares what is unreleased before and after. The acts are done once before, because a plug-in
// may keep something of its first document.
std::string Balance(const std::string& acts, size_t count)
{
    std::string script = acts + "remember leaks\n";
    for (size_t i = 0; i < count; ++i) script += acts;
    return script + "expect unchanged leaks\n";
}

void AddBalances(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<const char*, const char*>> documents = {
        {"text", "fonts=Known-Regular,Missing-Bold frames=3"},
        {"active fonts", "fonts=Known-Regular"},
        {"no text", "frames=0"},
        {"empty frames", "frames=3 empty"},
        {"placed files", "placed=a.txt,b.txt"},
    };
    for (const auto& [name, content] : documents) {
        AddCase(cases, 601, name,
                "active Known-Regular\ndocument a.ai " + std::string(content) + "\nstart\n" +
                    Balance("open a.ai\nclose\n", 20));
    }
    AddCase(cases, 601, "changed and saved",
            "document a.ai fonts=A\nstart\n" + Balance("open a.ai\nchange\nsave\nclose\n", 20));
    AddCase(cases, 601, "new documents", "start\n" + Balance("new\nchange\nclose\n", 20));
    for (const NamedMessage& message : ListMessages()) {
        AddCase(cases, 602, message.name,
                "document life.ai fonts=A\nopen life.ai\n" +
                    Balance("send " + std::string(message.words) + "\n", 100));
    }
}

void AddFailingMemory(std::vector<ValidatorCase>& cases)
{
    const auto add = [&](int rule, const std::string& operation) {
        const std::string fail = "fail " + operation + "\n";
        AddCase(cases, rule, operation + " at the start",
                "allow refusal\n" + fail + "start\n" + GetShortLife());
        AddCase(cases, rule, operation + " with a document",
                "document a.ai fonts=A,B placed=a.txt\nstart\n" + fail + "open a.ai\n" + fail +
                    "change\n" + fail + "close\ntick\n");
        AddCase(cases, rule, operation + " in the menus",
                "new\n" + fail + "send \"AI Menu\" \"AI Update\" item=1\n" + fail +
                    "send \"AI Menu\" \"AI Go\" item=1\nsend \"AI Menu\" \"AI Update\" item=1\n");
        AddCase(cases, rule, operation + " at the end", "new\n" + fail + "quit");
    };
    add(603, "AllocateBlock");
    for (const char* const operation : {"Initialize", "GetAs", "Destroy"}) add(604, operation);
    for (const std::string& operation : ListReleaseOperations()) add(605, operation);
    for (const int number : {1, 2, 3, 5, 8, 13, 21, 34, 55, 89, 144, 233}) {
        const std::string fail = "fail-allocation " + std::to_string(number) + "\n";
        AddCase(cases, 606, "allocation " + std::to_string(number),
                "document a.ai fonts=A,B placed=a.txt\nstart\n" + fail +
                    "open a.ai\nchange\nclose\ntick\n" + GetShortLife());
        AddCase(cases, 606, "allocation " + std::to_string(number) + " in the menus",
                "new\n" + fail + "send \"AI Menu\" \"AI Update\" item=1\ntick\nclose\n");
    }
}

void AddLongLives(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 607, "ticks", "new\ntick 10000");
    AddCase(cases, 607, "updates", "new\n" + Repeat(300, "send \"AI Menu\" \"AI Update\" item=1"));
    AddCase(cases, 607, "changes", "new\n" + Repeat(300, "change"));
    // Each path ends with a page of memory, before it or after it.
    for (const size_t size : {4094, 4095, 4096, 4097, 8192}) {
        const std::string path = "/" + std::string(size - 1, 'p');
        AddCase(cases, 608, "path of " + std::to_string(size) + " bytes",
                "document a.ai fonts=A placed=" + path + "\nstart\nsend \"AI File Format\" " +
                    "\"AI Check\" path=" + path + "\nopen a.ai\nchange\nclose\n");
        AddCase(cases, 608, "font of " + std::to_string(size) + " bytes",
                "document a.ai fonts=" + std::string(size, 'F') + "\nopen a.ai\nchange\nclose\n");
    }
}

}  // namespace

void AddMemoryCases(std::vector<ValidatorCase>& cases)
{
    AddBalances(cases);
    AddFailingMemory(cases);
    AddLongLives(cases);
}

}  // namespace headless
