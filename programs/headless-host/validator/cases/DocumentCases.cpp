#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about documents.
namespace headless {

namespace {

const char kThree[] = R"(
    document a.ai fonts=A,B
    document b.ai fonts=Missing-Bold frames=2
    document c.ai fonts=A placed=c.txt
    active A
    open a.ai
    open b.ai
    open c.ai
)";

void AddSingle(std::vector<ValidatorCase>& cases)
{
    for (const char* const active : {"active Known-Regular\n", "active\n"}) {
        const std::string start =
            std::string(active) +
            "document a.ai fonts=Known-Regular\nopen a.ai\nexpect documents 1\n";
        const std::string name = std::string(active) == "active\n" ? "missing" : "active";
        AddCase(cases, 801, name + " font, closed", start + "close\nexpect documents 0");
        AddCase(cases, 801, name + " font, changed and saved", start + "change\nsave\nclose");
        AddCase(cases, 801, name + " font, saved as", start + "text Other\nsave b.ai\nclose");
    }
    AddCase(cases, 802, "closed", "new\nclose\nexpect documents 0");
    AddCase(cases, 802, "changed and closed", "new\ntext Missing-Bold\nchange\nclose");
    AddCase(cases, 802, "saved", "new\ntext Missing-Bold\nsave a.ai\nchange\nsave\nclose");
    AddCase(cases, 802, "two", "new\nnew\ntext A\ncurrent 1\ntext B\nclose\nclose");
}

void AddSeveral(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 803, "in turn",
            kThree + Repeat(3, "current %\nchange\nsend \"AI Menu\" \"AI Go\" item=1\nsave\ntick") +
                Repeat(3, "close"));
    AddCase(cases, 803, "with a new one",
            kThree + std::string("new\ncurrent 2\nchange\nclose 4\nchange\nclose 1\nchange"));
    AddCase(cases, 804, "first to last",
            kThree + Repeat(2, "close 1\ntick\nchange") + "close 1\ntick");
    AddCase(cases, 804, "last to first", kThree + std::string("close 3\nclose 2\nclose 1"));
    AddCase(cases, 804, "the middle one", kThree + std::string("close 2\nchange\nsave\ntick"));
    AddCase(cases, 804, "in the background",
            kThree + std::string("close 1\nchange\nclose 1\nchange"));
    for (const bool isBackward : {false, true}) {
        AddCase(cases, 805, isBackward ? "last to first" : "first to last",
                Repeat(300, "document d%.ai fonts=F%,A") + "active A\n" +
                    Repeat(300, "open d%.ai") +
                    "expect documents 300\nchange\nsend \"AI Menu\" \"AI Go\" item=1\ntick\n" +
                    Repeat(300, isBackward ? "close" : "close 1"));
    }
    AddCase(cases, 805, "new ones", Repeat(300, "new") + "change\ntick\n");
}

void AddSameFile(std::vector<ValidatorCase>& cases)
{
    const std::string twice = "document a.ai fonts=A,B\nopen a.ai\nopen a.ai\nexpect documents 2\n";
    AddCase(cases, 806, "first closed", twice + "change\nclose 1\nchange\nsave\nclose");
    AddCase(cases, 806, "second closed", twice + "close 2\nchange\nsave\nclose");
    AddCase(cases, 806, "both changed", twice + "change\ncurrent 1\nchange\nsave\nclose\nclose");
    AddCase(cases, 806, "again after closing", twice + "close\nclose\nopen a.ai\nchange\nclose");
    const std::string untitled =
        "document t.ait fonts=A,Missing-Bold\nopen t.ait\nopen t.ait\nexpect documents 2\n";
    AddCase(cases, 807, "closed", untitled + "close\nclose");
    AddCase(cases, 807, "one saved", untitled + "change\nsave a.ai\nchange\nsave\nclose 1\nclose");
    AddCase(cases, 807, "menus",
            untitled + "send \"AI Menu\" \"AI Update\" item=1\n" +
                "send \"AI Menu\" \"AI Go\" item=1\nclose 1\ntick");
    AddCase(cases, 807, "beside a document",
            "document a.ai fonts=A\nopen a.ai\n" + untitled.substr(0, untitled.find("expect")) +
                "current 1\nchange\nclose 2\nchange\nclose");
    const std::string over =
        "document a.ai fonts=A\ndocument b.ai fonts=B\nopen a.ai\nopen b.ai\n" +
        std::string("save a.ai\nchange\nsave\n");
    AddCase(cases, 809, "first closed first", over + "close 1\nchange\nclose");
    AddCase(cases, 809, "second closed first", over + "close 2\nchange\nclose");
}

