#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

std::string SetTree(const std::string& tree) { return MakeCoreLine("GetMenus", "text", tree); }

// A node without children; `members` replaces what follows its label.
std::string MakeNode(const std::string& label, const std::string& members)
{
    return R"({"id":")" + label + R"(","label":")" + label + "\"" + members + "}";
}

std::string MakeItem(const std::string& label)
{
    return MakeNode(label,
                    R"(,"title":")" + label + R"(","checked":false,"enabled":true,"child":[])");
}

// A tree whose library menu has these nodes, separated by commas.
std::string MakeTree(const std::string& libraries)
{
    return R"({"id":"root","label":"root","title":"","checked":false,"enabled":true,"child":[)"
           R"({"id":"select","label":"Select Library","title":"Select Library",)"
           R"("checked":false,"enabled":true,"child":[)" +
           libraries + "]}]}";
}

// Trees that are none, with names for cases.
std::vector<std::pair<std::string, std::string>> ListBrokenTrees()
{
    std::vector<std::pair<std::string, std::string>> trees = {
        {"empty", ""},
        {"cut", kMenuTree.substr(0, kMenuTree.size() / 2)},
        {"no-json", "menus"},
        {"null", "null"},
        {"number", "1"},
        {"array", "[]"},
        {"root-without-members", "{}"},
        {"child-is-a-number", R"({"id":"root","label":"root","title":"","child":1})"},
        {"child-is-null", R"({"id":"root","label":"root","title":"","child":null})"},
        {"nodes-are-numbers", R"({"id":"root","label":"root","title":"","child":[1,2]})"},
    };
    std::string deep;
    for (int i = 0; i < 20000; ++i) deep += R"({"id":"a","label":"a","title":"a","child":[)";
    trees.emplace_back("deep", deep);
    return trees;
}

void AddTreelessStarts(std::vector<ValidatorCase>& cases)
{
    const Lines follows = {"document a.ai fonts=Missing-One",
                           "open a.ai",
                           "change",
                           "close",
                           "tick",
                           ExpectCore("HandleOpenExistingDocument", 1),
                           ExpectCore("HandleCloseDocument", 0),
                           ExpectCore("IdleEvent", 1)};
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1120, std::string("not-created-") + status.name,
                Join({MakeStatusLine("CreateMenusFromJSONBuffer", status.value)}, follows));
        if (status.value == kCoreBufferTooSmall) continue;  // the expected status
        AddCase(cases, 1120, std::string("no-tree-") + status.name,
                Join({MakeStatusLine("GetMenus", status.value)}, follows));
    }
    for (const auto& [name, tree] : ListBrokenTrees()) {
        AddCase(cases, 1120, "tree-" + name, {SetTree(tree), "start", "tick", "show menu"});
    }
}

void AddBrokenUpdates(std::vector<ValidatorCase>& cases)
{
    const Lines first = {SetTree(kMenuTree), "show menu", "expect menu Command enabled"};
    for (const auto& [name, tree] : ListBrokenTrees()) {
        AddCase(cases, 1121, name,
                Join(first, {SetTree(tree), "show menu", "expect menu Command enabled",
                             SetTree(kMenuTree), "show menu", "expect menu Command enabled"}));
    }
    // What is wrong with one node of the tree.
    const std::vector<std::pair<std::string, std::string>> nodes = {
        {"no-title", R"(,"checked":false,"enabled":true,"child":[])"},
        {"no-enabled", R"(,"title":"Command","checked":false,"child":[])"},
        {"no-checked", R"(,"title":"Command","enabled":true,"child":[])"},
        {"enabled-is-a-number", R"(,"title":"Command","checked":false,"enabled":1,"child":[])"},
        {"enabled-is-text", R"(,"title":"Command","checked":false,"enabled":"1","child":[])"},
        {"checked-is-text", R"(,"title":"Command","checked":"1","enabled":true,"child":[])"},
        {"checked-is-huge", R"(,"title":"Command","checked":1e300,"enabled":true,"child":[])"},
        {"title-is-a-number", R"(,"title":5,"checked":false,"enabled":true,"child":[])"}};
    for (const auto& [name, members] : nodes) {
        std::string node = MakeNode("command", members);
        AddCase(cases, 1121, name,
                Join(first, {SetTree(R"({"id":"root","label":"root","title":"","checked":false,)"
                                     R"("enabled":true,"child":[)" +
                                     node + "]}"),
                             "show menu", SetTree(kMenuTree), "show menu",
                             "expect menu Command enabled"}));
    }
    for (const CoreStatus& status : kCoreStatuses) {
        if (status.value == kCoreBufferTooSmall) continue;
        AddCase(cases, 1121, status.name,
                Join(first, {MakeStatusLine("GetMenus", status.value), "show menu",
                             SetTree(kMenuTree), "show menu", "expect menu Command enabled"}));
    }
    AddCase(cases, 1121, "item-is-disabled",
            Join(first, {SetTree(MakeTree(MakeItem("First"))), "show menu",
                         "expect menu Command enabled"}));
}

