#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

constexpr char kHuge[] = "18446744073709551615";

// A function that gets a buffer, and the lines that make a running plug-in call it.
struct BufferCall {
    const char* function;
    Lines lines;
    bool hasSize;
};

std::vector<BufferCall> ListBufferCalls()
{
    const std::string resolve = MakeCoreLine("HandleOpenExistingDocument", "text", kFontList);
    return {{"GetIDForDocument", {"open a.ai", "menu Command"}, true},
            {"HandleCreateNewDocument", {"new"}, true},
            {"HandleOpenExistingDocument", {"open a.ai"}, true},
            {"InvokeResolveDialog", {resolve, "open a.ai"}, true},
            {"InvokeCommandDialog", {"about"}, false}};
}

// Plays the call and then opens another document, which must be handled as ever.
void AddBufferCase(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
                   const BufferCall& call, const std::string& keys)
{
    Lines lines = Join(MakeWorld(), {"start", "core " + std::string(call.function) + " " + keys});
    lines = Join(lines, call.lines);
    lines = Join(lines, {"core " + std::string(call.function), "core HandleOpenExistingDocument",
                         "open b.ai", "expect dialog dismissed", "close"});
    AddCase(cases, rule, std::string(call.function) + "-" + name, lines);
}

void AddSizes(std::vector<ValidatorCase>& cases)
{
    for (const BufferCall& call : ListBufferCalls()) {
        if (!call.hasSize) continue;
        for (const std::string size : {"0", "1", "4294967296", "9223372036854775808", kHuge}) {
            AddBufferCase(cases, 1108, "size-" + size, call, "size=" + size);
        }
    }
    // Behind a list, the size is that of the buffer of the resolve dialog.
    for (const std::string size : {"0", "1", "1048575"}) {
        AddCase(cases, 1108, "list-then-size-" + size,
                Join(MakeWorld(), {MakeCoreLine("HandleOpenExistingDocument", "text", kFontList) +
                                       " size=" + size,
                                   "open a.ai", ExpectCore("HandleOpenExistingDocument", 2),
                                   ExpectCore("InvokeResolveDialog", 2)}));
    }
    for (const std::string size : {"0", kHuge}) {
        AddCase(cases, 1108, "GetSettings-size-" + size,
                {"core GetSettings size=" + size, "start", "new",
                 ExpectCore("HandleCreateNewDocument", 1)});
    }
}

void AddFilled(std::vector<ValidatorCase>& cases)
{
    for (const BufferCall& call : ListBufferCalls()) {
        AddBufferCase(cases, 1109, "filled", call, "fill=x");
        AddBufferCase(cases, 1109, "filled-with-brackets", call, "fill=[");
        AddBufferCase(cases, 1109, "filled-with-quotes", call, "'fill=\"'");
    }
    AddCase(cases, 1109, "GetSettings-filled",
            {"core GetSettings fill=x", "document a.ai fonts=Missing-One", "open a.ai",
             "expect dialog dismissed"});
    AddCase(cases, 1109, "id-of-256-bytes",
            Join(MakeWorld(),
                 {"open a.ai", "core GetIDForDocument fill=x", "menu Command",
                  "expect call UpdateDocumentFontUsage " + std::string(256, 'x'),
                  ExpectCore("UpdateDocumentFontUsage", 1), ExpectCore("HandleMenuSelection", 1)}));
}

void AddBytes(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<std::string, std::string>> texts = {
        {"lone-continuation", "80"},
        {"overlong", "c0af"},
        {"surrogate", "eda080"},
        {"beyond-unicode", "f5808080"},
        {"cut-character", "e283"},
        {"all-ones", "ffff"},
        // [{"PostScriptName":"A\xFF"}]
        {"in-a-list", "5b7b22506f73745363726970744e616d65223a2241ff227d5d"},
        // [{"PostScriptName":"A\0B"}]
        {"zero-in-a-list", "5b7b22506f73745363726970744e616d65223a22410042227d5d"},
        {"zero-first", "0041"},
        {"zero-last", "4100"},
    };
    for (const BufferCall& call : ListBufferCalls()) {
        for (const auto& [name, bytes] : texts) {
            AddBufferCase(cases, 1110, name, call, "hex=" + bytes);
        }
    }
    for (const auto& [name, bytes] : texts) {
        AddCase(cases, 1110, "GetSettings-" + name,
                {"core GetSettings hex=" + bytes, "document a.ai fonts=Missing-One", "open a.ai",
                 "expect dialog dismissed"});
        AddCase(cases, 1110, "GetMenus-" + name,
                {"core GetMenus hex=" + bytes, "start", "tick", ExpectCore("IdleEvent", 1)});
    }
    AddCase(cases, 1110, "list-without-utf-8-leads-to-no-dialog",
            Join(MakeWorld(), {"core HandleOpenExistingDocument hex="
                               "5b7b22506f73745363726970744e616d65223a2241ff227d5d",
                               "open a.ai", ExpectCore("InvokeResolveDialog", 0)}));
}

}  // namespace

void AddCoreBufferCases(std::vector<ValidatorCase>& cases)
{
    AddSizes(cases);
    AddFilled(cases);
    AddBytes(cases);
}

}  // namespace headless