void AddFiles(std::vector<ValidatorCase>& cases)
{
    for (const char* const act :
         {"close", "change", "tick", "fonts-changed", "about", "send \"AI Menu\" \"AI Go\" item=1",
          "send \"AI File Format\" \"AI Check\" path=a.ai"}) {
        AddCase(
            cases, 808, act,
            "document a.ai fonts=A,B\nopen a.ai\nvanish a.ai\n" + std::string(act) + "\ntick\n");
    }
    AddCase(cases, 808, "saved elsewhere",
            "document a.ai fonts=A\nopen a.ai\nchange\nvanish a.ai\nsave b.ai\nchange\nclose");
    for (const char* const other : {"fonts=C,D", "unreadable", "frames=0", "fonts=A empty"}) {
        AddCase(
            cases, 813, other,
            "document a.ai fonts=A\nopen a.ai\ndocument a.ai " + std::string(other) +
                "\nsend \"AI Menu\" \"AI Go\" item=1\nfonts-changed\nchange\nclose\nopen a.ai\n");
    }
    AddCase(cases, 813, "longer",
            "document a.ai fonts=A\nopen a.ai\nexec 'echo more >> a.ai'\nfonts-changed\nchange\n");
    AddCase(cases, 814, "unreadable",
            "document a.ai unreadable\nopen a.ai\nexpect documents 0\ntick");
    AddCase(cases, 814, "missing", "start\nopen none.ai\nexpect documents 0\ntick");
    AddCase(cases, 814, "between others",
            kThree +
                std::string("document x.ai unreadable\nopen x.ai\nchange\nopen none.ai\nsave\n") +
                "open a.ai\nclose\nopen x.ai\nclose 1\n");
    std::string same = "document a.ai fonts=A,Missing-Bold\nactive A\n";
    for (int i = 0; i < 500; ++i) same += "open a.ai\nclose\n";
    AddCase(cases, 815, "the same", same);
    AddCase(cases, 815, "different",
            Repeat(500,
                   "document d%.ai fonts=F%\nopen d%.ai\nsend \"AI Menu\" \"AI Update\" item=1\n"
                   "change\nclose"));
}

void AddOddNotifiers(std::vector<ValidatorCase>& cases)
{
    for (const std::string& type : ListDocumentNotifiers()) {
        const std::string notify = "send \"AI Notifier\" \"AI Notify\" type=\"" + type + "\"";
        AddCase(cases, 810, type,
                kThree + notify + " document=1\nchange\n" + notify + " document=2\nclose\n");
        AddCase(cases, 812, type + " twice",
                "document a.ai fonts=A\nopen a.ai\n" + notify + " document=1\n" + notify +
                    " document=1\nchange\nclose\n" + notify + " document=stale\n");
        AddCase(cases, 812, type + " without a document",
                notify + "\nnew\nclose\n" + notify + "\ntick");
    }
    const std::string notify =
        "send \"AI Notifier\" \"AI Notify\" type=\"AI Document About To Close Notifier\" "
        "document=1\n";
    AddCase(cases, 811, "new", "new\n" + notify + "change\ntick\n" + notify + "save a.ai\nclose\n");
    AddCase(cases, 811, "opened",
            "document a.ai fonts=A,B\nopen a.ai\nchange\n" + notify + "change\nsave\n" + notify +
                "send \"AI Menu\" \"AI Go\" item=1\nclose\n");
    for (const std::string& operation : ListDocumentOperations()) {
        const std::string fail = "fail " + operation + "\n";
        AddCase(cases, 816, operation,
                "document a.ai fonts=A\nstart\n" + fail + "open a.ai\n" + fail + "change\n" + fail +
                    "save\n" + fail + "close\n" + fail + "new\n" + fail + "change\n" + fail +
                    "send \"AI Menu\" \"AI Go\" item=1\n" + fail + "about\n" + fail + "quit\n");
    }
}

}  // namespace

void AddDocumentCases(std::vector<ValidatorCase>& cases)
{
    AddSingle(cases);
    AddSeveral(cases);
    AddSameFile(cases);
    AddFiles(cases);
    AddOddNotifiers(cases);
}

}  // namespace headless
