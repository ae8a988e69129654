#include "validator/CaseFamilies.h"
#include "validator/cases/CaseScript.h"

// Cases of the rules about notifiers, timers and menus.
namespace headless {

namespace {

constexpr size_t kItems = 12;  // at most so many menu items are used

std::string Update(size_t count) { return Repeat(count, R"(send "AI Menu" "AI Update" item=%)"); }
std::string Choose(size_t count) { return Repeat(count, R"(send "AI Menu" "AI Go" item=%)"); }

void AddRegistrations(std::vector<ValidatorCase>& cases)
{
    const std::string unique = "expect unique registrations\n";
    const std::string same = "expect unchanged registrations\n";
    AddCase(cases, 701, "after the start", "start\n" + unique);
    AddCase(cases, 701, "after work", GetShortLife() + unique);
    AddCase(cases, 701, "after changes of fonts",
            "start\nactive A\nfonts-changed\nactive B\nfonts-changed\ntick 3\n" + unique);
    AddCase(cases, 702, "short life", "start\nremember registrations\n" + GetShortLife() + same);
    for (const NamedMessage& message : ListMessages()) {
        AddCase(cases, 702, message.name,
                "new\nremember registrations\n" + Repeat(10, "send " + std::string(message.words)) +
                    same);
    }
}

void AddNotifiers(std::vector<ValidatorCase>& cases)
{
    std::vector<std::string> types = ListDocumentNotifiers();
    for (const char* const type : {"AI Application Started Notifier", "AI Menu Changed Notifier",
                                   "AI Font List Changed Notifier"}) {
        types.emplace_back(type);
    }
    for (const std::string& type : types) {
        const std::string notify = "send \"AI Notifier\" \"AI Notify\" type=\"" + type + "\"";
        AddCase(cases, 703, type,
                "start\n" + notify + "\nnew\n" + notify + "\n" + notify + " document=1\nclose\n" +
                    notify + "\ntick\n");
        AddCase(cases, 705, type + ", null",
                "new\n" + notify + " notifier=null document=1\ntick\n");
        AddCase(cases, 705, type + ", unknown", "new\n" + notify + " notifier=unknown\ntick\n");
    }
    const std::string notify = "send \"AI Notifier\" \"AI Notify\" notifier=";
    const std::vector<std::pair<const char*, std::string>> odd = {
        {"unknown", "\"AI Unheard Of Notifier\""},
        {"empty", "\"\""},
        {"null", "null"},
        {"long", std::string(20000, 'n')},
        {"format", "%s%n%s"},
        {"not UTF-8", "\"AI \xFF\x80\""},
    };
    for (const auto& [name, type] : odd) {
        std::string script = "new\n";
        for (size_t i = 1; i <= kItems; ++i) {
            script += notify + std::to_string(i) + " document=1 type=" + type + "\n";
        }
        AddCase(cases, 704, name, script + notify + "unknown type=" + type + "\nchange\n");
    }
}

void AddMenus(std::vector<ValidatorCase>& cases)
{
    const std::string update = Update(kItems);
    const std::string choose = Choose(kItems);
    AddCase(cases, 707, "without a document", "start\n" + update);
    AddCase(cases, 707, "with a new document", "new\n" + update + "change\n" + update);
    AddCase(cases, 707, "with a document", "document a.ai fonts=A\nopen a.ai\n" + update);
    AddCase(cases, 707, "after closing", "new\nclose\n" + update);
    AddCase(cases, 707, "after a failed opening", "document a.ai unreadable\nopen a.ai\n" + update);
    AddCase(cases, 708, "at the start", "start\n" + choose);
    AddCase(cases, 708, "after closing", "new\nclose\n" + choose);
    AddCase(cases, 708, "after an update", "start\n" + update + choose + update);
    AddCase(cases, 709, "new", "new\n" + choose);
    AddCase(cases, 709, "opened", "document a.ai fonts=A\nopen a.ai\n" + choose);
    AddCase(cases, 709, "changed", "document a.ai fonts=A\nopen a.ai\nchange\n" + choose);
    AddCase(cases, 709, "vanished", "document a.ai fonts=A\nopen a.ai\nvanish a.ai\n" + choose);
    AddCase(cases, 709, "without text", "document a.ai frames=0\nopen a.ai\n" + choose);
    for (const std::string& operation : ListMenuOperations()) {
        AddCase(cases, 710, operation,
                "start\nfail " + operation + "\n" + update + "fail " + operation + "\n" + choose +
                    update);
    }
}

void AddLibraryMenu(std::vector<ValidatorCase>& cases)
{
    const std::string same = "expect unchanged registrations\nexpect unique registrations\n";
    for (const char* const function :
         {"IdleEvent", "HandleMenuSelection", "ProcessPanelMessages"}) {
        const std::string script = "new\nremember registrations\ncore " + std::string(function) +
                                   " rebuild\ntick\n" + Choose(2) + "tick 3\n";
        AddCase(cases, 711, function, script + same);
    }
    for (const char* const operation :
         {"RemoveMenuItem", "AddMenuItem", "GetItemSubMenuGroup", "AcquireSuite", "Initialize"}) {
        AddCase(cases, 712, operation,
                "new\ncore IdleEvent rebuild\nfail " + std::string(operation) + "\ntick\ntick 2\n" +
                    Update(4) + "fail " + operation + "\ntick\n" + Choose(4) + "tick\nclose\n");
    }
}

void AddTimersAndFonts(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 706, "before any document", "start\ntick 30");
    AddCase(cases, 706, "between all acts", R"(
        document a.ai fonts=Missing-Bold
        start
        tick
        open a.ai
        tick
        change
        tick
        save
        tick
        new
        tick
        close 1
        tick
        close
        tick 5
    )");
    for (const char* const operation : {"GetTimerActive", "SetTimerActive"}) {
        AddCase(cases, 713, operation, std::string("new\nfail ") + operation + "\nquit");
        AddCase(cases, 713, std::string(operation) + " with another status",
                std::string("start\ntick\nfail ") + operation + " -1\nquit");
    }
    AddCase(cases, 714, "without a document",
            "start\nactive A B\nfonts-changed\nactive\nfonts-changed\nfonts-changed");
    AddCase(cases, 714, "with documents", R"(
        document a.ai fonts=A,B
        active A
        open a.ai
        active B
        fonts-changed
        send "AI Menu" "AI Go" item=1
        new
        active
        fonts-changed
        change
        active A B C D
        fonts-changed
        close
        close
        fonts-changed
    )");
    AddCase(cases, 714, "many fonts",
            "new\nactive A B C D E F G H I J K L M N O P\nfonts-changed\nactive\nfonts-changed\n");
}

}  // namespace

void AddRegistrationCases(std::vector<ValidatorCase>& cases)
{
    AddRegistrations(cases);
    AddNotifiers(cases);
    AddMenus(cases);
    AddLibraryMenu(cases);
    AddTimersAndFonts(cases);
}

}  // namespace headless