void AddRebuilds(std::vector<ValidatorCase>& cases)
{
    const std::string two = SetTree(MakeTree(MakeItem("First") + "," + MakeItem("Second")));
    const std::vector<std::pair<std::string, std::string>> moments = {
        {"IdleEvent", "tick"},
        {"ProcessPanelMessages", "tick"},
        {"HandleMenuSelection", "menu Command"},
    };
    for (const auto& [function, act] : moments) {
        AddCase(cases, 1122, function,
                {SetTree(kMenuTree), "show menu", two, "core " + function + " rebuild times=1", act,
                 "expect menu \"Select Library/Second\" enabled",
                 "expect calls \"AI Menu Suite, RemoveMenuItem\" 1"});
        AddCase(cases, 1122, function + "-twice",
                {SetTree(kMenuTree), "start", two, "core " + function + " rebuild times=2", act,
                 act, "expect menu \"Select Library/Second\" enabled",
                 "expect calls \"AI Menu Suite, RemoveMenuItem\" 3"});
        AddCase(cases, 1122, function + "-no-library",
                {SetTree(kMenuTree), "start", SetTree(MakeTree("")),
                 "core " + function + " rebuild times=1", act,
                 "expect menu \"Select Library/First\" absent",
                 "expect menu \"Select Library\" enabled"});
        for (const auto& [name, tree] : ListBrokenTrees()) {
            AddCase(cases, 1123, function + "-" + name,
                    {SetTree(kMenuTree), "start", SetTree(tree),
                     "core " + function + " rebuild times=1", act, two,
                     "core IdleEvent rebuild times=1", "tick",
                     "expect menu \"Select Library/Second\" enabled"});
        }
    }
    // Functions from which PluginCore isn't expected to call back.
    for (const CoreCall& call : kCoreCalls) {
        AddCase(cases, 1123, std::string("during-") + call.function,
                Join(Join(MakeWorld(), call.before),
                     {two, "core " + std::string(call.function) + " rebuild times=1",
                      Fill(call.act, "a.ai"), "core IdleEvent rebuild times=1", "tick",
                      "expect menu \"Select Library/Second\" enabled"}));
    }
    for (const char* function : {"InitializePluginCoreInterface", "GetMenus",
                                 "CreateMenusFromJSONBuffer", "GetSettings"}) {
        AddCase(cases, 1123, std::string("at-startup-") + function,
                {SetTree(kMenuTree), "core " + std::string(function) + " rebuild times=1", "tick",
                 ExpectCore("IdleEvent", 1)});
    }
    AddCase(cases, 1123, "during-the-end",
            {SetTree(kMenuTree), "start", "core TerminatePluginCoreInterface rebuild times=1"});
}

void AddCommands(std::vector<ValidatorCase>& cases)
{
    AddCase(cases, 1124, "with-a-document",
            Join(MakeWorld(),
                 {"open a.ai", "show menu", "menu Command", ExpectCore("GetIDForDocument", 1),
                  ExpectCore("UpdateDocumentFontUsage", 1), ExpectCore("HandleMenuSelection", 1),
                  "expect call HandleMenuSelection command",
                  "expect call UpdateDocumentFontUsage Missing-One"}));
    AddCase(cases, 1124, "without-a-document",
            {SetTree(kMenuTree), "core GetIDForDocument text=", "menu Command",
             ExpectCore("UpdateDocumentFontUsage", 0), ExpectCore("HandleMenuSelection", 1)});
    AddCase(cases, 1124, "of-an-unknown-document",
            Join(MakeWorld(),
                 {"open a.ai", "core GetIDForDocument text=", "menu Command",
                  ExpectCore("UpdateDocumentFontUsage", 0), ExpectCore("HandleMenuSelection", 1)}));
    AddCase(cases, 1124, "of-an-unknown-item",
            {"send \"AI Menu\" \"AI Go\" item=unknown", "expect answer 0",
             ExpectCore("HandleMenuSelection", 1)});
    AddCase(cases, 1124, "in-the-library-menu",
            {SetTree(kMenuTree), "show menu", "menu \"Select Library/First\"",
             "expect call HandleMenuSelection library:1"});
}

void AddSizes(std::vector<ValidatorCase>& cases)
{
    const std::string tooSmall = " status=" + std::to_string(int{kCoreBufferTooSmall});
    for (const std::string size : {"0", "1", "100", "67108864"}) {
        AddCase(cases, 1131, "size-" + size,
                {"core GetMenus size=" + size + tooSmall, "start", "tick",
                 ExpectCore("IdleEvent", 1), ExpectCore("GetMenus", 2)});
    }
    // More than the plug-in takes: it doesn't start, since menus come before all else.
    for (const std::string size : {"67108865", "9223372036854775808", "18446744073709551615"}) {
        AddCase(cases, 1131, "size-" + size,
                {"core GetMenus times=1 size=" + size + tooSmall, "expect refused",
                 ExpectCore("GetMenus", 1)});
        AddCase(cases, 1131, "at-an-update-" + size,
                {SetTree(kMenuTree), "show menu", "core GetMenus size=" + size + tooSmall,
                 "show menu", SetTree(kMenuTree), "show menu", "expect menu Command enabled"});
    }
}

}  // namespace

void AddMenuTreeCases(std::vector<ValidatorCase>& cases)
{
    AddTreelessStarts(cases);
    AddBrokenUpdates(cases);
    AddRebuilds(cases);
    AddCommands(cases);
    AddSizes(cases);
}

}  // namespace headless
