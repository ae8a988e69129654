#include "validator/typeloft/CaseWriter.h"
#include "validator/typeloft/PluginCoreFamily.h"

namespace headless {

namespace {

constexpr char kCheck[] = "send \"AI File Format\" \"AI Check\" path=a.ai";

std::string Repeat(const std::string& text, size_t count)
{
    std::string repeated;
    for (size_t i = 0; i < count; ++i) repeated += text;
    return repeated;
}

// The file is checked with the list, and then once more with nothing to resolve.
void AddList(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
             const std::string& list, const Lines& expectations)
{
    const Lines lines =
        Join(MakeWorld(), {MakeCoreLine("HandleOpenExistingDocument", "text", list), kCheck});
    AddCase(cases, rule, name,
            Join(Join(lines, expectations),
                 {"core HandleOpenExistingDocument", kCheck, "expect answer -1",
                  ExpectCore("HandleOpenExistingDocument", 2)}));
}

void AddCutLists(std::vector<ValidatorCase>& cases)
{
    for (const std::string& list :
         {kFontList, R"({"DocumentFonts":)" + kFontList + R"(,"LinkedDocuments":["/a"]})"}) {
        for (size_t length = 1; length < list.size(); ++length) {
            AddList(cases, 1116,
                    std::string(list.front() == '[' ? "list" : "report") + "-cut-to-" +
                        std::to_string(length),
                    list.substr(0, length), {ExpectCore("InvokeResolveDialog", 0)});
        }
    }
    AddList(cases, 1116, "text-behind-the-list", kFontList + "x",
            {ExpectCore("InvokeResolveDialog", 0)});
}

void AddDeepLists(std::vector<ValidatorCase>& cases)
{
    for (const size_t levels : {size_t{2000}, size_t{20000}, size_t{200000}}) {
        const std::string name = std::to_string(levels) + "-";
        const Lines refused = {ExpectCore("InvokeResolveDialog", 0)};
        AddList(cases, 1117, name + "arrays", Repeat("[", levels) + Repeat("]", levels), refused);
        AddList(cases, 1117, name + "open-arrays", Repeat("[", levels), refused);
        AddList(cases, 1117, name + "open-objects", Repeat(R"({"a":)", levels), refused);
        AddList(cases, 1117, name + "arrays-and-objects", Repeat(R"([{"a":)", levels), refused);
    }
    // A sound list with the name of a font in brackets.
    AddList(cases, 1117, "brackets-in-a-name",
            R"([{"PostScriptName":")" + Repeat("[", 5000) + R"("}])",
            {ExpectCore("InvokeResolveDialog", 1)});
}

void AddTypes(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<std::string, std::string>> values = {
        {"null", "null"},    {"true", "true"},   {"false", "false"}, {"number", "1"},
        {"fraction", "1.5"}, {"text", R"("A")"}, {"array", "[]"},    {"object", "{}"}};
    for (const auto& [name, value] : values) {
        AddList(cases, 1118, "instead-of-the-list-" + name, value, {});
        AddList(cases, 1118, "instead-of-a-font-" + name, "[" + value + "]", {});
        AddList(cases, 1118, "instead-of-the-fonts-" + name, R"({"DocumentFonts":)" + value + "}",
                {});
        if (name == "text") continue;
        AddList(cases, 1118, "instead-of-a-name-" + name, R"([{"PostScriptName":)" + value + "}]",
                {ExpectCore("InvokeResolveDialog", 0)});
    }
    AddList(cases, 1118, "font-without-a-name", "[{}]", {ExpectCore("InvokeResolveDialog", 0)});
    AddList(cases, 1118, "name-twice", R"([{"PostScriptName":"A","PostScriptName":"B"}])", {});
    AddList(cases, 1118, "empty-name", R"([{"PostScriptName":""}])", {});
    AddList(cases, 1118, "ten-thousand-fonts",
            "[" + Repeat(R"({"PostScriptName":"A"},)", 9999) + R"({"PostScriptName":"A"}])",
            {ExpectCore("InvokeResolveDialog", 1)});
    AddList(cases, 1118, "long-name",
            R"([{"PostScriptName":")" + std::string(500000, 'n') + R"("}])",
            {ExpectCore("InvokeResolveDialog", 1)});
}

void AddNumbers(std::vector<ValidatorCase>& cases)
{
    const std::vector<std::pair<std::string, std::string>> numbers = {
        {"beyond-64-bits", "18446744073709551616"},
        {"negative-beyond-64-bits", "-9223372036854775809"},
        {"huge-exponent", "1e999"},
        {"small-exponent", "1e-999"},
        {"thousand-digits", Repeat("9", 1000)},
        {"minus", "-"},
        {"leading-zero", "007"},
        {"not-a-number", "NaN"},
        {"infinite", "Infinity"}};
    for (const auto& [name, number] : numbers) {
        AddList(cases, 1119, name, R"([{"PostScriptName":)" + number + "}]",
                {ExpectCore("InvokeResolveDialog", 0)});
        AddCase(cases, 1119, "settings-" + name,
                {MakeCoreLine("GetSettings", "text", R"({"DialogSuppression":)" + number + "}"),
                 "document a.ai fonts=Missing-One", "open a.ai", "expect dialog dismissed"});
    }
}

void AddSettings(std::vector<ValidatorCase>& cases)
{
    const std::string object = R"({"DialogSuppression":"2"})";
    for (size_t length = 0; length < object.size(); ++length) {
        AddCase(cases, 1132, "cut-to-" + std::to_string(length),
                {MakeCoreLine("GetSettings", "text", object.substr(0, length)),
                 "document a.ai fonts=Missing-One", "open a.ai", "expect dialog dismissed"});
    }
    for (const CoreStatus& status : kCoreStatuses) {
        AddCase(cases, 1132, status.name,
                {MakeStatusLine("GetSettings", status.value), "document a.ai fonts=Missing-One",
                 "open a.ai", "expect dialog dismissed"});
    }
    const std::vector<std::pair<std::string, std::string>> others = {
        {"deep", Repeat("[", 4000)},
        {"array", R"(["DialogSuppression","2"])"},
        {"text", R"("DialogSuppression")"},
        {"number", R"({"DialogSuppression":2})"},
        {"other-key", R"({"dialogSuppression":"2"})"},
        {"not-decimal", R"({"DialogSuppression":"two"})"},
        {"null", R"({"DialogSuppression":null})"}};
    for (const auto& [name, text] : others) {
        AddCase(cases, 1132, name,
                {MakeCoreLine("GetSettings", "text", text), "document a.ai fonts=Missing-One",
                 "open a.ai", "expect dialog dismissed"});
    }
}

}  // namespace

void AddFontListCases(std::vector<ValidatorCase>& cases)
{
    AddCutLists(cases);
    AddDeepLists(cases);
    AddTypes(cases);
    AddNumbers(cases);
    AddSettings(cases);
}

}  // namespace headless
